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
constexpr int most_marks_shown = 4;
constexpr double scale_bar = 1000.0; ///< mm

double length(const QPointF& v) { return std::hypot(v.x(), v.y()); }

QRectF square(const QPointF& center, double radius)
{
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
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

/// With the height of the tip above the floor, which a view from above does not show.
QString tool_name(const Simulator& simulator, int index)
{
    const QString name = QString("M%1").arg(index + 1);
    return simulator.controller.is_seen(index)
               ? name
                     + QString(", %1 mm high")
                           .arg(simulator.world.tools[size_t(index)].tip.y, 0, 'f', 0)
               : name + " lost";
}

} // namespace

RoomPainter::RoomPainter(QPainter& painter, const Simulator& simulator, const RoomColors& colors,
                         const QRectF& area, int pointed_at)
    : m_painter(painter), m_simulator(simulator), m_colors(colors), m_area(area),
      m_projection(area), m_placer(area), m_pointed_at(pointed_at)
{
}

void RoomPainter::paint()
{
    m_painter.setRenderHint(QPainter::Antialiasing);
    paint_floor();
    for (int i = 0; i < m_simulator.controller.camera_count(); ++i)
        paint_camera(i);
    paint_object();
    paint_frames();
    paint_stick();
    for (int i = 0; i < m_simulator.controller.tool_count(); ++i)
        paint_tool(i);
    paint_legend();
    paint_labels();
}

void RoomPainter::mark(const QString& text, const QPointF& at, double radius, const QColor& color)
{
    m_placer.block(square(at, radius));
    m_labels.push_back({text, at, radius, color});
}

void RoomPainter::block_outline(const QPolygonF& polygon)
{
    for (int i = 0; i + 1 < polygon.size(); ++i)
        m_placer.block_line(polygon[i], polygon[i + 1]);
}

void RoomPainter::paint_floor()
{
    const QRectF floor = m_projection.floor();
    m_painter.fillRect(m_area, m_colors.background);
    m_painter.fillRect(floor, m_colors.floor);
    m_painter.setPen(QPen(m_colors.grid, 1));
    for (double x = -room_half_width; x <= room_half_width; x += grid_step)
        m_painter.drawLine(m_projection({x, 0, -room_half_depth}),
                           m_projection({x, 0, room_half_depth}));
    for (double z = -room_half_depth; z <= room_half_depth; z += grid_step)
        m_painter.drawLine(m_projection({-room_half_width, 0, z}),
                           m_projection({room_half_width, 0, z}));
    m_painter.setPen(QPen(m_colors.wall, 2));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(floor);
    block_outline(floor);
    m_painter.setPen(m_colors.quiet);
    QRectF text;
    m_painter.drawText(floor.adjusted(0.3 * floor.width(), 6, 0, 0), Qt::AlignLeft | Qt::AlignTop,
                       "rear wall", &text);
    m_placer.block(text);
}

void RoomPainter::paint_camera(int index)
{
    const Pose& pose = m_simulator.world.cameras[index];
    const QPointF at = m_projection(pose.position);
    const Vec3 view = pose.rotation.column(2);
    const QColor color =
        m_simulator.controller.has_room(index) ? m_colors.camera : m_colors.blind_camera;
    m_painter.save();
    m_painter.translate(at);
    m_painter.rotate(std::atan2(view.z, view.x) * 180.0 / std::acos(-1.0));
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(color);
    m_painter.drawRoundedRect(QRectF(-camera_size, -6, 13, 12), 2, 2);
    m_painter.drawPolygon(QPolygonF({QPointF(1, 0), QPointF(11, -7), QPointF(11, 7)}));
    m_painter.restore();
    if (m_simulator.controller.camera_count() <= max_labelled_cameras)
        mark(QString("c%1").arg(index + 1, 2, 10, QChar('0')), at, camera_size, color);
}

void RoomPainter::paint_frames()
{
    const Controller& controller = m_simulator.controller;
    if (!controller.is_calibrated())
        return;
    const Pose T_world_room = inverse(controller.room());
    paint_frame(T_world_room.position, T_world_room.rotation, m_colors.calibrated, QString());
    if (!changes_something(controller.extra()))
        return;
    const Mat3 back = transpose(controller.extra().rotation);
    const Vec3 origin_in_room = -1.0 * (back * controller.extra().translation);
    paint_frame(T_world_room * origin_in_room, T_world_room.rotation * back, m_colors.adjusted,
                "'");
}

