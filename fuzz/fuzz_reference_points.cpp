// Any bytes as a reference-point file: no crash, bounded, finite points or an untouched list. The
// same bytes as a typed number: the repair leaves a text that it would not change again.
#include "matching/referencepointfile.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <sstream>

static void require(bool condition)
{
    if (!condition)
        std::abort();
}

static bool is_finite(const bsVector& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

static void read_file(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<bsVector> points(1, bsVector(7, 8, 9));
    if (read_reference_points(stream, points)) {
        require(points.size() <= reference_file_max_points);
        for (const bsVector& p : points)
            require(is_finite(p));
    } else {
        require(points.size() == 1 && points[0].x == 7 && points[0].y == 8 && points[0].z == 9);
    }
}

static void repair(const std::string& text)
{
    QString number = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    const bool good = repair_number(number);
    QString again = number;
    require(!good || (repair_number(again) && again == number));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    read_file(text);
    repair(text);
    return 0;
}
