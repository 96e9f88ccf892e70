#include "SourceFiles/abcGLCanvas.h"

#include "matching/abcmatchingdialog.h"

#include <QMenu>
#include <QMouseEvent>
#include <QWheelEvent>

#include <GL/glu.h>

#include <algorithm>
#include <cmath>

namespace {

const double start_distance = 300.0; // mm
const double least_distance = 900.0; // mm
const double margin_around_room = 1.1;
const double pi = 3.141592653589793;

// A wheel reports eighths of a degree and turns 15 degrees from notch to notch.
const int wheel_units_per_degree = 8;
const int degrees_per_notch = 15;

const double label_offset = -10.0; // these two are multiples of the room's scale factor
const double point_radius = 2.0;
const int point_slices = 4;
const int point_stacks = 2;
const int label_font_size = 10;
const int label_font_weight = 75;

const int tip_slices = 32;
const int tip_stacks = 32;

bsQuaternion quaternionFromAngles(double x, double y, double z)
{
    return bsQuaternion(x, bsVector(1, 0, 0)) * bsQuaternion(y, bsVector(0, 1, 0)) *
           bsQuaternion(z, bsVector(0, 0, 1));
}

int wheelDelta(const QWheelEvent* event)
{
#if QT_VERSION >= 0x050000
    return event->angleDelta().y();
#else
    return event->delta();
#endif
}

double lengthOf(const bsVector& v)
{
    return std::sqrt(bsVector::dotProduct(v, v));
}

bsMatrix currentModelView()
{
    double elements[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, elements);
    return bsMatrix(elements);
}

void drawTipCylinder(GLUquadric* quadric, double base, double top, double height)
{
    glTranslated(0.0, 0.0, -height);
    gluCylinder(quadric, base, top, height, tip_slices, tip_stacks);
}

} // namespace

AbcGLCanvas::AbcGLCanvas(QWidget* parent, AbcMatchingDialog* matching_dialog_)
    : QGLWidget(parent),
      room(nullptr),
      matching_dialog(matching_dialog_),
      use_tip(false),
      tip_seen(false),
      tip_matrix(bsMatrix::getIdentityMatrix()),
      tip_list(0),
      view_mode(abcViewNone),
      tip_enabled(false),
      last_x(0),
      last_y(0),
      field_of_view(45.0),
      near_plane(1.0),
      far_plane(100000.0),
      view_width(0),
      view_height(0),
      menu(nullptr)
{
    room.setParent(this);
    setFocusPolicy(Qt::StrongFocus);
    view.position.setValues(0.0, 0.0, -start_distance);
    saved_view = view;
    connect(&room, SIGNAL(roomModified(bool)), this, SIGNAL(roomModified(bool)));
}

AbcGLCanvas::~AbcGLCanvas() {}

bool AbcGLCanvas::loadRoom(RoomAdjustmentData* data)
{
    const bool was_loaded = room.load(data);
    emitUndoRedo();
    updateGL();
    return was_loaded;
}

void AbcGLCanvas::unloadRoom()
{
    room.initialize();
    emitUndoRedo();
    updateGL();
}

void AbcGLCanvas::saveRoom(RoomAdjustmentData* data, bool only_cumulated)
{
    room.save(data, only_cumulated);
}

void AbcGLCanvas::setRoomScaleFactor(double factor)
{
    room.setScaleFactor(factor);
    updateGL();
}

double AbcGLCanvas::getRoomScaleFactor()
{
    return room.getScaleFactor();
}

bool AbcGLCanvas::isRoomLoaded()
{
    return room.loaded;
}

bool AbcGLCanvas::isRoomModified()
{
    return room.modified;
}

const bsMatrix& AbcGLCanvas::getRoomTransformation()
{
    return room.getCumulatedTransformation();
}

const bsVector& AbcGLCanvas::getViewPosition()
{
    return view.position;
}

void AbcGLCanvas::setViewMode(abcViewMode mode)
{
    view_mode = mode;
}

