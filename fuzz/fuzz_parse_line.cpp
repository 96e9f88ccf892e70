// Any bytes as data lines of several frames, an empty line between them: no line may crash the
// parser, change its text or leave it incoherent, and a number reads as strtod reads it.
#include "fuzz/support/require.h"
#include "tracking/zetrakparse.h"
#include "tracking/zetrakparser.h"

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>

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

/// Every record that the parser counts is there, and none beyond.
static void look_at_records(ZetrakParser& parser)
{
    require(parser.getNumBody() <= 0 || parser.getBody(parser.getNumBody() - 1));
    require(parser.getNumHand() <= 0 || parser.getHand(parser.getNumHand() - 1));
    require(parser.getNumMeaTool() <= 0 || parser.getMeaTool(parser.getNumMeaTool() - 1));
    require(parser.getNumWandStick() <= 0 || parser.getWandStick(parser.getNumWandStick() - 1));
    require(parser.getNumMarker() <= 0 || parser.getMarker(parser.getNumMarker() - 1));
    require(parser.getNumHuman() <= 0 || parser.getHuman(parser.getNumHuman() - 1));
    require(!parser.getBody(parser.getNumBody()) && !parser.getBody(-1));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    ZetrakParser parser;
    parser.startFrame();
    for (std::string line; std::getline(lines, line);) {
        if (line.empty()) {
            parser.endFrame();
            look_at_records(parser);
            parser.startFrame();
        }
        parse(parser, line);
        compare_with_strtod(line);
    }
    parser.endFrame();
    look_at_records(parser);
    return 0;
}
