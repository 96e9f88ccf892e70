// The lines of hand-held devices: pointing devices, Measurement Tools and their references.
#include "tracking/zetrakparser.h"

#include "tracking/linegroups.h"

using namespace ZetrakSDK_Datatypes;
using namespace ZetrakSDK_Parse;
using namespace line_groups;

namespace
{

// Fixed lines carry one word of button bits: eight for a pointing device, four for a tool.
const int fixed_stick_buttons = 8;
const int fixed_tool_buttons = 4;
const int max_stick_buttons = 8;

double joystick_direction(const int* button, int negative, int positive)
{
    return button[negative] ? -1.0 : button[positive] ? 1.0 : 0.0;
}

// Bits 4 to 7 act both as buttons and as directions of the joystick.
void set_fixed_controls(Zetrak_WandStick_Type_d& stick, int bits)
{
    stick.num_button = fixed_stick_buttons;
    unpack_bits(bits, stick.button, fixed_stick_buttons);
    stick.num_joystick = 2;
    stick.joystick[0] = joystick_direction(stick.button, 5, 7);
    stick.joystick[1] = joystick_direction(stick.button, 4, 6);
}

void set_fixed_controls(Zetrak_MeaTool_Type_d& tool, int bits)
{
    tool.num_button = fixed_tool_buttons;
    unpack_bits(bits, tool.button, fixed_tool_buttons);
    std::fill(tool.button + fixed_tool_buttons, tool.button + Zetrak_Max_Button, 0);
    tool.extra_value = 0.0;
    std::fill(tool.extra_values, tool.extra_values + 6, 0.0);
}

// One object of a line with a fixed number of controls; its id must be `index`.
template <class Record>
char* read_fixed_device(char* cursor, Record& device, int index)
{
    int integers[2];
    double quality;
    cursor = string_get_block(cursor, "idi", integers, nullptr, &quality);
    if (!cursor || integers[0] != index)
        return nullptr;
    device.id = index;
    device.quality = quality;
    set_fixed_controls(device, integers[1]);
    return read_pose(cursor, device.loc, device.rot);
}

template <class Record>
char* read_fixed_devices(char* cursor, std::vector<Record>& devices, int* number, int* line_count)
{
    cursor = read_count(cursor, line_count);
    if (!cursor)
        return nullptr;
    resize_records(devices, number, *line_count);
    for (int i = 0; cursor && i < *number; ++i)
        cursor = read_fixed_device(cursor, devices[static_cast<std::size_t>(i)], i);
    return cursor;
}

// Bits of the buttons, if there are any, and the joystick values in one group.
char* read_stick_controls(char* cursor, Zetrak_WandStick_Type_d& stick)
{
    static const char controls_format[] = "idddddddd";
    char format[sizeof(controls_format)];
    const int words = stick.num_button > 0 ? 1 : 0;
    const char* const first = controls_format + 1 - words;
    char* const end = std::copy(first, first + words + stick.num_joystick, format);
    *end = '\0';
    int word = 0;
    cursor = string_get_block(cursor, format, &word, nullptr, stick.joystick);
    if (cursor)
        unpack_bits(word, stick.button, stick.num_button);
    return cursor;
}

char* read_stick(char* cursor, Zetrak_WandStick_Type_d& stick, int index)
{
    int integers[3];
    double quality;
    cursor = string_get_block(cursor, "idii", integers, nullptr, &quality);
    if (!cursor || integers[0] != index)
        return nullptr;
    stick.id = index;
    stick.quality = quality;
    if (integers[1] < 0 || integers[1] > max_stick_buttons || integers[2] < 0
        || integers[2] > Zetrak_Max_Joystick)
        return nullptr;
    stick.num_button = integers[1];
    stick.num_joystick = integers[2];
    cursor = read_pose(cursor, stick.loc, stick.rot);
    return cursor ? read_stick_controls(cursor, stick) : nullptr;
}

char* read_tool_buttons(char* cursor, Zetrak_MeaTool_Type_d& tool)
{
    int word = 0;
    cursor = string_get_block(cursor, tool.num_button > 0 ? "i" : "", &word, nullptr, nullptr);
    if (cursor)
        unpack_bits(word, tool.button, tool.num_button);
    return cursor;
}

char* read_tool(char* cursor, Zetrak_MeaTool_Type_d& tool, int index)
{
    int integers[2];
    double reals[2];
    cursor = string_get_block(cursor, "idid", integers, nullptr, reals);
    if (!cursor || integers[0] != index || integers[1] < 0)
        return nullptr;
    tool.id = index;
    tool.quality = reals[0];
    tool.num_button = std::min<int>(integers[1], Zetrak_Max_Button);
    tool.extra_value = reals[1];
    std::fill(tool.button + tool.num_button, tool.button + Zetrak_Max_Button, 0);
    cursor = read_pose(cursor, tool.loc, tool.rot);
    if (cursor)
        cursor = read_tool_buttons(cursor, tool);
    return cursor ? string_get_block(cursor, six_reals, nullptr, nullptr, tool.extra_values)
                  : nullptr;
}

char* read_reference(char* cursor, std::vector<Zetrak_MeaRef_Type_d>& references)
{
    int id;
    double quality;
    cursor = string_get_block(cursor, "id", &id, nullptr, &quality);
    if (!cursor || id < 0 || static_cast<std::size_t>(id) >= references.size())
        return nullptr;
    Zetrak_MeaRef_Type_d& reference = references[static_cast<std::size_t>(id)];
    reference.id = id;
    reference.quality = quality;
    return read_pose(cursor, reference.loc, reference.rot);
}

} // namespace

char* ZetrakParser::readWandSticksFixed(char* cursor)
{
    return read_fixed_devices(cursor, wandstick, &num_wandstick, &line_wandstick_count);
}

char* ZetrakParser::readMeaToolsFixed(char* cursor)
{
    return read_fixed_devices(cursor, meatool, &num_meatool, &line_meatool_count);
}

// The first number says how many devices exist, the second how many the line holds.
char* ZetrakParser::readWandSticks(char* cursor)
{
    int count;
    cursor = read_count(cursor, &count);
    if (!cursor)
        return nullptr;
    resize_records(wandstick, &num_wandstick, count);
    cursor = read_count(cursor, &count);
    if (count > num_wandstick)
        return nullptr;
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_stick(cursor, wandstick[static_cast<std::size_t>(i)], i);
    return cursor;
}

// Unlike the pointing devices', the tools' storage follows the second number; the first is only
// checked.
char* ZetrakParser::readMeaTools(char* cursor)
{
    int count;
    cursor = read_count(cursor, &count);
    if (cursor)
        cursor = read_count(cursor, &count);
    if (!cursor)
        return nullptr;
    line_meatool_count = 0;
    resize_records(meatool, &num_meatool, count);
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_tool(cursor, meatool[static_cast<std::size_t>(i)], i);
    return cursor;
}

// Groups come in any order and with gaps: what the line does not mention is untracked.
char* ZetrakParser::readMeaRefs(char* cursor)
{
    int count;
    cursor = read_count(cursor, &count);
    if (!cursor)
        return nullptr;
    resize_records(mearef, &num_mearef, count);
    for (int i = 0; i < num_mearef; ++i) {
        mearef[static_cast<std::size_t>(i)].id = i;
        mearef[static_cast<std::size_t>(i)].quality = -1.0;
    }
    cursor = read_count(cursor, &count);
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_reference(cursor, mearef);
    return cursor;
}
