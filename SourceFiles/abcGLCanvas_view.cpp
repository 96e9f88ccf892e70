// From where one looks at the room: movements of the view, by calls, mouse and wheel.
#include "SourceFiles/abcGLCanvas.h"

#include "platform/wheeldelta.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double least_distance = 900.0; // mm
constexpr double margin_around_room = 1.1;
constexpr double pi = 3.141592653589793;

// A wheel reports eighths of a degree and turns 15 degrees from notch to notch.
constexpr int wheel_units_per_degree = 8;
constexpr int degrees_per_notch = 15;

double lengthOf(const bsVector& v) { return std::sqrt(bsVector::dotProduct(v, v)); }

} // namespace

bsQuaternion AbcGLCanvas::quaternionFromAngles(double x, double y, double z)
{
    return bsQuaternion(x, bsVector(1, 0, 0)) * bsQuaternion(y, bsVector(0, 1, 0))
           * bsQuaternion(z, bsVector(0, 0, 1));
}

const bsVector& AbcGLCanvas::getViewPosition() { return view.position; }

void AbcGLCanvas::setViewMode(abcViewMode mode) { view_mode = mode; }

void AbcGLCanvas::saveCurrentView() { saved_view = view; }

void AbcGLCanvas::rotateView(double x, double y, double z)
{
    view.orientation = quaternionFromAngles(x, y, z) * saved_view.orientation;
    updateGL();
}

void AbcGLCanvas::setViewOrientation(const bsMatrix& m)
{
    view.orientation.fromMatrix(m);
    saveCurrentView();
    updateGL();
}

void AbcGLCanvas::translateView(double x, double y, double z)
{
    view.position = saved_view.position + bsVector(x, y, z);
    updateGL();
}

void AbcGLCanvas::setViewPosition(const bsVector& position)
{
    view.position = position;
    saveCurrentView();
    updateGL();
}

void AbcGLCanvas::transformView(const bsMatrix& m)
{
    const bsMatrix moved = view.toMatrix() * m;
    view.orientation.fromMatrix(moved);
    view.position = moved.getColumn(3);
    saveCurrentView();
}

void AbcGLCanvas::rotateViewBegin()
{
    setViewMode(abcViewRotate);
    updateGL();
}

void AbcGLCanvas::rotateViewEnd()
{
    setViewMode(abcViewNone);
    updateGL();
}

double AbcGLCanvas::getBestZValue()
{
    if (!room.loaded)
        return least_distance;
    double farthest = lengthOf(room.getOriginFramePosition());
    if (tip_enabled && use_tip && tip_seen) {
        bsMatrix inverse;
        room.getCumulatedTransformation().fastInvert(inverse);
        farthest = std::max(farthest, lengthOf(inverse * tip_position));
    }
    const float half_angle = static_cast<float>(field_of_view / 180.0 * pi * 0.5);
    const double across = farthest / std::fabs(std::sin(half_angle)) * margin_around_room;
    const double along = view_height * across / view_width;
    // Before the first resize along is NaN; both comparisons let it through to the least distance.
    const double distance = across > along ? across : along;
    return distance > least_distance ? distance : least_distance;
}

void AbcGLCanvas::mousePressEvent(QMouseEvent* event)
{
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    if (event->button() == Qt::RightButton) {
        const QPointer<AbcGLCanvas> self(this);
        if (ctrl)
            setViewMode(abcViewRotate);
        else
            menu->exec(event->globalPos());
        if (!self)
            return;
    } else if (event->button() == Qt::LeftButton) {
        if (ctrl)
            setViewMode(abcViewPan);
        else if (event->modifiers() & Qt::ShiftModifier)
            setViewMode(abcViewZoom);
    }
    last_x = event->x();
    last_y = event->y();
    updateGL();
}

void AbcGLCanvas::mouseReleaseEvent(QMouseEvent*)
{
    if (view_mode == abcViewNone)
        return;
    setViewMode(abcViewNone);
    emit storeViewRequest();
    updateGL();
}

void AbcGLCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (room.loaded && view_mode != abcViewNone) {
        dragTo(event->x() - last_x, event->y() - last_y);
        emit storeViewRequest();
    }
    last_x = event->x();
    last_y = event->y();
}

void AbcGLCanvas::wheelEvent(QWheelEvent* event)
{
    event->accept(); // so that no widget behind the view sees it
    if (!(event->modifiers() & Qt::ControlModifier))
        return;
    const int notches = wheel_delta(event) / wheel_units_per_degree / degrees_per_notch;
    translateView(0.0, 0.0, notches * getRoomScaleFactor());
    emit storeViewRequest();
    updateGL();
}

// Pans and zooms by millimetres that follow the size of the room, rotates by degrees.
void AbcGLCanvas::dragTo(int dx, int dy)
{
    const double s = getRoomScaleFactor();
    if (view_mode == abcViewPan)
        translateView(dx * s, -dy * s, 0.0);
    else if (view_mode == abcViewZoom)
        translateView(0.0, 0.0, dy * s);
    else
        rotateView(dy, dx, 0.0);
}
