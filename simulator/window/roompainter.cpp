#include "simulator/window/roompainter.h"

#include "simulator/model/simulator.h"

#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace simulator
{

namespace
{

const QColor background_colour("#f4f5f7");
const QColor floor_colour("#ffffff");
const QColor grid_colour("#e9ecf0");
const QColor wall_colour("#8a94a3");
const QColor text_colour("#28303b");
const QColor quiet_colour("#7b8594");
const QColor camera_colour("#3d4a5c");
const QColor blind_colour("#c3c9d2");
const QColor calibrated_colour("#4a78c2");
const QColor adjusted_colour("#d9731a");
const QColor object_colour("#2f8f6b");
const QColor object_fill(47, 143, 107, 38);
const QColor held_colour("#b3264a");
const QColor measuring_colour("#1f9e4b");
const QColor ring_colour("#c5e6d0");
const QColor stick_colour("#7a4fb5");

constexpr double grid_step = 500.0;   ///< mm
constexpr double axis_length = 420.0; ///< mm
constexpr double camera_size = 10.0;  ///< pixels, as the radii below
constexpr double held_radius = 8.0;
constexpr double resting_radius = 5.0;
constexpr double stick_radius = 6.0;
constexpr double ring_radius = 14.0;
constexpr double arrow_head = 8.0;
constexpr double upright_radius = 5.0;
constexpr int max_labelled_cameras = 40;
constexpr double leader_length = 14.0; ///< from here on a line leads from marker to label
constexpr double legend_row = 18.0;
constexpr double legend_inset = 14.0;
constexpr double scale_bar = 1000.0; ///< mm

double length(const QPointF& v) { return std::hypot(v.x(), v.y()); }

QRectF square(const QPointF& centre, double radius)
{
    return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
}

double turn(const QPointF& a, const QPointF& b, const QPointF& c)
{
    return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
}

void extend_chain(QPolygonF& chain, int fixed, const QPointF& point)
{
    while (chain.size() >= fixed + 2
           && turn(chain[chain.size() - 2], chain[chain.size() - 1], point) <= 0)
        chain.removeLast();
    chain << point;
}

/// Convex hull: lower chain from left to right, then upper chain back.
QPolygonF hull(QPolygonF points)
{
    std::sort(points.begin(), points.end(), [](const QPointF& a, const QPointF& b) {
        return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
    });
    QPolygonF chain;
    for (const QPointF& point : points)
        extend_chain(chain, 0, point);
    const int lower = chain.size() - 1;
    std::reverse(points.begin(), points.end());
    for (const QPointF& point : points)
        extend_chain(chain, lower, point);
    return chain;
}

bool changes_something(const ExtraTransformation& extra)
{
    const Vec3& t = extra.translation;
    return extra.rotation.columns != Mat3().columns || extra.scaling != 1.0 || t.x != 0.0
           || t.y != 0.0 || t.z != 0.0;
}

} // namespace

RoomPainter::RoomPainter(QPainter& the_painter, const Simulator& the_simulator,
                         const QRectF& the_area, int the_hovered)
    : painter(the_painter), simulator(the_simulator), area(the_area), projection(the_area),
      placer(the_area), hovered(the_hovered)
{
}

void RoomPainter::paint()
{
    painter.setRenderHint(QPainter::Antialiasing);
    paint_floor();
    for (int i = 0; i < simulator.controller.camera_count(); ++i)
        paint_camera(i);
    paint_object();
    paint_frames();
    paint_stick();
    for (int i = 0; i < simulator.controller.tool_count(); ++i)
        paint_tool(i);
    paint_legend();
    paint_labels();
}

void RoomPainter::mark(const QString& text, const QPointF& at, double radius, const QColor& colour)
{
    placer.block(square(at, radius));
    labels.push_back({text, at, radius, colour});
}

void RoomPainter::block_outline(const QPolygonF& polygon)
{
    for (int i = 0; i + 1 < polygon.size(); ++i)
        placer.block_line(polygon[i], polygon[i + 1]);
}

void RoomPainter::paint_floor()
{
    const QRectF floor = projection.floor();
    painter.fillRect(area, background_colour);
    painter.fillRect(floor, floor_colour);
    painter.setPen(QPen(grid_colour, 1));
    for (double x = -room_half_width; x <= room_half_width; x += grid_step)
        painter.drawLine(projection({x, 0, -room_half_depth}), projection({x, 0, room_half_depth}));
    for (double z = -room_half_depth; z <= room_half_depth; z += grid_step)
        painter.drawLine(projection({-room_half_width, 0, z}), projection({room_half_width, 0, z}));
    painter.setPen(QPen(wall_colour, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(floor);
    block_outline(floor);
    painter.setPen(quiet_colour);
    QRectF text;
    painter.drawText(floor.adjusted(0.3 * floor.width(), 6, 0, 0), Qt::AlignLeft | Qt::AlignTop,
                     "rear wall", &text);
    placer.block(text);
}

void RoomPainter::paint_camera(int index)
{
    const Pose& pose = simulator.world.cameras[index];
    const QPointF at = projection(pose.position);
    const Vec3 view = pose.rotation.column(2);
    const QColor colour = simulator.controller.has_room(index) ? camera_colour : blind_colour;
    painter.save();
    painter.translate(at);
    painter.rotate(std::atan2(view.z, view.x) * 180.0 / std::acos(-1.0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(-camera_size, -6, 13, 12), 2, 2);
    painter.drawPolygon(QPolygonF({QPointF(1, 0), QPointF(11, -7), QPointF(11, 7)}));
    painter.restore();
    if (simulator.controller.camera_count() <= max_labelled_cameras)
        mark(QString("c%1").arg(index + 1, 2, 10, QChar('0')), at, camera_size, colour);
}

void RoomPainter::paint_frames()
{
    const Controller& controller = simulator.controller;
    if (!controller.is_calibrated())
        return;
    const Pose T_world_room = inverse(controller.room());
    paint_frame(T_world_room.position, T_world_room.rotation, calibrated_colour, QString());
    if (!changes_something(controller.extra()))
        return;
    const Mat3 back = transpose(controller.extra().rotation);
    const Vec3 origin_in_room = -1.0 * (back * controller.extra().translation);
    paint_frame(T_world_room * origin_in_room, T_world_room.rotation * back, adjusted_colour, "'");
}

void RoomPainter::paint_frame(const Vec3& origin, const Mat3& axes, const QColor& colour,
                              const QString& mark)
{
    static const char* const names[] = {"x", "y", "z"};
    for (int i = 0; i < 3; ++i)
        paint_axis(origin, axes.column(i), colour, names[i] + mark);
}

void RoomPainter::paint_axis(const Vec3& origin, const Vec3& direction, const QColor& colour,
                             const QString& name)
{
    const QPointF from = projection(origin);
    const QPointF to = projection(origin + axis_length * direction);
    if (length(to - from) > 2 * arrow_head) {
        paint_arrow(from, to, colour);
        mark(name, to, 1.0, colour);
        return;
    }
    painter.setPen(QPen(colour, 2));
    painter.setBrush(floor_colour);
    painter.drawEllipse(from, upright_radius, upright_radius);
    if (direction.y > 0) { // the arrow's point, or its feathers
        painter.setBrush(colour);
        painter.drawEllipse(from, 1.0, 1.0);
    } else {
        const double half = upright_radius * 0.7;
        painter.drawLine(from + QPointF(-half, -half), from + QPointF(half, half));
        painter.drawLine(from + QPointF(-half, half), from + QPointF(half, -half));
    }
    mark(name, from, upright_radius, colour);
}

void RoomPainter::paint_arrow(const QPointF& from, const QPointF& to, const QColor& colour)
{
    const QPointF along = (to - from) / length(to - from);
    const QPointF across(-along.y(), along.x());
    const QPointF foot = to - arrow_head * along;
    painter.setPen(QPen(colour, 2));
    painter.drawLine(from, foot);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(
        QPolygonF({to, foot + 0.5 * arrow_head * across, foot - 0.5 * arrow_head * across}));
    placer.block_line(from, to);
}

void RoomPainter::paint_object()
{
    QPolygonF points;
    for (size_t i = 0; i < simulator.world.points.size(); ++i)
        points << projection(simulator.world.object_point(int(i)));
    painter.setPen(QPen(object_colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(object_fill);
    painter.drawPolygon(hull(points));
    block_outline(hull(points));
    for (int i = 0; i < points.size(); ++i) {
        const double radius = i == hovered ? 1.4 * point_radius : point_radius;
        painter.setBrush(i == hovered ? object_colour : floor_colour);
        painter.drawEllipse(points[i], radius, radius);
        mark(QString::number(i + 1), points[i], point_radius, object_colour.darker(130));
    }
}

void RoomPainter::paint_stick()
{
    const QPointF at = projection(simulator.world.stick.position);
    const auto& pressed = simulator.world.stick.pressed;
    const bool is_pressed = std::find(pressed.begin(), pressed.end(), true) != pressed.end();
    painter.setPen(QPen(stick_colour, 2));
    painter.setBrush(is_pressed ? stick_colour : floor_colour);
    painter.drawRoundedRect(square(at, stick_radius), 2, 2);
    mark("stick", at, stick_radius, stick_colour);
}

void RoomPainter::paint_tool(int index)
{
    const bool held = index == simulator.world.held;
    const bool seen = simulator.controller.is_seen(index);
    const QPointF at = projection(simulator.world.tools[index].tip);
    const double radius = held ? held_radius : resting_radius;
    const QColor colour = held ? held_colour : quiet_colour;
    painter.setPen(QPen(colour, 2, seen ? Qt::SolidLine : Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, radius, radius);
    if (held) {
        painter.drawLine(at - QPointF(1.6 * radius, 0), at + QPointF(1.6 * radius, 0));
        painter.drawLine(at - QPointF(0, 1.6 * radius), at + QPointF(0, 1.6 * radius));
    }
    if (simulator.controller.is_measuring(index))
        paint_measuring_ring(at, index);
    mark(QString("M%1").arg(index + 1) + (seen ? "" : " lost"), at, 1.6 * radius, colour);
}

void RoomPainter::paint_measuring_ring(const QPointF& at, int index)
{
    const Controller::ToolState& state = simulator.controller.tool(index);
    const double left = state.frames_to_measure / (state.duration * frame_rate);
    constexpr int full_circle = 16 * 360; // QPainter counts sixteenths of a degree
    painter.setPen(QPen(ring_colour, 3));
    painter.drawEllipse(square(at, ring_radius));
    painter.setPen(QPen(measuring_colour, 3));
    painter.drawArc(square(at, ring_radius), full_circle / 4,
                    -int(full_circle * (1.0 - std::min(left, 1.0))));
}

void RoomPainter::paint_legend()
{
    const bool calibrated = simulator.controller.is_calibrated();
    const bool adjusted = calibrated && changes_something(simulator.controller.extra());
    if (calibrated)
        paint_legend_entry(0, calibrated_colour,
                           "x y z  calibrated room, " + simulator.controller.coordinate_type());
    else
        paint_legend_entry(0, held_colour, "no room calibration");
    if (adjusted)
        paint_legend_entry(1, adjusted_colour, "x' y' z'  adjusted room");

    const QPointF left = projection.floor().bottomRight()
                         - QPointF(legend_inset + projection.pixels(scale_bar), legend_inset);
    const QPointF right = left + QPointF(projection.pixels(scale_bar), 0);
    painter.setPen(QPen(quiet_colour, 2));
    painter.drawLine(left, right);
    painter.drawText(QRectF(left - QPointF(0, 20), right), Qt::AlignHCenter | Qt::AlignTop, "1 m");
    placer.block(QRectF(left - QPointF(0, 20), right));
}

void RoomPainter::paint_legend_entry(double row, const QColor& colour, const QString& text)
{
    const QPointF at =
        projection.floor().bottomLeft() + QPointF(legend_inset, -legend_inset - row * legend_row);
    painter.setPen(colour);
    painter.drawText(at, text);
    const double width = painter.fontMetrics().horizontalAdvance(text);
    placer.block(QRectF(at.x(), at.y() - legend_row, width, legend_row));
}

void RoomPainter::paint_labels()
{
    for (const Label& label : labels) {
        const QSizeF size = painter.fontMetrics().size(Qt::TextSingleLine, label.text);
        const QRectF place = placer.place(label.anchor, size, label.marker_radius);
        const QPointF way = place.center() - label.anchor;
        const double reach = label.marker_radius + size.width() / 2 + leader_length;
        painter.setPen(QPen(quiet_colour, 1));
        if (length(way) > reach)
            painter.drawLine(label.anchor + way * (label.marker_radius / length(way)),
                             place.center() - way * (0.5 * size.height() / length(way)));
        painter.setPen(label.colour);
        painter.drawText(place, Qt::AlignCenter, label.text);
    }
}

} // namespace simulator
