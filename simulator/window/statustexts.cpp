#include "simulator/window/statustexts.h"

#include "simulator/model/numbers.h"

#include <algorithm>
#include <cmath>

namespace simulator
{

namespace
{

constexpr int length_decimals = 1;
constexpr int angle_decimals = 2;
constexpr int axis_decimals = 2;
constexpr int scaling_decimals = 5;
constexpr double smallest_angle = 0.005; ///< degrees; shown as zero below

QString lamp(const QColor& color, const QString& text)
{
    return QString("<span style='color:%1'>&#9679;</span> <b>%2</b>").arg(color.name(), text);
}

double angle_of(const Mat3& rotation)
{
    const double cosine = 0.5 * (rotation(0, 0) + rotation(1, 1) + rotation(2, 2) - 1.0);
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * 180.0 / std::acos(-1.0);
}

/// R + R^T - (trace R - 1) I is (1 - cos) 2 a a^T: its longest column lies along the axis, also
/// at 180 degrees where the antisymmetric part vanishes, which gives the sign elsewhere.
Vec3 axis_of(const Mat3& r)
{
    const double diagonal = r(0, 0) + r(1, 1) + r(2, 2) - 1.0;
    Vec3 longest;
    for (int i = 0; i < 3; ++i) {
        const Vec3 twice = r.column(i) + transpose(r).column(i);
        const Vec3 one = Mat3().column(i);
        const Vec3 column = twice - diagonal * one;
        if (dot(column, column) > dot(longest, longest))
            longest = column;
    }
    const Vec3 turn = {r(2, 1) - r(1, 2), r(0, 2) - r(2, 0), r(1, 0) - r(0, 1)};
    return unit(dot(longest, turn) < 0.0 ? -1.0 * longest : longest);
}

QString rotation_text(const Mat3& rotation)
{
    const double angle = angle_of(rotation);
    if (angle < smallest_angle)
        return "no rotation";
    return QString("rotation %1%2 about (%3)")
        .arg(QString(fixed(angle, angle_decimals)), QChar(0x00b0),
             QString(fixed(axis_of(rotation), axis_decimals)));
}

} // namespace

QString tracking_text(const Simulator& simulator, const RoomColors& colors)
{
    const Controller& controller = simulator.controller;
    if (!controller.is_tracking())
        return lamp(colors.quiet, "idle");
    if (!simulator.world.tools.empty() && controller.is_measuring(simulator.world.held))
        return lamp(colors.good, "measuring");
    return lamp(colors.good, "tracking");
}

QString tip_text(const Simulator& simulator)
{
    const Tool* tool = simulator.world.held_tool();
    if (!tool || !simulator.controller.is_calibrated())
        return "tip: none";
    if (!simulator.controller.is_seen(simulator.world.held))
        return "tip: not seen";
    return "tip " + fixed(simulator.controller.reported(tool->tip), length_decimals) + " mm";
}

QString extra_text(const ExtraTransformation& extra)
{
    return "extra transformation: " + rotation_text(extra.rotation) + ", translation "
           + fixed(extra.translation, length_decimals) + " mm, scale "
           + fixed(extra.scaling, scaling_decimals);
}

} // namespace simulator
