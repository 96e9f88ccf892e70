// The room coordinate system under adjustment: its stored and unstored movement, and its picture.
#ifndef SOURCEFILES_ABCROOM_H
#define SOURCEFILES_ABCROOM_H

#include "src/bsFrame.h"
#include "src/bsMatrix.h"
#include "src/bsVector.h"

#include <QColor>
#include <QList>
#include <QObject>

class QGLWidget;
struct RoomAdjustmentData;

/// Model and painter in one. Shows the transformed frame "T", which follows the edit, against the
/// origin frame "O", the room without extra transformation. What the transformed frame has moved
/// from the origin frame's point of view is loaded_inverse * cumulated * frame. All lengths are
/// mm. The members are open to the canvas that owns the room, which sets the display members
/// directly and repaints.
class abcRoom : public QObject
{
    Q_OBJECT

public:
    /// The parent renders the labels; without one the room can do everything but draw.
    explicit abcRoom(QGLWidget* parent);

    /// Unloads: forgets the record, all movements and both lists, and keeps the display members.
    void initialize();

    /// Takes the rotation and translation of the record; its scaling is not looked at. Always
    /// true.
    bool load(RoomAdjustmentData* data);

    /// Writes rotation and translation; the scaling is left alone, and what is not stored is not
    /// saved. With only_cumulated that is the inverse of the stored movement, otherwise
    /// loaded_inverse * cumulated as it stands: not what was loaded, but its inverse.
    void save(RoomAdjustmentData* data, bool only_cumulated);

    /// Moves the unstored movement into cumulated and empties the redo list. False, and nothing
    /// changes, if there is none of 1e-7 or more.
    bool store();

    /// One stored movement back or forth; frame stays. Nothing happens if the list is empty.
    void undo();
    void redo();

    void setLoaded(bool value);
    void setModified(bool value);

    double getScaleFactor() { return scale_factor; }
    void setScaleFactor(double factor) { scale_factor = factor; }

    const bsMatrix& getCumulatedTransformation() { return cumulated; }

    /// Where the origin frame stands in the coordinates of the transformed frame.
    bsVector getOriginFramePosition();

    /// These need the OpenGL context of the parent current. An unloaded room draws nothing.
    void draw();
    void drawTransformedFrame();
    void drawOriginFrame();
    void drawGrids();

    bsMatrix loaded_inverse; ///< inverse of the transformation of the record
    bsMatrix cumulated;      ///< product of all movements stored since loading
    bsMatrix last_stored;    ///< cumulated as of the last change of the store
    bsFrame frame;           ///< the movement not yet stored
    QList<bsMatrix> undo_list;
    QList<bsMatrix> redo_list; ///< newest last, as in undo_list
    int undo_limit;            ///< greatest length of undo_list; 0 is no limit
    bool modified;
    bool loaded;

    double scale_factor; ///< all sizes of the frames are multiples of it
    bool long_axes;
    double long_axes_factor;
    bool xy_grid_on;
    bool yz_grid_on;
    bool xz_grid_on;
    double grid_size; ///< half the width of a grid, before the scale factor
    double grid_step; ///< distance of the lines, not scaled
    QColor xy_grid_color;
    QColor yz_grid_color;
    QColor xz_grid_color;

signals:
    void roomModified(bool modified);
    void roomLoaded(bool loaded);

private:
    /// Takes coordinates of the transformed frame to coordinates of the origin frame.
    bsMatrix originFromTransformed() const;
    void restoreLast(QList<bsMatrix>& from, QList<bsMatrix>& to);
    void resetFrame();
    void drawLabel(const QString& text, double x, double y);
    void drawGridInPlane(const QColor& color);
};

#endif
