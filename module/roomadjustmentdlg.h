// The dialog behind the menu entry: two tabs, OK, Apply and Cancel.
#ifndef MODULE_ROOMADJUSTMENTDLG_H
#define MODULE_ROOMADJUSTMENTDLG_H

#include "contract/requester.h"
#include "controller/roomadjustmentdata.h"
#include "controller/roomangles.h"
#include "ui_roomadjustmentdlg.h"

#include <QAtomicInt>
#include <QDialog>
#include <QIcon>
#include <QString>

class CoarseAdjustment;
class CooTrans;
class IOManager;
class QStandardItemModel;
struct BackendVersions;

/// Decides at each opening whether the user may work at all, keeps the controller's tracking state
/// in step with its own life, and is the module's only requester. Lives from the first
/// `get_gui_elements` to `exit_module` and is reused at every opening. Host objects are not owned.
class RoomAdjustmentDlg2g : public QDialog, public Requester
{
    Q_OBJECT

public:
    /// Registers with the host. `version` is the module's version text.
    RoomAdjustmentDlg2g(IOManager* io_manager, QWidget* parent, BackendVersions* backend_versions,
                        QString version);

    // For the tabs. Tracking operations return 0 on success; nobody needs to look at it.
    int start_tracking();
    /// Stops only what is measuring, whoever started it.
    int stop_tracking();
    void getCoarseAngleValues(double& rx, double& ry, double& rz);
    void setCooTransAngleValues(const double& rx, const double& ry, const double& rz);
    void getCooTransAngleValues(double& rx, double& ry, double& rz);
    void setControlsDefaultValues();

    /// Takes the requester back from the host; the last word to the host before destruction.
    void about_to_exit();

    /// Lines are forwarded while the fine tab is current and dropped with result 0 otherwise. May
    /// run on the host's data thread; touches no widget.
    int set_ascii_data(const char* line_type, const char* line);
    void set_mea_started();
    void set_mea_stopped();

    // The record and the controller.
    void copyRaData(RoomAdjustmentData& dest, const RoomAdjustmentData& src);
    /// Fills `data`; what cannot be read gets its default, silently. A backend too old for the
    /// extra transformation resets the working record instead, whichever record was passed.
    void getDataFromZtc(RoomAdjustmentData& data);
    /// Writes the working record: rotation, translation, scaling.
    void sendDataToZtc();
    /// True if the controller now holds something else than when the dialog was opened.
    bool raDataChanged();

public slots:
    /// Opens the dialog; returns what exec() returns, or 0 if the dialog was deleted meanwhile. If
    /// it is open already, its window is raised and the result is 0 at once.
    int update_and_exec();
    void onDataChanged(bool changed);
    void ondo_btn_apply_enable(bool enable);
    void on_btn_ok_clicked();
    void on_btn_apply_clicked();
    void on_btn_cancel_clicked();
    void on_tabWidget_currentChanged(int index);

protected:
    void keyPressEvent(QKeyEvent* event);
    void closeEvent(QCloseEvent* event);
    void showEvent(QShowEvent* event);
    void hideEvent(QHideEvent* event);

private:
    /// Shows the coarse tab the angles of the fine one. Not a base of the dialog, whose bases hosts
    /// rely on.
    class FineAngles : public RoomAngles
    {
    public:
        explicit FineAngles(RoomAdjustmentDlg2g* dialog) : dialog(dialog) {}
        void get_angles(double& rx, double& ry, double& rz);
        void set_angles(double rx, double ry, double rz);

    private:
        RoomAdjustmentDlg2g* dialog;
    };

    void setupModel();
    void setupTabs(QWidget* matching_parent);
    void setupConnections();
    void enableDialog(bool enable, bool tracking_state);
    void bringToFront();
    void prepare();
    void prepareByLock();
    void prepareTabs();
    bool takeBack();
    bool mayDiscard();
    bool isTrackingAvailable();
    bool is_config_locked();
    bool isRoomcalAvailable();
    bool haveTwoCamerasRoom(int camera_count);
    bool haveAllCamerasRoom(int camera_count);
    void updateModel();
    void fillCameraRow(int row);
    bool replyIs(const char* query, const char* word);

    Ui_RoomAdjustmentDlgClass ui;
    IOManager* io_manager;
    BackendVersions* backend_versions;
    QWidget* parent_widget;
    QStandardItemModel* model;
    CoarseAdjustment* coarse_tab;
    CooTrans* fine_tab;
    FineAngles fine_angles;
    RoomAdjustmentData ra_data;
    RoomAdjustmentData ra_data_saved;
    bool config_locked;
    QIcon lock_icon;
    bool tabs_ready;
    bool ok_pending;
    bool running; ///< from the action to the end of its window
    bool
        exchanging; ///< Apply, OK or Cancel is under way: a message of the host lets events through
    QAtomicInt current_tab; ///< mirrors the tab index for the data path
    bool subscribed;        ///< keeps subscribing and unsubscribing a balanced pair
};

#endif