void RoomPainter::paint_frame(const Vec3& origin, const Mat3& axes, const QColor& color,
                              const QString& mark)
{
    static const char* const names[] = {"x", "y", "z"};
    for (int i = 0; i < 3; ++i)
        paint_axis(origin, axes.column(i), color, names[i] + mark);
}

void RoomPainter::paint_axis(const Vec3& origin, const Vec3& direction, const QColor& color,
                             const QString& name)
{
    const QPointF from = m_projection(origin);
    const QPointF to = m_projection(origin + axis_length * direction);
    if (length(to - from) > 2 * arrow_head) {
        paint_arrow(from, to, color);
        mark(name, to, 1.0, color);
        return;
    }
    m_painter.setPen(QPen(color, 2));
    m_painter.setBrush(m_colors.floor);
    m_painter.drawEllipse(from, upright_radius, upright_radius);
    // An axis that comes towards the viewer shows as a dot, one that goes away as a cross.
    if (direction.y > 0) {
        m_painter.setBrush(color);
        m_painter.drawEllipse(from, 1.0, 1.0);
    } else {
        const double half = upright_radius * 0.7;
        m_painter.drawLine(from + QPointF(-half, -half), from + QPointF(half, half));
        m_painter.drawLine(from + QPointF(-half, half), from + QPointF(half, -half));
    }
    mark(name, from, upright_radius, color);
}

void RoomPainter::paint_arrow(const QPointF& from, const QPointF& to, const QColor& color)
{
    const QPointF along = (to - from) / length(to - from);
    const QPointF across(-along.y(), along.x());
    const QPointF foot = to - arrow_head * along;
    m_painter.setPen(QPen(color, 2));
    m_painter.drawLine(from, foot);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(color);
    m_painter.drawPolygon(
        QPolygonF({to, foot + 0.5 * arrow_head * across, foot - 0.5 * arrow_head * across}));
    m_placer.block_line(from, to);
}

