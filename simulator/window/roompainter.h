// Paints the room from above: walls, cameras, coordinate systems, object, tools, stick.
#ifndef SIMULATOR_WINDOW_ROOMPAINTER_H
#define SIMULATOR_WINDOW_ROOMPAINTER_H

#include "simulator/window/labelplacer.h"
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
    /// `hovered` is the object's point under the mouse, from 0; -1 for none.
    RoomPainter(QPainter& painter, const Simulator& simulator, const QRectF& area, int hovered);

    void paint();

    static constexpr double point_radius = 6.0; ///< pixels

private:
    struct Label
    {
        QString text;
        QPointF anchor;
        double marker_radius;
        QColor colour;
    };

    void paint_floor();
    void paint_camera(int index);
    void paint_frames();
    void paint_frame(const Vec3& origin, const Mat3& axes, const QColor& colour,
                     const QString& mark);
    void paint_axis(const Vec3& origin, const Vec3& direction, const QColor& colour,
                    const QString& name);
    void paint_arrow(const QPointF& from, const QPointF& to, const QColor& colour);
    void paint_object();
    void paint_stick();
    void paint_tool(int index);
    void paint_measuring_ring(const QPointF& at, int index);
    void paint_legend();
    void paint_legend_entry(double row, const QColor& colour, const QString& text);
    void paint_labels();
    void block_outline(const QPolygonF& polygon);
    void mark(const QString& text, const QPointF& at, double radius, const QColor& colour);

    QPainter& m_painter;
    const Simulator& m_simulator;
    QRectF m_area;
    RoomProjection m_projection;
    LabelPlacer m_placer;
    std::vector<Label> m_labels;
    int m_hovered;
};

} // namespace simulator

#endif
