#include "coarse/renderarea.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace
{

const char* picture_of(int coord_type)
{
    switch (coord_type) {
    case calibration_normal:
    case calibration_powerwall: // has no picture of its own
        return ":/normal.png";
    case calibration_powerwall_standing:
        return ":/powerwall_standing.png";
    case calibration_mid_camera:
        return ":/mid_camera.png";
    default:
        return ":/background.png";
    }
}

} // namespace

RenderArea::RenderArea(int size, QWidget* parent)
    : QLabel(parent), coord_type(-1), current_axis(), size(size)
{
    pixmap.load(QLatin1String(picture_of(coord_type)));
    compute_lines(pixmap.width());
}

// Half axes start in the centre and end `straight_gap` or, towards the corners, `corner_gap` pixels
// before the edge; out points to the lower left corner, in to the upper right one. One table, long
// because each line stands on its own.
void RenderArea::compute_lines(int width)
{
    const int straight_gap = 10, corner_gap = 30;
    const int straight_head = 5, corner_head = 7; // extent of an arrow-head stroke
    const int h = width / 2;
    const int near_edge = straight_gap, far_edge = width - straight_gap;
    const int near_base = near_edge + straight_head, far_base = far_edge - straight_head;
    const int near_corner = corner_gap, far_corner = width - corner_gap;
    const int a = h - straight_head, b = h + straight_head;

    const QLine table[line_count] = {
        QLine(h, h, near_edge, h),
        QLine(h, h, far_edge, h),
        QLine(h, h, h, near_edge),
        QLine(h, h, h, far_edge),
        QLine(h, h, near_corner, far_corner),
        QLine(h, h, far_corner, near_corner),

        QLine(near_edge, h, near_base, a),
        QLine(near_edge, h, near_base, b),
        QLine(far_edge, h, far_base, a),
        QLine(far_edge, h, far_base, b),
        QLine(h, near_edge, a, near_base),
        QLine(h, near_edge, b, near_base),
        QLine(h, far_edge, a, far_base),
        QLine(h, far_edge, b, far_base),
        QLine(near_corner, far_corner, near_corner, far_corner - corner_head),
        QLine(near_corner, far_corner, near_corner + corner_head, far_corner),
        QLine(far_corner, near_corner, far_corner - corner_head, near_corner),
        QLine(far_corner, near_corner, far_corner, near_corner + corner_head),
    };
    std::copy(table, table + line_count, lines);
}

void RenderArea::set_coord_type(int type)
{
    coord_type = type;
    pixmap.load(QLatin1String(picture_of(type)));
}

void RenderArea::set_current_axis(CoordinateAxix axis) { current_axis = axis; }

void RenderArea::adjust_axis_color_and_style(QPainter& painter, int axis_code)
{
    if (!is_axis_code(axis_code))
        return;
    const Qt::GlobalColor colors[] = {Qt::red, Qt::green, Qt::blue};
    const double width = 2.0;
    painter.setPen(QPen(QBrush(colors[axis_code / 2]), width,
                        is_positive_axis(axis_code) ? Qt::SolidLine : Qt::DotLine, Qt::SquareCap,
                        Qt::BevelJoin));
}

void RenderArea::draw_direction(QPainter& painter, int direction, int axis_code)
{
    adjust_axis_color_and_style(painter, axis_code);
    painter.drawLine(lines[direction]);
    if (is_positive_axis(axis_code))
        painter.drawLines(&lines[direction_count + 2 * direction], 2);
}

void RenderArea::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(event->rect(), QBrush(Qt::white));
    const QRect square(0, 0, size, size);
    painter.drawPixmap(square, pixmap, square);
    if (coord_type == calibration_none || coord_type < 0)
        return;

    painter.setPen(QPen());
    const int codes[direction_count] = {current_axis.left, current_axis.right, current_axis.up,
                                        current_axis.down, current_axis.out,   current_axis.in};
    for (int direction = 0; direction < direction_count; ++direction)
        draw_direction(painter, direction, codes[direction]);
}
