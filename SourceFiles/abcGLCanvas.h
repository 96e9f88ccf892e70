// The 3D view of the fine adjustment: shows the room, turns mouse and wheel into view movements.
#ifndef SOURCEFILES_ABCGLCANVAS_H
#define SOURCEFILES_ABCGLCANVAS_H

#include "SourceFiles/abcRoom.h"
#include "src/bsFrame.h"
#include "src/bsMatrix.h"
#include "src/bsVector.h"

#include <QGLWidget>

class AbcMatchingDialog;
class QMenu;
struct RoomAdjustmentData;

/// What a drag of the mouse does.
enum abcViewMode
{
    abcViewNone = 0,
    abcViewPan = 1,   ///< Ctrl with the left button
    abcViewZoom = 2,  ///< Shift with the left button
    abcViewRotate = 3 ///< Ctrl with the right button, or rotateViewBegin
};

/// Two things move here: the view, by mouse, wheel and the view widgets, and the room, by the
/// numbers of the tab. Only the room stands for the adjustment. View movements are relative to
/// the view saved last and not to the call before; room movements replace the one before.
///
/// Lengths are mm, angles degrees. Whatever changes the picture repaints before it returns,
/// unless it says otherwise.
class AbcGLCanvas : public QGLWidget
{
    Q_OBJECT

public:
    /// The dialog whose reference points drawPoints shows; not owned, may be null.
    AbcGLCanvas(QWidget* parent, AbcMatchingDialog* matching_dialog_);
    ~AbcGLCanvas();

    /// Both forget the undo and redo lists.
    bool loadRoom(RoomAdjustmentData* data);
    void unloadRoom();
    /// See abcRoom::save.
    void saveRoom(RoomAdjustmentData* data, bool only_cumulated);

    void setRoomScaleFactor(double factor);
    double getRoomScaleFactor();
    bool isRoomLoaded();
    bool isRoomModified();
    /// The product of all movements stored since loading.
    const bsMatrix& getRoomTransformation();
    const bsVector& getViewPosition();
    void setViewMode(abcViewMode mode);
    /// The context menu. It must be set before the first click of the right button.
    void set_menu(QMenu* menu_);

    void setUseTip(bool use);
    void setTipSeen(bool seen);
    void setTipPos(const bsVector& position);
    void setTipMatrix(const bsMatrix& matrix);
    /// These two draw at once and need the context current; painting does not call them.
    void drawTip();
    void drawPoints();

    bool checkSetParallelAxes();

signals:
    void translateViewRequest(double x, double y, double z);
    void rotateViewRequest(double x, double y, double z);
    /// A movement of the view is complete: whoever moves it starts again from zero.
    void storeViewRequest();
    void canUndo(bool enableUndo);
    void canRedo(bool enableRedo);
    void canSetAxisToMarkers(bool enableSetAxisToMarkers);
    void canSetParallelAxes(bool enableSetParallelAxes);
    void roomModified(bool roomModified);
    void canUndoRoom(bool enableUndo);
    void canRedoRoom(bool enableRedo);

public slots:
    /// Makes the view of this moment the base of view movements.
    void saveCurrentView();
    /// About the eye's axes, on top of the saved orientation.
    void rotateView(double x, double y, double z);
    void setViewOrientation(const bsMatrix& m);
    void translateView(double x, double y, double z);
    void setViewPosition(const bsVector& position);
    /// Multiplies m to the view from the right and saves the view. Does not repaint.
    void transformView(const bsMatrix& m);

    void showLongAxes(bool showLongAxes);
    void setLongAxesFactor(double longAxesFactor);
    void showXYGrid(bool showXY);
    void showYZGrid(bool showYZ);
    void showXZGrid(bool showXZ);
    void setXYGridColor(QColor& XYColor);
    void setYZGridColor(QColor& XYColor);
    void setXZGridColor(QColor& XYColor);

    void rotateViewBegin();
    void rotateViewEnd();

    /// Distance in mm from which both frames can be seen; 900 at least, and without a room.
    double getBestZValue();

    void undo();
    void redo();

    void rotateRoom(double x, double y, double z);
    void rotateRoom(const bsMatrix& m);
    /// These two take their argument in coordinates before the stored movements.
    void setRoomOrientation(const bsMatrix& m);
    void setRoomPosition(const bsVector& v);
    void translateRoom(double x, double y, double z);
    /// Stores the movement of the room. The view takes it over, so that the picture stays.
    void saveCurrentRoom();
    /// These two take the view along and do not repaint.
    void undoRoom();
    void redoRoom();

protected:
    void mousePressEvent(QMouseEvent* event);
    void mouseReleaseEvent(QMouseEvent* event);
    void mouseMoveEvent(QMouseEvent* event);
    void wheelEvent(QWheelEvent* event);
    void initializeGL();
    void resizeGL(int width, int height);
    void paintGL();

    abcRoom room;
    AbcMatchingDialog* matching_dialog;
    bool use_tip;
    bool tip_seen;
    bsVector tip_position;
    bsMatrix tip_matrix;
    unsigned int tip_list; ///< display list of the tool tip; 0 until it is built
    bsFrame view;          ///< the room as the eye sees it, that is the inverse of the camera
    bsFrame saved_view;
    abcViewMode view_mode;
    bool tip_enabled; ///< nothing sets it; while false there is no tip
    int last_x;       ///< of the mouse
    int last_y;
    double field_of_view; ///< vertical, in degrees
    double near_plane;
    double far_plane;
    int view_width; ///< pixels, as last given to resizeGL
    int view_height;
    QMenu* menu;

private:
    static bsQuaternion quaternionFromAngles(double x, double y, double z);
    void emitUndoRedo();
    void moveByStore(void (abcRoom::*step)());
    void dragTo(int dx, int dy);
    void drawPointNumber(int number, const bsVector& point);
    void buildTipList();
};

#endif
