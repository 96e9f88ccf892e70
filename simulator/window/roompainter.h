// Paints the room from above: walls, cameras, coordinate systems, object, tools, stick.
#ifndef SIMULATOR_WINDOW_ROOMPAINTER_H
#define SIMULATOR_WINDOW_ROOMPAINTER_H

#include "simulator/window/labelplacer.h"
#include "simulator/window/roomcolors.h"
#include "simulator/window/roomprojection.h"

#include <QColor>
#include <QPainter>
#include <QPolygonF>
#include <QString>
#include <vector>

namespace simulator
{

class Simulator;

/// One painter paints one picture.
class RoomPainter
{
public:
    /// `pointed_at` is the object's point, from 0, that a click or Space would touch; -1 for none.
    /// All that is handed over must outlive the painter.
    RoomPainter(QPainter& painter, const Simulator& simulator, const RoomColors& colors,
                const QRectF& area, int pointed_at);

    void paint();

    static constexpr double point_radius = 6.0; ///< pixels

private:
    struct Label
    {
        QString text;
        QPointF anchor;
        double marker_radius;
        QColor color;
    };

    void paint_floor();
    void paint_camera(int index);
    void paint_frames();
    void paint_frame(const Vec3& origin, const Mat3& axes, const QColor& color,
                     const QString& mark);
    void paint_axis(const Vec3& origin, const Vec3& direction, const QColor& color,
                    const QString& name);
    void paint_arrow(const QPointF& from, const QPointF& to, const QColor& color);
    void paint_object();
    void paint_point(int index, const QPointF& at);
    QString marks_of(int point) const;
    void paint_stick();
    void paint_tool(int index);
    void paint_measuring_ring(const QPointF& at, int index);
    void paint_legend();
    void paint_legend_entry(double row, const QColor& color, const QString& text);
    void paint_labels();
    void block_outline(const QPolygonF& polygon);
    void mark(const QString& text, const QPointF& at, double radius, const QColor& color);

    QPainter& m_painter;
    const Simulator& m_simulator;
    const RoomColors& m_colors;
    QRectF m_area;
    RoomProjection m_projection;
    LabelPlacer m_placer;
    std::vector<Label> m_labels;
    int m_pointed_at;
};

} // namespace simulator

#endif
