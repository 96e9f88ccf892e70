#include "host/window/hosticon.h"

#include <QPainter>
#include <QPixmap>

namespace
{

// Drawn on a square of this size, whatever the size of the icon.
constexpr int canvas_size = 32;
constexpr QPointF origin(12.0, 20.0);

void draw_axis(QPainter& painter, const QPointF& tip, const QColor& color)
{
    painter.setPen(QPen(color, 3.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(origin, tip);
    painter.setBrush(color);
    painter.drawEllipse(tip, 1.5, 1.5);
}

QPixmap draw_icon(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(size) / canvas_size, double(size) / canvas_size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 48, 60));
    painter.drawRoundedRect(QRectF(0, 0, canvas_size, canvas_size), 6.0, 6.0);
    draw_axis(painter, {26.0, 22.0}, QColor(230, 70, 60));
    draw_axis(painter, {13.0, 5.0}, QColor(90, 200, 90));
    draw_axis(painter, {5.0, 27.0}, QColor(90, 150, 240));
    return pixmap;
}

} // namespace

QIcon host_icon()
{
    QIcon icon;
    for (int size : {16, 32, 48, 128})
        icon.addPixmap(draw_icon(size));
    return icon;
}
