#include "SourceFiles/abcRoom.h"

#include "SourceFiles/glUtils.h"
#include "SourceFiles/labelfont.h"
#include "controller/roomadjustmentdata.h"

#include <QGLWidget>

namespace
{

constexpr double transformed_axis_length = 30.0; // these sizes are multiples of the scale factor
constexpr double origin_axis_length = 25.0;
constexpr double second_axis_size = 3.0;
constexpr double origin_long_axes_factor = 10.0;
constexpr double label_distance = 5.0;
constexpr double transformed_brightness = 1.0;
constexpr double origin_brightness = 0.4;

void drawFrameAxes(double length, double size, bool long_axes, double factor, double brightness)
{
    double origin[] = {0.0, 0.0, 0.0};
    drawAxes(origin, length, size, long_axes, factor, brightness);
    glDisable(GL_LIGHTING);
}

} // namespace

abcRoom::abcRoom(QGLWidget* parent)
    : QObject(parent), loaded_inverse(bsMatrix::getIdentityMatrix()),
      cumulated(bsMatrix::getIdentityMatrix()), last_stored(bsMatrix::getIdentityMatrix()),
      undo_limit(0), modified(false), loaded(false), scale_factor(5.0), long_axes(false),
      long_axes_factor(10.0), xy_grid_on(false), yz_grid_on(false), xz_grid_on(false),
      grid_size(5000.0), grid_step(100.0), xy_grid_color(255, 255, 0), yz_grid_color(0, 255, 255),
      xz_grid_color(255, 0, 255)
{
    initialize();
}

void abcRoom::initialize()
{
    setLoaded(false);
    setModified(false);
    loaded_inverse.setIdentity();
    resetFrame();
    cumulated.setIdentity();
    last_stored.setIdentity();
    undo_list.clear();
    redo_list.clear();
}

bool abcRoom::load(RoomAdjustmentData* data)
{
    initialize();
    for (int c = 0; c < 3; ++c)
        loaded_inverse.setColumn(c, bsVector(data->rotation + 3 * c), 0.0);
    loaded_inverse.setColumn(3, bsVector(data->translation), 1.0);
    loaded_inverse.fastInvert();
    setLoaded(true);
    return true;
}

void abcRoom::save(RoomAdjustmentData* data, bool only_cumulated)
{
    bsMatrix m = only_cumulated ? cumulated : loaded_inverse * cumulated;
    if (only_cumulated)
        m.fastInvert();
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            data->rotation[3 * c + r] = m(r, c);
        data->translation[r] = m(r, 3);
    }
}

bool abcRoom::store()
{
    const bsMatrix movement = frame.toMatrix();
    if (movement == bsMatrix::getIdentityMatrix() && last_stored == cumulated)
        return false;
    if (undo_limit != 0 && undo_list.size() == undo_limit)
        undo_list.removeFirst();
    undo_list.append(last_stored);
    cumulated *= movement;
    last_stored = cumulated;
    redo_list.clear();
    resetFrame();
    setModified(true);
    return true;
}

void abcRoom::undo() { restoreLast(undo_list, redo_list); }

void abcRoom::redo() { restoreLast(redo_list, undo_list); }

void abcRoom::setLoaded(bool value)
{
    loaded = value;
    emit roomLoaded(loaded);
}

void abcRoom::setModified(bool value)
{
    modified = value;
    emit roomModified(modified);
}

bsVector abcRoom::getOriginFramePosition()
{
    return originFromTransformed().fastInvert().getColumn(3);
}

void abcRoom::draw()
{
    if (!loaded)
        return;
    glPushMatrix();
    glMultMatrixd(frame.toMatrix());
    drawTransformedFrame();
    glMultMatrixd(originFromTransformed().fastInvert());
    drawOriginFrame();
    glPopMatrix();
}

void abcRoom::drawTransformedFrame()
{
    const double s = scale_factor;
    drawFrameAxes(transformed_axis_length * s, second_axis_size * s, long_axes,
                  long_axes_factor * s, transformed_brightness);
    glColor3f(1.0f, 1.0f, 1.0f);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0f, 1.0f);
    drawLabel("T", -label_distance * s, s);
    glDisable(GL_POLYGON_OFFSET_FILL);
    drawGrids();
}

void abcRoom::drawOriginFrame()
{
    const double s = scale_factor;
    drawFrameAxes(origin_axis_length * s, second_axis_size * s, false, origin_long_axes_factor * s,
                  origin_brightness);
    glColor3f(0.4f, 0.4f, 0.4f);
    drawLabel("O", -label_distance * s, -label_distance * s);
}

void abcRoom::drawGrids()
{
    if (xy_grid_on)
        drawGridInPlane(xy_grid_color);
    if (yz_grid_on) {
        glPushMatrix();
        glRotated(90.0, 0.0, 1.0, 0.0);
        drawGridInPlane(yz_grid_color);
        glPopMatrix();
    }
    if (xz_grid_on) {
        glPushMatrix();
        glRotated(90.0, 1.0, 0.0, 0.0);
        drawGridInPlane(xz_grid_color);
        glPopMatrix();
    }
}

bsMatrix abcRoom::originFromTransformed() const
{
    return loaded_inverse * cumulated * frame.toMatrix();
}

void abcRoom::restoreLast(QList<bsMatrix>& from, QList<bsMatrix>& to)
{
    if (from.isEmpty())
        return;
    const bsMatrix restored = from.takeLast();
    to.append(last_stored);
    cumulated = restored;
    last_stored = cumulated;
    setModified(true);
}

void abcRoom::resetFrame()
{
    frame.orientation.fromMatrix(bsMatrix::getIdentityMatrix());
    frame.position = bsMatrix::getIdentityMatrix().getColumn(3);
}

// Qt 4 takes a base for display lists as a last argument, and its default is the right one.
void abcRoom::drawLabel(const QString& text, double x, double y)
{
    QGLWidget* const widget = qobject_cast<QGLWidget*>(parent());
    if (widget)
        widget->renderText(x, y, 0.0, text, label_font());
}

void abcRoom::drawGridInPlane(const QColor& color)
{
    const double half_width = grid_size * scale_factor;
    glColor3ub(color.red(), color.green(), color.blue());
    drawGrid(half_width, half_width, grid_step, grid_step);
}