void AbcGLCanvas::set_menu(QMenu* menu_)
{
    menu = menu_;
}

void AbcGLCanvas::setUseTip(bool use)
{
    use_tip = use;
}

void AbcGLCanvas::setTipSeen(bool seen)
{
    tip_seen = seen;
}

void AbcGLCanvas::setTipPos(const bsVector& position)
{
    tip_position = position;
}

void AbcGLCanvas::setTipMatrix(const bsMatrix& matrix)
{
    tip_matrix = matrix;
}

bool AbcGLCanvas::checkSetParallelAxes()
{
    return false;
}

void AbcGLCanvas::saveCurrentView()
{
    saved_view = view;
}

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

void AbcGLCanvas::showLongAxes(bool showLongAxes)
{
    room.long_axes = showLongAxes;
    updateGL();
}

void AbcGLCanvas::setLongAxesFactor(double longAxesFactor)
{
    room.long_axes_factor = longAxesFactor;
    updateGL();
}

void AbcGLCanvas::showXYGrid(bool showXY)
{
    room.xy_grid_on = showXY;
    updateGL();
}

void AbcGLCanvas::showYZGrid(bool showYZ)
{
    room.yz_grid_on = showYZ;
    updateGL();
}

void AbcGLCanvas::showXZGrid(bool showXZ)
{
    room.xz_grid_on = showXZ;
    updateGL();
}

void AbcGLCanvas::setXYGridColor(QColor& XYColor)
{
    room.xy_grid_color = XYColor;
    updateGL();
}

void AbcGLCanvas::setYZGridColor(QColor& XYColor)
{
    room.yz_grid_color = XYColor;
    updateGL();
}

