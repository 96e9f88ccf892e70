#include "simulator/model/requests.h"

#include "simulator/model/numbers.h"
#include "simulator/model/reply.h"

#include <algorithm>
#include <cstdio>

namespace simulator
{

namespace
{

constexpr int rotation_decimals = 8;
constexpr int translation_decimals = 3;
constexpr int scaling_decimals = 5;
constexpr int setting_decimals = 3;

/// What stands behind a parameter's name: nothing, a camera ("c01") or a tool ("b01").
enum class Index
{
    none,
    camera,
    tool
};

QByteArray yes_or_no(bool value) { return value ? "yes" : "no"; }

QByteArray camera_room(const Controller& controller, int camera)
{
    if (!controller.has_room(camera))
        return "none";
    const Pose T_world_camera = controller.camera(camera);
    return fixed(controller.reported(T_world_camera.position), translation_decimals) + ' '
           + fixed(controller.reported(T_world_camera.rotation), rotation_decimals);
}

struct Parameter
{
    const char* name;
    Index index;
    int since_major, since_minor; ///< first backend version that knows it
    QByteArray (*value)(const Controller&, int index);
};

const Parameter parameters[] = {
    {"status active", Index::none, 0, 0,
     [](const Controller& c, int) { return QByteArray(c.is_tracking() ? "mea" : "idle"); }},
    {"tracking available", Index::none, 0, 17,
     [](const Controller& c, int) { return yes_or_no(c.is_available()); }},
    {"config is_changeable", Index::none, 1, 9,
     [](const Controller& c, int) { return yes_or_no(!c.is_locked()); }},
    {"camera number_of_cameras", Index::none, 0, 0,
     [](const Controller& c, int) { return QByteArray::number(c.camera_count()); }},
    {"tracking has_room", Index::camera, 1, 18,
     [](const Controller& c, int camera) { return truth(c.has_room(camera)); }},
    {"tracking room", Index::camera, 0, 9, camera_room},
    {"tracking extra_rotation", Index::none, 0, 16,
     [](const Controller& c, int) { return fixed(c.extra().rotation, rotation_decimals); }},
    {"tracking extra_translation", Index::none, 0, 16,
     [](const Controller& c, int) { return fixed(c.extra().translation, translation_decimals); }},
    {"tracking extra_scaling", Index::none, 0, 16,
     [](const Controller& c, int) { return fixed(c.extra().scaling, scaling_decimals); }},
    {"roomcal last_coordinate_type", Index::none, 1, 9,
     [](const Controller& c, int) { return c.last_coordinate_type(); }},
    {"roomcal coordinate_type", Index::none, 0, 0,
     [](const Controller& c, int) { return c.coordinate_type(); }},
    {"licence measurementtool", Index::none, 0, 0,
     [](const Controller& c, int) { return truth(c.is_licensed()); }},
    {"measurementtool number_of_tools", Index::none, 0, 0,
     [](const Controller& c, int) { return QByteArray::number(c.tool_count()); }},
    {"measurementtool tip_calibrated", Index::tool, 0, 0,
     [](const Controller& c, int tool) { return truth(c.tool(tool).tip_calibrated); }},
    {"measurementtool measurement_tip_tolerance", Index::tool, 0, 0,
     [](const Controller& c, int tool) { return fixed(c.tool(tool).tolerance, setting_decimals); }},
    {"measurementtool measurement_duration", Index::tool, 0, 0,
     [](const Controller& c, int tool) { return fixed(c.tool(tool).duration, setting_decimals); }},
};

/// Index from 0 of an item written as `letter` and at least two digits, counted from 1; -1 if
/// `word` names none of the `count` items.
int item_index(const QByteArray& word, char letter, int count)
{
    const auto number = parse_integer(word.mid(1), 1, count);
    char proper[16] = "";
    if (number)
        std::snprintf(proper, sizeof proper, "%c%02d", letter, *number);
    return number && word == proper ? *number - 1 : -1;
}

int item_index(const Controller& controller, Index kind, const QByteArray& word)
{
    return kind == Index::camera ? item_index(word, 'c', controller.camera_count())
                                 : item_index(word, 'b', controller.tool_count());
}

/// The text in front of the last blank if the parameter takes an index, else the whole text.
bool names(const Parameter& parameter, const QByteArray& text)
{
    const int last_blank = parameter.index == Index::none ? text.size() : text.lastIndexOf(' ');
    return text.left(std::max(last_blank, 0)) == parameter.name;
}

QByteArray words_behind(const QByteArray& text, const char* name)
{
    return text.mid(int(qstrlen(name)) + 1);
}

bool begins_with_words(const QByteArray& text, const char* words)
{
    return text.startsWith(QByteArray(words) + ' ');
}

QByteArray change_rotation(Controller& controller, const QByteArray& values)
{
    const auto numbers = parse_numbers(values, 9);
    if (!numbers)
        return error("nine numbers are needed");
    Mat3 rotation;
    std::copy(numbers->begin(), numbers->end(), rotation.columns.begin());
    return outcome(controller.set_rotation(rotation));
}

QByteArray change_translation(Controller& controller, const QByteArray& values)
{
    const auto numbers = parse_numbers(values, 3);
    if (!numbers)
        return error("three numbers are needed");
    return outcome(controller.set_translation({(*numbers)[0], (*numbers)[1], (*numbers)[2]}));
}

QByteArray change_scaling(Controller& controller, const QByteArray& values)
{
    const auto numbers = parse_numbers(values, 1);
    return numbers ? outcome(controller.set_scaling(numbers->front()))
                   : error("one number is needed");
}

struct Setting
{
    const char* name;
    QByteArray (*change)(Controller&, const QByteArray& values);
};

const Setting settings[] = {
    {"tracking extra_rotation", change_rotation},
    {"tracking extra_translation", change_translation},
    {"tracking extra_scaling", change_scaling},
};

QByteArray start_measurement(Controller& controller, const QByteArray& word)
{
    const int tool = item_index(controller, Index::tool, word);
    return tool < 0 ? error("no such tool") : outcome(controller.start_measurement(tool));
}

} // namespace

QByteArray read_parameter(const Controller& controller, const QByteArray& text)
{
    for (const Parameter& parameter : parameters) {
        if (!names(parameter, text))
            continue;
        if (!is_at_least(controller.version(), parameter.since_major, parameter.since_minor))
            break;
        if (parameter.index == Index::none)
            return ok(parameter.value(controller, -1));
        const int index =
            item_index(controller, parameter.index, words_behind(text, parameter.name));
        return index < 0 ? error("no such camera or tool") : ok(parameter.value(controller, index));
    }
    return error("unknown parameter");
}

QByteArray change_setting(Controller& controller, const QByteArray& text)
{
    const bool known_to_version = is_at_least(controller.version(), 0, 16);
    for (const Setting& setting : settings)
        if (known_to_version && begins_with_words(text, setting.name))
            return setting.change(controller, words_behind(text, setting.name));
    return error("unknown setting");
}

QByteArray run_command(Controller& controller, const QByteArray& text)
{
    static const char start[] = "measurementtool start_measurement";
    if (text == "tracking start")
        return outcome(controller.start_tracking());
    if (text == "tracking stop") {
        controller.stop_tracking();
        return ok();
    }
    if (begins_with_words(text, start))
        return start_measurement(controller, words_behind(text, start));
    return error("unknown command");
}

} // namespace simulator
