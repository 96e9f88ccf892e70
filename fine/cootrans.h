// The fine adjustment tab: seven numbers beside a 3D view, and the door to point matching.
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
class RoomAdjustmentDlg2g;
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
    void do_update();
    void updateGlobalData();
    /// Whether offset and angles (not the scaling) are those of the record.
    bool controlValuesEqualsGlobalData();
    void reset_saved_pos();
    void reset_saved_angles();
    void setControlsDefaultValues();
    void getAngleValues(double& rx, double& ry, double& rz);
    void setAngleValues(const double& rx, const double& ry, const double& rz);
    /// Forwards to the matching dialog; may run on the host's data thread.
    int set_ascii_data(const char* line_type, const char* line);

    bool loadRoom();
    bool loadRoomDefault();
    void save_actual_pos();
    void save_actual_angles();
    void rotateRoom();
    void translateRoom();
    void readScalingFactor();
    void setScalingFactorLimitations();
    void resetScalingFactorLimitations();
    double getRoomScaleFactor();
    void setRoomScaleFactor(double factor);
    void update_widgets_from_data();
    /// Keeps what the controller holds and gives it the default extra transformation, so that
    /// points are measured free of any earlier adjustment.
    void saveOldExtraTrafoAndSet2Default();
    void restoreOldExtraTrafo();
    /// Nine words that are all within 1e-6 of 0, 1 or -1 become exact; any others stay.
    void beautifyRotMatrix(double* m);
    void setupWidgets();
    void setupConnections();
    void manageColors();
    void createContextMenue();

signals:
    void do_btn_apply_enable(bool enable);

public slots:
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
    void rotationFromControls(double* words);
    QAction* addToggle(QMenu* menu, const QString& text, const char* slot);
    void setOldExtraTrafo(const RoomAdjustmentData& data);
    bool oldTrafoIsDefault() const;
    bool readOldExtraTrafo();

    Ui_CooTransClass ui;
    IOManager* io_manager;
    BackendVersions* backend_versions;
    RoomAdjustmentDlg2g* dialog;
    AbcGLCanvas* gl_canvas;
    RoomAdjustmentData* ra_data;
    AbcMatchingDialog* matching_dialog; ///< never changes; read by the data thread
    bool long_axes_shown;
    bool xy_grid_shown;
    bool yz_grid_shown;
    bool xz_grid_shown;
    bool update_enabled;
    double old_translation[3];
    double old_rotation[9];
    double old_scaling;
    double saved_angles[3];
    double saved_pos[3];
    QPointer<AbcMatchingDialog> matching_owner; ///< knows if the Qt parent deleted it first
};

#endif
