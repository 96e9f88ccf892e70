// Any bytes as data lines: no line may crash the parser, change its text or leave it incoherent,
// and a number reads as strtod reads it.
#include "tracking/zetrakparse.h"
#include "tracking/zetrakparser.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

static void require(bool condition)
{
    if (!condition)
        std::abort();
}

static void parse(ZetrakParser& parser, const std::string& text)
{
    std::string line(text.c_str()); // as the parser sees it: up to the first zero byte
    char* cursor = &line[0];
    const bool read = parser.parseLine(&cursor);
    require(read == (cursor != nullptr));
    require(!read || (cursor >= line.data() && cursor <= line.data() + line.size()));
    require(line == text.c_str());
}

static void compare_with_strtod(std::string text)
{
    double value;
    char* library_end;
    char* const end = ZetrakSDK_Parse::string_get_d(&text[0], &value);
    const double expected = std::strtod(text.c_str(), &library_end);
    require(std::memcmp(&value, &expected, sizeof(value)) == 0);
    require((end ? end : &text[0]) == library_end);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    ZetrakParser parser;
    parser.startFrame();
    for (std::string line; std::getline(lines, line);) {
        parse(parser, line);
        compare_with_strtod(line);
    }
    parser.endFrame();
    return 0;
}
