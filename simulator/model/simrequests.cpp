// Long because it holds everything that a person can do to the simulated room.
#include "simulator/model/simrequests.h"

#include "simulator/model/numbers.h"
#include "simulator/model/referencepoints.h"
#include "simulator/model/reply.h"
#include "simulator/model/simulator.h"

#include <QList>

namespace simulator
{

namespace
{

constexpr double max_deviation = 1000.0; ///< mm, of noise and of trembling
constexpr double min_duration = 0.001;   ///< s
constexpr int length_decimals = 3;
constexpr int rotation_decimals = 8;
constexpr int max_every = 1000000;

const char no_tool[] = "there is no tool";
const char no_room[] = "no room calibration";

/// Replies "ok" and applies the value, or says what is needed.
template <typename Value, typename Apply>
QByteArray apply_if(const std::optional<Value>& value, const char* needed, Apply apply)
{
    if (!value)
        return error(needed);
    apply(*value);
    return ok();
}

QByteArray touch(Simulator& s, const QByteArray& rest)
{
    const auto point = parse_integer(rest, 1, int(s.world.points.size()));
    if (!s.world.held_tool())
        return error(no_tool);
    return apply_if(point, "no such point", [&](int number) {
        s.world.held_tool()->tip = s.world.object_point(number - 1);
    });
}

QByteArray move(Simulator& s, const QByteArray& rest)
{
    const auto to = parse_numbers(rest, 3);
    if (!s.world.held_tool())
        return error(no_tool);
    if (!s.controller.is_calibrated())
        return error(no_room);
    const Controller& controller = s.controller;
    return apply_if(to, "three numbers are needed", [&](const std::vector<double>& v) {
        s.world.held_tool()->tip = inverse(controller.room()) * Vec3{v[0], v[1], v[2]};
    });
}

QByteArray take_tool(Simulator& s, const QByteArray& rest)
{
    return apply_if(parse_integer(rest, 1, int(s.world.tools.size())), "no such tool",
                    [&](int number) { s.world.held = number - 1; });
}

QByteArray push_tool(Simulator& s, const QByteArray& button, bool down)
{
    Tool* tool = s.world.held_tool();
    if (!tool)
        return error(no_tool);
    return apply_if(parse_integer(button, 1, int(tool->pressed.size())), "no such button",
                    [&](int number) { tool->pressed[number - 1] = down; });
}

QByteArray push_stick(Simulator& s, const QByteArray& button, bool down)
{
    auto& pressed = s.world.stick.pressed;
    return apply_if(parse_integer(button, 0, int(pressed.size()) - 1), "no such button",
                    [&](int number) { pressed[number] = down; });
}

/// "tool BUTTON" or "stick BUTTON".
QByteArray push(Simulator& s, const QByteArray& rest, bool down)
{
    if (rest.startsWith("tool "))
        return push_tool(s, rest.mid(5), down);
    if (rest.startsWith("stick "))
        return push_stick(s, rest.mid(6), down);
    return error("tool or stick, and a button, are needed");
}

QByteArray press(Simulator& s, const QByteArray& rest) { return push(s, rest, true); }

QByteArray release(Simulator& s, const QByteArray& rest) { return push(s, rest, false); }

QByteArray measure(Simulator& s, const QByteArray&)
{
    return s.world.held_tool() ? outcome(s.controller.start_measurement(s.world.held))
                               : error(no_tool);
}

/// Numbers of the points, 0 for a place off all points.
QByteArray measured(Simulator& s, const QByteArray&)
{
    QByteArray text;
    for (int point : s.world.measured)
        text += ' ' + QByteArray::number(point + 1);
    return text.isEmpty() ? ok() : ok(text.mid(1));
}

QByteArray forget(Simulator& s, const QByteArray&)
{
    s.world.measured.clear();
    return ok();
}

QByteArray hide(Simulator& s, bool hidden)
{
    if (!s.world.held_tool())
        return error(no_tool);
    s.world.held_tool()->hidden = hidden;
    return ok();
}

QByteArray lose(Simulator& s, const QByteArray&) { return hide(s, true); }

QByteArray find(Simulator& s, const QByteArray&) { return hide(s, false); }

QByteArray shake(Simulator& s, const QByteArray& rest)
{
    return apply_if(parse_number(rest, 0.0, max_deviation), "a length from 0 to 1000 is needed",
                    [&](double mm) { s.world.shake = mm; });
}

QByteArray set_noise(Simulator& s, const QByteArray& rest)
{
    return apply_if(parse_number(rest, 0.0, max_deviation), "a length from 0 to 1000 is needed",
                    [&](double mm) { s.deviation = mm; });
}

QByteArray lock(Simulator& s, const QByteArray&)
{
    s.controller.set_locked(true);
    return ok();
}

QByteArray unlock(Simulator& s, const QByteArray&)
{
    s.controller.set_locked(false);
    return ok();
}

QByteArray licence(Simulator& s, const QByteArray& rest)
{
    return apply_if(parse_truth(rest), "0 or 1 is needed",
                    [&](bool licensed) { s.controller.set_licensed(licensed); });
}

QByteArray available(Simulator& s, const QByteArray& rest)
{
    return apply_if(parse_truth(rest), "0 or 1 is needed",
                    [&](bool is_available) { s.controller.set_available(is_available); });
}

/// "TYPE" or "TYPE loaded".
QByteArray roomcal(Simulator& s, const QByteArray& rest)
{
    const QList<QByteArray> words = rest.split(' ');
    const bool loaded = words.size() == 2 && words[1] == "loaded";
    if (words.size() != 1 && !loaded)
        return error("a coordinate type is needed");
    return outcome(s.controller.calibrate(words[0], loaded));
}

/// "NUMBER 0|1".
QByteArray camera(Simulator& s, const QByteArray& rest)
{
    const QList<QByteArray> words = rest.split(' ');
    const auto number = parse_integer(words[0], 1, s.controller.camera_count());
    if (!number || words.size() != 2)
        return error("a camera, and 0 or 1, are needed");
    return apply_if(parse_truth(words[1]), "0 or 1 is needed",
                    [&](bool present) { s.controller.set_room_data(*number - 1, present); });
}

QByteArray tip_calibrated(Simulator& s, const QByteArray& rest)
{
    if (!s.world.held_tool())
        return error(no_tool);
    return apply_if(parse_truth(rest), "0 or 1 is needed", [&](bool calibrated) {
        s.controller.set_tip_calibrated(s.world.held, calibrated);
    });
}

QByteArray tolerance(Simulator& s, const QByteArray& rest)
{
    if (!s.world.held_tool())
        return error(no_tool);
    return apply_if(parse_number(rest, 0.0, Controller::max_tolerance),
                    "a length from 0 to 1000 is needed",
                    [&](double mm) { s.controller.set_tolerance(s.world.held, mm); });
}

QByteArray duration(Simulator& s, const QByteArray& rest)
{
    if (!s.world.held_tool())
        return error(no_tool);
    return apply_if(parse_number(rest, min_duration, Controller::max_duration),
                    "a time from 0.001 to 60 is needed",
                    [&](double seconds) { s.controller.set_duration(s.world.held, seconds); });
}

QByteArray version(Simulator& s, const QByteArray&)
{
    const Version& v = s.controller.version();
    return ok(QByteArray::number(v.major) + ' ' + QByteArray::number(v.minor) + ' '
              + QByteArray::number(v.patch));
}

QByteArray object(Simulator& s, const QByteArray&)
{
    QByteArray text;
    for (const Vec3& point : s.world.points)
        text += ' ' + fixed(point, point_decimals);
    return ok(text.mid(1));
}

QByteArray save_points(Simulator& s, const QByteArray&)
{
    const QString problem = s.save_points(s.points_file);
    return problem.isEmpty() ? ok(s.points_file.toUtf8())
                             : error("points not saved: " + problem.toUtf8());
}

/// Nine numbers of the rotation row after row, unlike the texts of the vocabulary.
QByteArray true_pose(Simulator& s, const QByteArray&)
{
    if (!s.controller.is_calibrated())
        return error(no_room);
    const Pose T_room_object = s.controller.room() * s.world.object;
    return ok(fixed(transpose(T_room_object.rotation), rotation_decimals) + ' '
              + fixed(T_room_object.position, length_decimals));
}

QByteArray tip(Simulator& s, const QByteArray&)
{
    if (!s.world.held_tool())
        return error(no_tool);
    if (!s.controller.is_calibrated())
        return error(no_room);
    return ok(fixed(s.controller.reported(s.world.held_tool()->tip), length_decimals));
}

QByteArray tool_state(const Simulator& s)
{
    const int held = s.world.held;
    return " tool=" + QByteArray::number(held + 1) + " seen=" + truth(s.controller.is_seen(held))
           + " tip_calibrated=" + truth(s.controller.tool(held).tip_calibrated)
           + " measuring=" + truth(s.controller.is_measuring(held));
}

QByteArray state(Simulator& s, const QByteArray&)
{
    const Controller& c = s.controller;
    const QByteArray tool = s.world.held_tool() ? tool_state(s) : QByteArray(" tool=0");
    return ok(
        "tracking=" + truth(c.is_tracking()) + " available=" + truth(c.is_available())
        + " locked=" + truth(c.is_locked()) + " licence=" + truth(c.is_licensed()) + " roomcal="
        + c.coordinate_type() + tool + " noise=" + fixed(s.deviation, length_decimals) + " shake="
        + fixed(s.world.shake, length_decimals) + " delay=" + QByteArray::number(s.faults.delay())
        + " stream=" + QByteArray::number(s.data_port()) + " source="
        + QByteArray::number(s.source_port) + " frame=" + QByteArray::number(c.frame()));
}

/// Nothing, "every N", or the beginning of requests.
QByteArray fail(Simulator& s, const QByteArray& rest)
{
    if (rest.isEmpty()) {
        s.faults.end_failing();
        return ok();
    }
    if (rest.startsWith("every "))
        return apply_if(parse_integer(rest.mid(6), 0, max_every), "a number is needed",
                        [&](int n) { s.faults.fail_every(n); });
    return s.faults.fail(rest) ? ok() : error("too many kinds of failure");
}

QByteArray delay(Simulator& s, const QByteArray& rest)
{
    return apply_if(parse_integer(rest, 0, Faults::max_delay), "0 to 60000 ms are needed",
                    [&](int ms) { s.faults.set_delay(ms); });
}

QByteArray send_line(Simulator& s, const QByteArray& rest)
{
    return s.faults.send_line(rest) ? ok() : error("too much to send at once");
}

QByteArray tear(Simulator& s, const QByteArray&)
{
    s.faults.tear_next();
    return ok();
}

QByteArray stop(Simulator& s, const QByteArray&)
{
    s.stop();
    return ok();
}

enum class Rest
{
    none,
    some,
    any
};

struct Action
{
    const char* word;
    Rest rest; ///< what may follow the word
    QByteArray (*act)(Simulator&, const QByteArray& rest);
};

const Action actions[] = {
    {"touch", Rest::some, touch},
    {"move", Rest::some, move},
    {"tool", Rest::some, take_tool},
    {"press", Rest::some, press},
    {"release", Rest::some, release},
    {"measure", Rest::none, measure},
    {"measured", Rest::none, measured},
    {"forget", Rest::none, forget},
    {"lose", Rest::none, lose},
    {"find", Rest::none, find},
    {"shake", Rest::some, shake},
    {"noise", Rest::some, set_noise},
    {"lock", Rest::none, lock},
    {"unlock", Rest::none, unlock},
    {"licence", Rest::some, licence},
    {"available", Rest::some, available},
    {"roomcal", Rest::some, roomcal},
    {"camera", Rest::some, camera},
    {"tip_calibrated", Rest::some, tip_calibrated},
    {"tolerance", Rest::some, tolerance},
    {"duration", Rest::some, duration},
    {"version", Rest::none, version},
    {"object", Rest::none, object},
    {"points", Rest::none, save_points},
    {"truth", Rest::none, true_pose},
    {"tip", Rest::none, tip},
    {"state", Rest::none, state},
    {"fail", Rest::any, fail},
    {"delay", Rest::some, delay},
    {"line", Rest::any, send_line},
    {"torn", Rest::none, tear},
    {"stop", Rest::none, stop},
};

bool suits(Rest wanted, const QByteArray& rest)
{
    return wanted == Rest::any || (wanted == Rest::none) == rest.isEmpty();
}

} // namespace

QByteArray obey_person(Simulator& simulator, const QByteArray& text)
{
    const int blank = text.indexOf(' ');
    const QByteArray word = blank < 0 ? text : text.left(blank);
    const QByteArray rest = blank < 0 ? QByteArray() : text.mid(blank + 1);
    for (const Action& action : actions)
        if (word == action.word)
            return suits(action.rest, rest) ? action.act(simulator, rest)
                                            : error("wrong number of words");
    return error("unknown action");
}

} // namespace simulator
