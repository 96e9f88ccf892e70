// The room in the 3D view, and the painting of it. The view and the input stand in
// abcGLCanvas_view.cpp, points and tool tip in abcGLCanvas_matching.cpp.
#include "SourceFiles/abcGLCanvas.h"

#include <GL/glu.h>

namespace
{

constexpr double start_distance = 300.0; // mm

} // namespace

AbcGLCanvas::AbcGLCanvas(QWidget* parent, AbcMatchingDialog* matching_dialog)
    : QGLWidget(parent), room(nullptr), matching_dialog(matching_dialog), use_tip(false),
      tip_seen(false), tip_matrix(bsMatrix::getIdentityMatrix()), tip_list(0),
      view_mode(abcViewNone), tip_enabled(false), last_x(0), last_y(0), field_of_view(45.0),
      near_plane(1.0), far_plane(100000.0), view_width(0), view_height(0), menu(nullptr)
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

double AbcGLCanvas::getRoomScaleFactor() { return room.getScaleFactor(); }

bool AbcGLCanvas::isRoomLoaded() { return room.loaded; }

bool AbcGLCanvas::isRoomModified() { return room.modified; }

const bsMatrix& AbcGLCanvas::getRoomTransformation() { return room.getCumulatedTransformation(); }

void AbcGLCanvas::set_menu(QMenu* menu) { this->menu = menu; }

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

void AbcGLCanvas::undoRoom() { moveByStore(&abcRoom::undo); }

void AbcGLCanvas::redoRoom() { moveByStore(&abcRoom::redo); }

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
