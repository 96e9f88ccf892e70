// The fine adjustment tab: seven numbers beside a 3D view. It also opens the matching dialog.
#ifndef FINE_COOTRANS_H
#define FINE_COOTRANS_H

#include "controller/rotationangles.h"
#include "ui_cootrans.h"

#include <QPointer>
#include <QWidget>

class AbcGLCanvas;
class AbcMatchingDialog;
class IOManager;
class QAction;
class QMenu;
class bsMatrix;
struct BackendVersions;
struct RoomAdjustmentData;

/// The seven spin boxes are the only place where edited values live. The shared record is written
/// from them by `updateGlobalData` alone; the 3D view holds only their difference to the values at
/// loading. Offsets are mm, angles degrees. Host objects, record and dialog are not owned.
class CooTrans : public QWidget
{
    Q_OBJECT

public:
    /// `dialog` is the Qt parent; the matching dialog gets `matching_parent` as its Qt parent and
    /// is deleted with this tab all the same.
    CooTrans(IOManager* io_manager, BackendVersions* backend_versions, RoomAdjustmentData* ra_data,
             QWidget* dialog, QWidget* matching_parent);
    ~CooTrans();

    // Called by the dialog.
    /// Before the dialog opens: shows the record in numbers and view, asks the controller for the
    /// licence of the Measurement Tool and for the scaling. A failed query disables the matching
    /// button, or leaves the scaling as it is.
    void do_update();
    /// Writes all seven numbers into the record; the first step of Apply.
    void updateGlobalData();
    /// Whether offset and angles (not the scaling) are those of the record, the offset exactly, the
    /// elements of the rotation to five decimals.
    bool controlValuesEqualsGlobalData();
    /// The view shows the difference to these values; 0 until `save_actual_...`.
    void reset_saved_pos();
    void reset_saved_angles();
    /// Offset and angles become 0, the scaling 1, as by the three reset buttons.
    void setControlsDefaultValues();
    /// The angles of the boxes, in degrees.
    void getAngleValues(double& rx, double& ry, double& rz);
    /// In degrees; each is limited to -179 to 180 and counts as an edit if it differs.
    void setAngleValues(const double& rx, const double& ry, const double& rz);
    /// Forwards to the matching dialog and returns what it returns; may run on the host's data
    /// thread.
    int set_ascii_data(const char* line_type, const char* line);

    /// Loads the record into the view, seen along z from a distance that shows both frames. Always
    /// true.
    bool loadRoom();
    /// The same with no transformation at all.
    bool loadRoomDefault();
    /// Makes the numbers of this moment those from which the view shows the difference.
    void save_actual_pos();
    void save_actual_angles();
    /// Show the difference of the angles, or of the offset, to the saved ones.
    void rotateRoom();
    void translateRoom();
    /// Takes the scaling from the controller; without an answer the box keeps its value.
    void readScalingFactor();
    /// 0.95 to 1.05 if the value lies within, otherwise the wide limits. Says so on the label.
    void setScalingFactorLimitations();
    /// The wide limits: 0.1 to 2.0.
    void resetScalingFactorLimitations();
    double getRoomScaleFactor();
    /// Millimetres that one step of an offset box, one degree of a position wheel or one pixel of a
    /// drag in the view moves; the frames are drawn in multiples of it. The default view has 3.
    void setRoomScaleFactor(double factor);
    /// Shows the record in the boxes, limited to their ranges and rounded to their decimals.
    void update_widgets_from_data();
    /// Remembers what the controller holds and gives it the default extra transformation, so that
    /// points are measured free of any earlier adjustment. A failed query ends it with a message;
    /// then, and with the default in force, the controller stays as it is.
    void saveOldExtraTrafoAndSet2Default();
    /// Gives the controller back what saveOldExtraTrafoAndSet2Default() changed. Each failed write
    /// has its message.
    void restoreOldExtraTrafo();
    /// Nine elements that are all within 1e-6 of 0, 1 or -1 become exact; any others stay.
    void beautifyRotMatrix(double* m);
    // Parts of the construction.
    void setupWidgets();
    void setupConnections();
    void manageColors();
    void createContextMenue();

signals:
    /// Apply may be pressed, since a number was edited.
    void do_btn_apply_enable(bool enable);

public slots:
    /// To the matching dialog and back; returns when it is closed. Asks first if there are unsaved
    /// numbers.
    void on_w_bodyMatchingButton_clicked();

private slots:
    void on_doubleSpinBox_rz_valueChanged(double value);
    void on_doubleSpinBox_ry_valueChanged(double value);
    void on_doubleSpinBox_rx_valueChanged(double value);
    void on_doubleSpinBox_z_valueChanged(double value);
    void on_doubleSpinBox_y_valueChanged(double value);
    void on_doubleSpinBox_x_valueChanged(double value);
    void on_doubleSpinBox_scalingFactor_valueChanged(double value);
    void on_btn_resetScaling_clicked();
    void on_btn_resetAngles_clicked();
    void on_btn_resetVector_clicked();
    void on_pushButton_helpView_clicked();
    void adjustView();
    void resetView();
    void onEnableButtonApply();
    void applyTrafo(const bsMatrix& matrix);
    void toggled_long_axes();
    void toggled_show_XY();
    void toggled_show_YZ();
    void toggled_show_XZ();

private:
    void checkLicence();
    void connectViewWidgets();
    void rotationFromControls(double* elements);
    QAction* addToggle(QMenu* menu, const QString& text, const char* slot);
    bool mayLoseEdits();
    bool isWindowOpen() const;
    bool isWindowClosed() const;
    void setOldExtraTrafo(const RoomAdjustmentData& data);
    bool oldTrafoIsDefault() const;
    bool readOldExtraTrafo();
    void writeOldExtraTrafo(bool tell);

    Ui_CooTransClass ui;
    IOManager* io_manager;
    BackendVersions* backend_versions;
    QWidget* dialog; ///< the room adjustment dialog; null inside any other window
    AbcGLCanvas* gl_canvas;
    RoomAdjustmentData* ra_data;
    AbcMatchingDialog* matching_dialog; ///< never changes; read by the data thread
    bool long_axes_shown;
    bool xy_grid_shown;
    bool yz_grid_shown;
    bool xz_grid_shown;
    bool update_enabled;       ///< while false, a changed box moves no view and enables no Apply
    double old_translation[3]; ///< mm; these three as the controller held them before matching
    double old_rotation[9];    ///< in the order of the record
    double old_scaling;
    double saved_angles[3];                     ///< degrees, when the room was loaded
    double saved_pos[3];                        ///< mm, when the room was loaded
    QPointer<AbcMatchingDialog> matching_owner; ///< knows if the Qt parent deleted it first
    bool round_trip;                            ///< on the way to the matching dialog and back
    bool trip_needs_window; ///< its dialog was open at the start: once closed, nothing starts
                            ///< tracking
};

#endif
