// Draws all images of the module into the folder given as the only argument.
// Build the target draw_images and run it with QT_QPA_PLATFORM=offscreen; needs the DejaVu fonts.
// One file, because it is a list of drawings that share a few strokes and no logic.

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QVector>

#include <array>
#include <cmath>
#include <cstdio>
#include <functional>

namespace
{

using Points = QVector<QPointF>; // corners of a polygon

constexpr double pi = 3.14159265358979323846;

const QColor ink(58, 66, 80);
const QColor faint(150, 162, 180);
const QColor accent(232, 120, 16);
const QColor card_border(196, 202, 212);
const QColor axis_x(205, 30, 30);
const QColor axis_y(20, 150, 40);
const QColor axis_z(35, 70, 210);

QImage image(int width, int height, const std::function<void(QPainter&)>& draw)
{
    QImage canvas(width, height, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return canvas;
}

QFont font(int pixels, bool bold = false, const char* family = "DejaVu Sans")
{
    QFont result(family);
    result.setPixelSize(pixels);
    result.setBold(bold);
    return result;
}

void draw_text(QPainter& p, QPointF center, const QString& text, const QFont& f, QColor color)
{
    p.setFont(f);
    p.setPen(color);
    p.drawText(QRectF(center.x() - 100, center.y() - 50, 200, 100), Qt::AlignCenter, text);
}

QPointF polar(double degrees, double radius)
{
    return {radius * std::cos(degrees * pi / 180), -radius * std::sin(degrees * pi / 180)};
}

// Head whose tip lies at `tip`, pointing the way `degrees` says, counted as on paper.
void draw_head(QPainter& p, QPointF tip, double degrees, double length, QColor color)
{
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawPolygon(
        Points{tip, tip + polar(degrees + 155, length), tip + polar(degrees - 155, length)});
}

void draw_arrow(QPainter& p, QPointF from, QPointF to, double width, double head, QColor color)
{
    const QLineF line(from, to);
    p.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(from, line.pointAt(1 - 0.8 * head / line.length()));
    draw_head(p, to, line.angle(), head, color);
}

void draw_card(QPainter& p, int width, int height)
{
    p.setPen(QPen(card_border, 1));
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(0.5, 0.5, width - 1, height - 1), 6, 6);
}

// Isometric cube around `center`; `edge` in pixels.
void draw_cube(QPainter& p, QPointF center, double edge)
{
    const QColor faces[] = {QColor(188, 207, 236), QColor(126, 158, 208), QColor(84, 118, 178)};
    for (int i = 0; i < 3; ++i) {
        p.setPen(QPen(QColor(44, 66, 110), 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(faces[i]);
        const double start = 30 + 120 * i;
        p.drawPolygon(Points{center, center + polar(start, edge), center + polar(start + 60, edge),
                             center + polar(start + 120, edge)});
    }
}

void draw_ghost_cube(QPainter& p, QPointF center, double edge)
{
    p.setPen(QPen(faint, 1.2, Qt::DashLine));
    p.setBrush(Qt::NoBrush);
    Points outline;
    for (int corner = 0; corner < 6; ++corner)
        outline << center + polar(30 + 60 * corner, edge);
    p.drawPolygon(outline);
    for (int corner = 0; corner < 3; ++corner)
        p.drawLine(center, center + polar(30 + 120 * corner, edge));
}

// The pictures of the coarse tab's sketch: 206 by 206, the axes are drawn on top of them.

constexpr int sketch_size = 206;
constexpr int sketch_white_row = 200;
constexpr double sketch_bar = 5;

void draw_sky(QPainter& p)
{
    p.setRenderHint(QPainter::Antialiasing, false);
    for (int row = 0; row < sketch_size; ++row) {
        const double part = std::min(1.0, double(row) / sketch_white_row);
        const auto mix = [part](int dark) { return qRound(dark + part * (255 - dark)); };
        p.fillRect(0, row, sketch_size, 1, QColor(mix(53), mix(72), mix(116)));
    }
    p.setRenderHint(QPainter::Antialiasing);
}

void draw_sketch_bars(QPainter& p, const Points& corners)
{
    p.setPen(QPen(Qt::black, sketch_bar, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    p.drawPolyline(corners);
}

void draw_normal(QPainter& p)
{
    draw_sky(p);
    draw_sketch_bars(p, {{190, 106.5}, {105.5, 106.5}, {127.5, 84.5}});
}

void draw_powerwall_standing(QPainter& p)
{
    draw_sky(p);
    draw_sketch_bars(p, {{10, 102.5}, {103, 102.5}, {103, 52}});
}

void draw_mid_camera(QPainter& p)
{
    draw_sky(p);
    p.fillRect(QRect(6, 88, sketch_size - 12, 25), QColor(87, 85, 84));
}

// Status lamps, 19 by 19.

void draw_lamp(QPainter& p, QColor color)
{
    const QRectF bowl(1.5, 1.5, 16, 16);
    QRadialGradient glass(QPointF(9.5, 10.5), 9, QPointF(7.5, 7));
    glass.setColorAt(0, color.lighter(165));
    glass.setColorAt(0.55, color);
    glass.setColorAt(1, color.darker(150));
    p.setPen(QPen(color.darker(230), 1.2));
    p.setBrush(glass);
    p.drawEllipse(bowl);
    QLinearGradient shine(0, 3, 0, 9);
    shine.setColorAt(0, QColor(255, 255, 255, 210));
    shine.setColorAt(1, QColor(255, 255, 255, 10));
    p.setPen(Qt::NoPen);
    p.setBrush(shine);
    p.drawEllipse(QRectF(5, 3, 9, 6));
}

// Padlock, 48 by 48; strong strokes, because it is shown at 16 by 16 as well.

void draw_lock(QPainter& p)
{
    QPainterPath shackle;
    shackle.moveTo(14.5, 26);
    shackle.lineTo(14.5, 15);
    shackle.arcTo(QRectF(14.5, 5.5, 19, 19), 180, -180);
    shackle.lineTo(33.5, 26);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(60, 64, 72), 7, Qt::SolidLine, Qt::FlatCap));
    p.drawPath(shackle);
    p.setPen(QPen(QColor(168, 174, 184), 3.6, Qt::SolidLine, Qt::FlatCap));
    p.drawPath(shackle);

    QLinearGradient brass(0, 22, 0, 45);
    brass.setColorAt(0, QColor(255, 214, 92));
    brass.setColorAt(1, QColor(222, 146, 20));
    p.setPen(QPen(QColor(120, 76, 8), 1.6));
    p.setBrush(brass);
    p.drawRoundedRect(QRectF(7, 21.5, 34, 24), 4, 4);

    p.setPen(Qt::NoPen);
    p.setBrush(QColor(78, 48, 4));
    p.drawEllipse(QPointF(24, 31), 3.8, 3.8);
    p.drawPolygon(Points{{22.6, 32}, {25.4, 32}, {27, 40}, {21, 40}});
}

// Mouse gestures, 180 by 135: key and mouse on the left, what they move on the right.

constexpr int gesture_width = 180;
constexpr int gesture_height = 135;

enum class MousePart
{
    Left,
    Right,
    Wheel
};

void draw_key(QPainter& p, const QRectF& cap, const QString& text)
{
    QLinearGradient top(cap.topLeft(), cap.bottomLeft());
    top.setColorAt(0, Qt::white);
    top.setColorAt(1, QColor(222, 227, 235));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(120, 130, 146));
    p.drawRoundedRect(cap.translated(0, 3), 5, 5);
    p.setPen(QPen(ink, 1.4));
    p.setBrush(top);
    p.drawRoundedRect(cap, 5, 5);
    draw_text(p, cap.center(), text, font(13, true), ink);
}

void draw_mouse(QPainter& p, const QRectF& body, MousePart pressed)
{
    const QPointF middle(body.center().x(), body.top() + 0.42 * body.height());
    const QRectF buttons(body.topLeft(), QPointF(body.right(), middle.y()));
    QPainterPath outline;
    outline.addRoundedRect(body, body.width() / 2, body.width() / 2);
    p.fillPath(outline, QColor(244, 246, 249));
    if (pressed != MousePart::Wheel) {
        QRectF half = buttons;
        half.setWidth(half.width() / 2);
        if (pressed == MousePart::Right)
            half.moveRight(buttons.right());
        QPainterPath button;
        button.addRect(half);
        p.fillPath(outline.intersected(button), accent);
    }
    p.setPen(QPen(ink, 1.8));
    p.setBrush(Qt::NoBrush);
    p.drawPath(outline);
    p.drawLine(buttons.bottomLeft(), buttons.bottomRight());
    p.drawLine(QPointF(middle.x(), body.top()), middle);

    const QSizeF wheel = pressed == MousePart::Wheel ? QSizeF(9, 17) : QSizeF(6, 12);
    QRectF wheel_area(QPointF(), wheel);
    wheel_area.moveCenter(QPointF(middle.x(), body.top() + 0.23 * body.height()));
    p.setPen(QPen(ink, 1.5));
    p.setBrush(pressed == MousePart::Wheel ? accent : QColor(Qt::white));
    p.drawRoundedRect(wheel_area, wheel.width() / 2, wheel.width() / 2);
}

void draw_gesture_hand(QPainter& p, MousePart pressed)
{
    draw_card(p, gesture_width, gesture_height);
    draw_key(p, QRectF(9, 46, 42, 27), "Ctrl");
    draw_text(p, {59, 60}, "+", font(16, true), ink);
    draw_mouse(p, QRectF(67, 31, 37, 58), pressed);
}

// Four arrows: the mouse may go any way while the button is held down.
void draw_drag_cross(QPainter& p, QPointF center)
{
    for (int degrees = 0; degrees < 360; degrees += 90)
        draw_arrow(p, center + polar(degrees, 2), center + polar(degrees, 14), 2, 7, ink);
}

void draw_panning(QPainter& p)
{
    draw_gesture_hand(p, MousePart::Left);
    draw_drag_cross(p, {85.5, 110});
    draw_ghost_cube(p, {128, 98}, 17);
    draw_cube(p, {155, 38}, 17);
    draw_arrow(p, {133.5, 85}, {147.5, 55}, 3, 11, accent);
}

// Arc of an ellipse with a head at its end, from `start` over `span` degrees.
void draw_arc_arrow(QPainter& p, const QRectF& ellipse, double start, double span)
{
    QPainterPath arc;
    arc.arcMoveTo(ellipse, start);
    arc.arcTo(ellipse, start, span);
    p.setPen(QPen(accent, 3, Qt::SolidLine, Qt::FlatCap));
    p.setBrush(Qt::NoBrush);
    p.drawPath(arc);
    const double before_end = arc.angleAtPercent(0.96);
    draw_head(p, arc.currentPosition() + polar(before_end, 7), before_end, 11, accent);
}

void draw_rotation(QPainter& p)
{
    draw_gesture_hand(p, MousePart::Right);
    draw_drag_cross(p, {85.5, 110});
    const QRectF orbit(113, 56, 58, 26);
    p.setPen(QPen(faint, 1.6));
    p.setBrush(Qt::NoBrush);
    p.drawArc(orbit, 20 * 16, 140 * 16);
    draw_cube(p, {142, 65}, 23);
    draw_arc_arrow(p, orbit, 165, 178);
}

void draw_zooming(QPainter& p)
{
    draw_gesture_hand(p, MousePart::Wheel);
    draw_arrow(p, {85.5, 27}, {85.5, 11}, 2, 8, ink);
    draw_arrow(p, {85.5, 96}, {85.5, 112}, 2, 8, ink);
    draw_cube(p, {142, 24}, 11);
    draw_arrow(p, {142, 54}, {142, 40}, 3, 10, accent);
    draw_arrow(p, {142, 52}, {142, 67}, 3, 10, accent);
    draw_cube(p, {142, 98}, 26);
}

// Two frames and an object, for the help of the matching dialog.
// The drawing is laid out on 460 by 220 and shrunk, so that the help fits on a small screen.

constexpr double frames_scale = 0.72;
constexpr int frames_width = 331;
constexpr int frames_height = 158;

using Point3 = std::array<double, 3>;

Point3 along(const Point3& from, const Point3& direction, double length)
{
    return {from[0] + length * direction[0], from[1] + length * direction[1],
            from[2] + length * direction[2]};
}

// Oblique view: x to the right, z up, y half as long into the depth.
QPointF on_paper(const Point3& point)
{
    return {point[0] + 0.45 * point[1], 200 - point[2] - 0.32 * point[1]};
}

struct Frame3
{
    Point3 origin, x, y, z;
};

// A frame at `origin` turned by `yaw` about z, then by `pitch` about its own y.
Frame3 turned_frame(const Point3& origin, double yaw, double pitch)
{
    const double cy = std::cos(yaw), sy = std::sin(yaw), cp = std::cos(pitch), sp = std::sin(pitch);
    return {origin, {cy * cp, sy * cp, -sp}, {-sy, cy, 0}, {cy * sp, sy * sp, cp}};
}

void draw_frame(QPainter& p, const Frame3& frame, double length)
{
    const struct
    {
        Point3 direction;
        const char* name;
        QColor color;
        QPointF from_tip_to_name;
    } axes[] = {{frame.y, "y", axis_y, {-9, -10}},
                {frame.x, "x", axis_x, {18, 0}},
                {frame.z, "z", axis_z, {0, -16}}};
    const QPointF origin = on_paper(frame.origin);
    for (const auto& axis : axes) {
        const QPointF tip = on_paper(along(frame.origin, axis.direction, length));
        draw_arrow(p, origin, tip, 2.6, 11, axis.color);
        draw_text(p, tip + axis.from_tip_to_name, axis.name, font(16, true), axis.color);
    }
    p.setPen(Qt::NoPen);
    p.setBrush(ink);
    p.drawEllipse(origin, 3.5, 3.5);
}

void draw_name_of_frame(QPainter& p, QPointF center, const char* name)
{
    p.setPen(Qt::NoPen);
    p.setBrush(ink);
    p.drawEllipse(center, 14, 14);
    draw_text(p, center, name, font(18, true), Qt::white);
}

constexpr double object_length = 150, object_depth = 110, object_height = 62;

Point3 corner(const Frame3& frame, double x, double y, double z)
{
    return along(along(along(frame.origin, frame.x, x * object_length), frame.y, y * object_depth),
                 frame.z, z * object_height);
}

void draw_object(QPainter& p, const Frame3& frame)
{
    const auto at = [&frame](double x, double y, double z) {
        return on_paper(corner(frame, x, y, z));
    };
    const struct
    {
        Points outline;
        QColor color;
    } faces[] = {
        {{at(0, 0, 0), at(1, 0, 0), at(1, 0, 1), at(0, 0, 1)}, QColor(214, 222, 234)},
        {{at(1, 0, 0), at(1, 1, 0), at(1, 1, 1), at(1, 0, 1)}, QColor(178, 190, 208)},
        {{at(0, 0, 1), at(1, 0, 1), at(1, 1, 1), at(0, 1, 1)}, QColor(235, 239, 246)},
    };
    p.setPen(QPen(QColor(112, 124, 144), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const auto& face : faces) {
        p.setBrush(face.color);
        p.drawPolygon(face.outline);
    }
    const QPointF points[] = {at(1, 0, 1), at(1, 1, 1), at(0, 1, 1), at(1, 0, 0)};
    for (int i = 0; i < 4; ++i) {
        p.setPen(QPen(Qt::white, 1.2));
        p.setBrush(accent);
        p.drawEllipse(points[i], 9, 9);
        draw_text(p, points[i], QString::number(i + 1), font(13, true), Qt::white);
    }
}

// A camera that looks to the lower right.
void draw_camera(QPainter& p, QPointF center)
{
    p.save();
    p.translate(center);
    p.rotate(14);
    QLinearGradient view(14, 0, 190, 0);
    view.setColorAt(0, QColor(126, 158, 208, 110));
    view.setColorAt(1, QColor(126, 158, 208, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(view);
    p.drawPolygon(Points{{16, 0}, {190, -52}, {190, 52}});
    p.setBrush(ink);
    p.drawRoundedRect(QRectF(-16, -10, 26, 20), 3, 3);
    p.drawPolygon(Points{{8, -4}, {17, -9}, {17, 9}, {8, 4}});
    p.restore();
}

void draw_transformation(QPainter& p)
{
    draw_card(p, frames_width, frames_height);
    p.scale(frames_scale, frames_scale);
    draw_camera(p, {34, 28});
    const Frame3 initial = turned_frame({70, 0, 12}, 0, 0);
    const Frame3 object = turned_frame({262, 0, 24}, 0.15, -0.12);
    Frame3 target = object;
    target.origin = corner(object, 0, 0, 1);
    draw_object(p, object);
    draw_frame(p, initial, 68);
    draw_frame(p, target, 68);

    QPainterPath way(QPointF(118, 170));
    way.quadTo(QPointF(184, 164), QPointF(226, 128));
    p.setPen(QPen(accent, 3, Qt::DashLine, Qt::FlatCap));
    p.setBrush(Qt::NoBrush);
    p.drawPath(way);
    draw_head(p, {238, 118}, 40, 14, accent);
    draw_name_of_frame(p, {50, 196}, "O");
    draw_name_of_frame(p, {231, 94}, "T");
}

// A reference-point file, as an editor shows it.

void draw_ref_point_format(QPainter& p)
{
    const int width = 236, height = 102, title = 20, line = 18;
    draw_card(p, width, height);
    QPainterPath card, bar;
    card.addRoundedRect(QRectF(0.5, 0.5, width - 1, height - 1), 6, 6);
    bar.addRect(0, 0, width, title);
    p.fillPath(card.intersected(bar), QColor(226, 231, 239));
    draw_text(p, {width / 2.0, title / 2.0}, "points.txt", font(11), ink);
    p.setPen(QPen(card_border, 1));
    p.drawLine(QPointF(1, title + 0.5), QPointF(width - 1, title + 0.5));
    p.setBrush(Qt::NoBrush);
    p.drawPath(card);

    const char* const rows[][4] = {{"1", "0.00", "0.00", "0.00"},
                                   {"2", "250.00", "0.00", "0.00"},
                                   {"3", "250.00", "180.50", "0.00"},
                                   {"4", "0.00", "180.50", "-42.25"}};
    const int right_edges[] = {20, 88, 156, 224};
    p.setFont(font(13, false, "DejaVu Sans Mono"));
    p.setPen(Qt::black);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            p.drawText(QRectF(right_edges[column] - 80, title + 5 + row * line, 80, line),
                       Qt::AlignRight | Qt::AlignVCenter, rows[row][column]);
}

bool save(const QDir& folder, const char* name, const QImage& picture)
{
    if (picture.save(folder.filePath(name)))
        return true;
    std::fprintf(stderr, "cannot write %s\n", qPrintable(folder.filePath(name)));
    return false;
}

bool draw_all(const QDir& folder)
{
    const auto lamp = [](QColor color) {
        return image(19, 19, [color](QPainter& p) { draw_lamp(p, color); });
    };
    const auto sketch = [](void (*draw)(QPainter&)) {
        return image(sketch_size, sketch_size, draw).convertToFormat(QImage::Format_RGB32);
    };
    const auto gesture = [](void (*draw)(QPainter&)) {
        return image(gesture_width, gesture_height, draw);
    };
    return save(folder, "background.png", sketch(draw_sky))
           && save(folder, "normal.png", sketch(draw_normal))
           && save(folder, "powerwall_standing.png", sketch(draw_powerwall_standing))
           && save(folder, "mid_camera.png", sketch(draw_mid_camera))
           && save(folder, "grey.png", lamp(QColor(150, 150, 150)))
           && save(folder, "green.png", lamp(QColor(40, 180, 50)))
           && save(folder, "red.png", lamp(QColor(215, 40, 35)))
           && save(folder, "lock.png", image(48, 48, draw_lock))
           && save(folder, "panning.png", gesture(draw_panning))
           && save(folder, "rotation.png", gesture(draw_rotation))
           && save(folder, "zooming.png", gesture(draw_zooming))
           && save(folder, "transformation.png",
                   image(frames_width, frames_height, draw_transformation))
           && save(folder, "ref_point_format.png", image(236, 102, draw_ref_point_format));
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    return draw_all(QDir(QFile::decodeName(argv[1]))) ? 0 : 1;
}
