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
    AbcGLCanvas(QWidget* parent, AbcMatchingDialog* matching_dialog);
    ~AbcGLCanvas();

    /// Shows rotation and translation of the record, with no movement yet. Always true. This and
    /// unloadRoom() forget the undo and redo lists.
    bool loadRoom(RoomAdjustmentData* data);
    /// Shows nothing but the background.
    void unloadRoom();
    /// See abcRoom::save.
    void saveRoom(RoomAdjustmentData* data, bool only_cumulated);

    /// Millimetres that a pixel of a drag is worth; the frames are drawn in multiples of it.
    void setRoomScaleFactor(double factor);
    double getRoomScaleFactor();
    bool isRoomLoaded();
    /// Whether a movement was stored or taken back since loading.
    bool isRoomModified();
    /// The product of all movements stored since loading.
    const bsMatrix& getRoomTransformation();
    /// Of the room's origin in the eye's coordinates: (0, 0, -300) is 300 mm ahead.
    const bsVector& getViewPosition();
    void setViewMode(abcViewMode mode);
    /// The context menu. It must be set before the first click of the right button.
    void set_menu(QMenu* menu);

    // The tool's tip. Nothing enables it so far: it is not drawn, and getBestZValue ignores it.
    void setUseTip(bool use);
    void setTipSeen(bool seen);
    void setTipPos(const bsVector& position);
    void setTipMatrix(const bsMatrix& matrix);
    /// These two draw at once and need the context current; painting does not call them.
    void drawTip();
    /// The reference points of the matching dialog with their numbers, moved by its transformation
    /// if it has one. Nothing without a dialog.
    void drawPoints();

    /// Always false.
    bool checkSetParallelAxes();

signals:
    // Those without a comment are emitted by nothing; connections to them stay possible.
    void translateViewRequest(double x, double y, double z);
    void rotateViewRequest(double x, double y, double z);
    /// A movement of the view is complete: whoever moves it starts again from zero.
    void storeViewRequest();
    /// Whether there is a movement to take back, or to repeat; after each change of the lists.
    void canUndo(bool enableUndo);
    void canRedo(bool enableRedo);
    void canSetAxisToMarkers(bool enableSetAxisToMarkers);
    void canSetParallelAxes(bool enableSetParallelAxes);
    /// Passed on from the room: a movement was stored or taken back (true), or all forgotten.
    void roomModified(bool roomModified);
    void canUndoRoom(bool enableUndo);
    void canRedoRoom(bool enableRedo);

public slots:
    /// Makes the view of this moment the base of view movements.
    void saveCurrentView();
    /// Turns the saved orientation about the eye's axes: z first, then y, then x.
    void rotateView(double x, double y, double z);
    /// From the rotation of m; saves the view.
    void setViewOrientation(const bsMatrix& m);
    /// Moves from the saved position.
    void translateView(double x, double y, double z);
    /// Saves the view.
    void setViewPosition(const bsVector& position);
    /// Multiplies m to the view from the right and saves the view. Does not repaint.
    void transformView(const bsMatrix& m);

    /// Dashed lines along the axes of the transformed frame.
    void showLongAxes(bool showLongAxes);
    /// Their length as a multiple of the scale factor and of the arrows' length.
    void setLongAxesFactor(double longAxesFactor);
    void showXYGrid(bool showXY);
    void showYZGrid(bool showYZ);
    void showXZGrid(bool showXZ);
    void setXYGridColor(QColor& XYColor);
    void setYZGridColor(QColor& XYColor);
    void setXZGridColor(QColor& XYColor);

    /// From here to rotateViewEnd() moving the mouse rotates the view.
    void rotateViewBegin();
    void rotateViewEnd();

    /// Distance in mm from which both frames can be seen; 900 at least, and without a room.
    double getBestZValue();

    /// As undoRoom() and redoRoom(), with a repaint.
    void undo();
    void redo();

    /// The unstored rotation becomes Rx Ry Rz, or that of m.
    void rotateRoom(double x, double y, double z);
    void rotateRoom(const bsMatrix& m);
    /// These two take their argument in coordinates before the stored movements.
    void setRoomOrientation(const bsMatrix& m);
    void setRoomPosition(const bsVector& v);
    /// The unstored translation.
    void translateRoom(double x, double y, double z);
    /// Stores the movement of the room. The view takes it over, so that the picture stays.
    void saveCurrentRoom();
    /// One stored movement back, or forth again. The view moves with it, so that the picture stays.
    /// Do not repaint.
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
