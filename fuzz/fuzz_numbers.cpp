// Any text as a typed number: whatever the repair accepts is read alike by every reading of it, is
// not changed by another repair, and comes back from a reference-point file.
#include "controller/replytext.h"
#include "fuzz/support/require.h"
#include "matching/referencepointfile.h"
#include "tracking/zetrakparse.h"

#include <QByteArray>

#include <cstdint>
#include <sstream>
#include <string>

static double read_by_parser(std::string text)
{
    double value;
    const char* const end = ZetrakSDK_Parse::string_get_d(&text[0], &value);
    require(end && *end == '\0');
    return value;
}

static void read_everywhere(const QString& number)
{
    const std::string text = number.toStdString();
    bool by_qt = false, by_reply = false;
    const double expected = number.toDouble(&by_qt);
    require(by_qt && QByteArray(text.c_str()).toDouble() == expected);
    require(reply_number(text.c_str(), 0, &by_reply) == expected && by_reply);
    require(std::strtod(text.c_str(), nullptr) == expected);
    require(read_by_parser(text) == expected);

    std::istringstream file(reference_point_line(1, number, number, number).toStdString());
    std::vector<bsVector> points;
    require(read_reference_points(file, points) && points.size() <= 1);
    const float through_float = static_cast<float>(expected);
    require(points.empty() || (points[0].x == through_float && points[0].z == through_float));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QString number = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const bool good = repair_number(number);
    QString again = number;
    require(!good || (repair_number(again) && again == number));
    read_everywhere(number); // what is refused has become a number, too
    return 0;
}
