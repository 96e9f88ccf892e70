// The sketch of the coarse tab: a picture of the room calibration with the six half axes on it.
#ifndef COARSE_RENDERAREA_H
#define COARSE_RENDERAREA_H

#include "coarse/coordinatecalculator.h"

#include <QLabel>
#include <QLine>
#include <QPixmap>

class QPainter;

/// Each axis is a solid half axis with an arrow head in its positive direction and a dotted one
/// without in the negative direction. The setters only store: what they set is seen with the next
/// paint event, for which the owner asks.
class RenderArea : public QLabel
{
    Q_OBJECT

public:
    /// `size` is the side of the drawn square in pixels. The half axes fit the pictures, not
    /// `size`.
    RenderArea(int size, QWidget* parent);

    /// Any calibration type. Without one (`calibration_none` or negative) no axes are drawn; set
    /// the axes before the first type that draws them.
    void set_coord_type(int type);
    void set_current_axis(CoordinateAxix axis);

    /// Sets the pen of an axis: the axis decides the colour, its sign the style. Any other code
    /// leaves the painter alone.
    void adjust_axis_color_and_style(QPainter& painter, int axis_code);

    void paintEvent(QPaintEvent* event);

private:
    enum
    {
        direction_count = 6, ///< left, right, up, down, out, in
        line_count = 18      ///< a half axis each, then two arrow-head strokes each
    };

    void compute_lines(int width);
    void draw_direction(QPainter& painter, int direction, int axis_code);

    int coord_type;
    CoordinateAxix current_axis;
    QPixmap pixmap;
    int size;
    QLine lines[line_count];
};

#endif