void RoomPainter::paint_object()
{
    QPolygonF points;
    for (size_t i = 0; i < m_simulator.world.points.size(); ++i)
        points << m_projection(m_simulator.world.object_point(int(i)));
    m_painter.setPen(QPen(m_colors.object, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setBrush(m_colors.object_fill);
    m_painter.drawPolygon(hull(points));
    block_outline(hull(points));
    for (int i = 0; i < points.size(); ++i)
        paint_point(i, points[i]);
}

/// A measured point is filled and tells the places of its measurements in their order, so that a
/// wrong touch can be found in the table of measured points.
void RoomPainter::paint_point(int index, const QPointF& at)
{
    QString name = QString::number(index + 1);
    const QString marks = marks_of(index);
    const bool measured = !marks.isEmpty();
    const QColor& color = measured ? m_colors.measured : m_colors.object;
    const double radius = index == m_pointed_at ? 1.4 * point_radius : point_radius;
    m_painter.setPen(QPen(color, 1.5));
    m_painter.setBrush(measured || index == m_pointed_at ? color : m_colors.floor);
    m_painter.drawEllipse(at, radius, radius);
    mark(measured ? name + " (" + marks + ')' : name, at, point_radius, color);
}

/// Such as "#2 #5", counted from 1; empty for a point that has not been measured.
QString RoomPainter::marks_of(int point) const
{
    QStringList marks;
    const std::vector<int>& measured = m_simulator.world.measured;
    for (size_t i = 0; i < measured.size(); ++i)
        if (measured[i] == point)
            marks << '#' + QString::number(i + 1);
    return marks.size() <= most_marks_shown
               ? marks.join(' ')
               : marks.mid(0, most_marks_shown - 1).join(' ') + " ... " + marks.last();
}

void RoomPainter::paint_stick()
{
    const QPointF at = m_projection(m_simulator.world.stick.position);
    const auto& pressed = m_simulator.world.stick.pressed;
    const bool is_pressed = std::find(pressed.begin(), pressed.end(), true) != pressed.end();
    m_painter.setPen(QPen(m_colors.stick, 2));
    m_painter.setBrush(is_pressed ? m_colors.stick : m_colors.floor);
    m_painter.drawRoundedRect(square(at, stick_radius), 2, 2);
    mark("stick", at, stick_radius, m_colors.stick);
}

void RoomPainter::paint_tool(int index)
{
    const bool held = index == m_simulator.world.held;
    const bool seen = m_simulator.controller.is_seen(index);
    const QPointF at = m_projection(m_simulator.world.tools[index].tip);
    const double radius = held ? held_radius : resting_radius;
    const QColor color = held ? m_colors.held : m_colors.quiet;
    m_painter.setPen(QPen(color, 2, seen ? Qt::SolidLine : Qt::DotLine));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawEllipse(at, radius, radius);
    if (held) {
        m_painter.drawLine(at - QPointF(1.6 * radius, 0), at + QPointF(1.6 * radius, 0));
        m_painter.drawLine(at - QPointF(0, 1.6 * radius), at + QPointF(0, 1.6 * radius));
    }
    if (m_simulator.controller.is_measuring(index))
        paint_measuring_ring(at, index);
    mark(tool_name(m_simulator, index), at, 1.6 * radius, color);
}

void RoomPainter::paint_measuring_ring(const QPointF& at, int index)
{
    const Controller::ToolState& state = m_simulator.controller.tool(index);
    const double left = state.frames_to_measure / (state.duration * frame_rate);
    constexpr int full_circle = 16 * 360; // QPainter counts sixteenths of a degree
    m_painter.setPen(QPen(m_colors.grid, 3));
    m_painter.drawEllipse(square(at, ring_radius));
    m_painter.setPen(QPen(m_colors.good, 3));
    m_painter.drawArc(square(at, ring_radius), full_circle / 4,
                      -int(full_circle * (1.0 - std::min(left, 1.0))));
}

void RoomPainter::paint_legend()
{
    const bool calibrated = m_simulator.controller.is_calibrated();
    const bool adjusted = calibrated && changes_something(m_simulator.controller.extra());
    if (calibrated)
        paint_legend_entry(0, m_colors.calibrated,
                           "x y z  calibrated room, " + m_simulator.controller.coordinate_type());
    else
        paint_legend_entry(0, m_colors.held, "no room calibration");
    if (adjusted)
        paint_legend_entry(1, m_colors.adjusted, "x' y' z'  adjusted room");

    const QPointF left = m_projection.floor().bottomRight()
                         - QPointF(legend_inset + m_projection.pixels(scale_bar), legend_inset);
    const QPointF right = left + QPointF(m_projection.pixels(scale_bar), 0);
    m_painter.setPen(QPen(m_colors.quiet, 2));
    m_painter.drawLine(left, right);
    m_painter.drawText(QRectF(left - QPointF(0, 20), right), Qt::AlignHCenter | Qt::AlignTop,
                       "1 m");
    m_placer.block(QRectF(left - QPointF(0, 20), right));
}

void RoomPainter::paint_legend_entry(double row, const QColor& color, const QString& text)
{
    const QPointF at =
        m_projection.floor().bottomLeft() + QPointF(legend_inset, -legend_inset - row * legend_row);
    m_painter.setPen(color);
    m_painter.drawText(at, text);
    const double width = m_painter.fontMetrics().horizontalAdvance(text);
    m_placer.block(QRectF(at.x(), at.y() - legend_row, width, legend_row));
}

void RoomPainter::paint_labels()
{
    for (const Label& label : m_labels) {
        const QSizeF size = m_painter.fontMetrics().size(Qt::TextSingleLine, label.text);
        const QRectF place = m_placer.place(label.anchor, size, label.marker_radius);
        const QPointF way = place.center() - label.anchor;
        const double reach = label.marker_radius + size.width() / 2 + leader_length;
        m_painter.setPen(QPen(m_colors.quiet, 1));
        if (length(way) > reach)
            m_painter.drawLine(label.anchor + way * (label.marker_radius / length(way)),
                               place.center() - way * (0.5 * size.height() / length(way)));
        m_painter.setPen(label.color);
        m_painter.drawText(place, Qt::AlignCenter, label.text);
    }
}

} // namespace simulator