void AbcGLCanvas::setXZGridColor(QColor& XYColor)
{
    room.xz_grid_color = XYColor;
    updateGL();
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

void AbcGLCanvas::undo()
{
    undoRoom();
    updateGL();
}

void AbcGLCanvas::redo()
{
    redoRoom();
    updateGL();
}

void AbcGLCanvas::rotateRoom(double x, double y, double z)
{
    room.frame.orientation = quaternionFromAngles(x, y, z);
    updateGL();
}

void AbcGLCanvas::rotateRoom(const bsMatrix& m)
{
    room.frame.orientation.fromMatrix(m);
    updateGL();
}

void AbcGLCanvas::setRoomOrientation(const bsMatrix& m)
{
    bsMatrix inverse;
    room.getCumulatedTransformation().fastInvert(inverse);
    room.frame.orientation = bsQuaternion().fromMatrix(inverse) * bsQuaternion().fromMatrix(m);
    updateGL();
}

void AbcGLCanvas::setRoomPosition(const bsVector& v)
{
    bsMatrix inverse;
    room.getCumulatedTransformation().fastInvert(inverse);
    room.frame.position = inverse * v;
    updateGL();
}

void AbcGLCanvas::translateRoom(double x, double y, double z)
{
    room.frame.position.setValues(x, y, z);
    updateGL();
}

void AbcGLCanvas::saveCurrentRoom()
{
    transformView(room.frame.toMatrix()); // before store, which resets the frame
    if (room.store())
        emitUndoRedo();
    updateGL();
}

void AbcGLCanvas::undoRoom()
{
    moveByStore(&abcRoom::undo);
}

void AbcGLCanvas::redoRoom()
{
    moveByStore(&abcRoom::redo);
}

void AbcGLCanvas::mousePressEvent(QMouseEvent* event)
{
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    if (event->button() == Qt::RightButton) {
        if (ctrl)
            setViewMode(abcViewRotate);
        else
            menu->exec(event->globalPos());
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
    if (!(event->modifiers() & Qt::ControlModifier))
        return;
    const int notches = wheelDelta(event) / wheel_units_per_degree / degrees_per_notch;
    translateView(0.0, 0.0, notches * getRoomScaleFactor());
    emit storeViewRequest();
    updateGL();
}

void AbcGLCanvas::initializeGL()
{
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glClearDepth(1.0);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glEnable(GL_LIGHT0);
    glEnable(GL_LIGHTING);
}

void AbcGLCanvas::resizeGL(int width, int height)
{
    view_width = width;
    view_height = height == 0 ? 1 : height;
    glViewport(0, 0, view_width, view_height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(field_of_view, static_cast<double>(view_width) / view_height, near_plane,
                   far_plane);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    updateGL();
}

void AbcGLCanvas::paintGL()
{
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glPushMatrix();
    glMultMatrixd(view.toMatrix());
    room.draw();
    glPopMatrix();
    glFlush();
}

void AbcGLCanvas::emitUndoRedo()
{
    emit canUndo(!room.undo_list.isEmpty());
    emit canRedo(!room.redo_list.isEmpty());
}

// The view moves by what the stored movement changes, so that the picture stays.
void AbcGLCanvas::moveByStore(void (abcRoom::*step)())
{
    bsMatrix before_inverse;
    room.getCumulatedTransformation().fastInvert(before_inverse);
    (room.*step)();
    emitUndoRedo();
    transformView(before_inverse * room.getCumulatedTransformation());
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

void AbcGLCanvas::drawPoints()
{
    if (!matching_dialog)
        return;
    GLUquadric* const quadric = gluNewQuadric();
    gluQuadricDrawStyle(quadric, GLU_FILL);
    const double s = getRoomScaleFactor();
    bsMatrix spheres = currentModelView();
    bsMatrix labels = bsMatrix().translation(label_offset * s, label_offset * s, 0.0) * spheres;
    if (matching_dialog->checkApplyTrafo()) {
        spheres *= matching_dialog->getTransformationMatrix();
        labels *= matching_dialog->getTransformationMatrix();
    }
    glLineWidth(1.0f);
    glPointSize(3.0f);
    glPushMatrix();
    for (unsigned int i = 0; i < matching_dialog->getRPCount(); ++i) {
        const bsVector& point = matching_dialog->getRP(i);
        glColor3ub(255, matching_dialog->isRPSelected(static_cast<int>(i)) ? 255 : 100, 0);
        glEnable(GL_LIGHTING);
        glLoadMatrixd(spheres);
        glTranslated(point.x, point.y, point.z);
        gluSphere(quadric, point_radius * s, point_slices, point_stacks);
        glDisable(GL_LIGHTING);
        glLoadMatrixd(labels);
        drawPointNumber(static_cast<int>(i) + 1, point);
    }
    glPopMatrix();
    gluDeleteQuadric(quadric);
}

void AbcGLCanvas::drawPointNumber(int number, const bsVector& point)
{
    renderText(point.x, point.y, point.z, QString::number(number),
               QFont("Times", label_font_size, label_font_weight));
}

void AbcGLCanvas::drawTip()
{
    if (!tip_enabled || !tip_seen)
        return;
    glPushMatrix();
    glTranslated(tip_position.x, tip_position.y, tip_position.z);
    glMultMatrixd(tip_matrix);
    if (tip_list != 0)
        glCallList(tip_list);
    else
        buildTipList();
    glPopMatrix();
}

// Point, needle, collar and handle, one behind the other along -z.
void AbcGLCanvas::buildTipList()
{
    tip_list = glGenLists(1);
    glNewList(tip_list, GL_COMPILE_AND_EXECUTE);
    glEnable(GL_LIGHTING);
    glColor3ub(200, 200, 200);
    GLUquadric* const quadric = gluNewQuadric();
    drawTipCylinder(quadric, 1.0, 0.0, 3.0);
    drawTipCylinder(quadric, 1.0, 1.0, 23.0);
    glColor3ub(75, 75, 75);
    drawTipCylinder(quadric, 5.0, 2.0, 5.0);
    drawTipCylinder(quadric, 5.0, 5.0, 175.0);
    gluDeleteQuadric(quadric);
    glEndList();
}
