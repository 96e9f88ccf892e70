// The coarse tab: assigns signed axes to room directions, in steps of 90 degrees.
#ifndef COARSE_COARSEADJUSTMENT_H
#define COARSE_COARSEADJUSTMENT_H

#include "coarse/coordinatecalculator.h"
#include "ui_coarseadjustment.h"

#include <QString>
#include <QWidget>

class IOManager;
class QStandardItemModel;
class RenderArea;
class RoomAngles;
struct BackendVersions;
struct ReplyText;
struct RoomAdjustmentData;

/// A second view on the three angles of the fine tab, for the cases in which all of them are
/// multiples of 90 degrees; it keeps no rotation of its own. What the combo boxes and labels show
/// is the state. Host objects, the record and the model are not owned. Angles are degrees.
class CoarseAdjustment : public QWidget
{
    Q_OBJECT

public:
    CoarseAdjustment(IOManager* io_manager, BackendVersions* backend_versions,
                     RoomAdjustmentData* ra_data, QWidget* parent);
    ~CoarseAdjustment();

    /// The fine tab's angles, which this tab shows and changes; until they are set, three zeros
    /// that nothing changes. Not owned.
    void setRoomAngles(RoomAngles* angles);

    /// The table of camera coordinates: four columns.
    void setModel(QStandardItemModel* model);

    /// Asks the controller for the coordinate type and shows the fine tab's angles. Without a type
    /// the boxes are disabled and the sketch has no axes.
    void do_update();
    /// Shows the fine tab's angles, or the standard axes in a disabled frame if they do not fit.
    void update_from_data();

    /// The angles of the assignment shown.
    void getAngleValues(double& rx, double& ry, double& rz);

    // The fine tab's angles.
    void setCooTransAngleValues(const double& rx, const double& ry, const double& rz);
    void getCooTransAngleValues(double& rx, double& ry, double& rz);

    /// True if each of the fine tab's angles, rounded up to a whole degree, is a multiple of 90.
    bool check_coarse_valid();
    /// Shows the fine tab's angles if `valid`, otherwise the standard axes.
    void update_coarse_tab(bool valid);

    void show_coord_axis_desc(CoordinateAxix axis);
    CoordinateAxix get_current_axis_des();
    /// Shows out and, opposite to it, in. No axis code changes nothing.
    void update_label_bottom_left(int out_code);
    void update_comboBox_top();
    void update_comboBox_right();
    void enable_two_combobox(bool enabled);

    /// The controller's calibration type; -1 if it cannot be had (the user is told) or is unknown.
    int get_roomcal_coord_type();
    void reset_roomcal_coord_type();

    void setupTableView();
    void updateTableViewColumnWidth();

    /// Writes the rotation of the assignment shown into the record.
    void updateRaData();

signals:
    void do_btn_apply_enable(bool enable);

private slots:
    void resizeEvent(QResizeEvent* event);
    void on_comboBox_top_currentIndexChanged(int index);
    void on_comboBox_right_currentIndexChanged(int index);
    void on_pushButton_reset_clicked();

private:
    bool ask_coord_type(ReplyText* reply, const char* query);
    void choose_coord_type(int type);
    void get_whole_angles(int angles[3]);
    void show_in_sketch(const CoordinateAxix& axis);
    void choice_made(int out_code);

    Ui_CoarseAdjustmentClass ui;
    IOManager* io_manager;
    BackendVersions* backend_versions;
    RoomAngles* room_angles;
    QStandardItemModel* model;
    int roomcal_coord_type;
    CoordinateCalculator* calculator;
    RenderArea* render_area;
    RoomAdjustmentData* ra_data;

public:
    /// While false, changes of the boxes stay in this tab; while true they also reach the fine tab
    /// and the Apply button. Whoever refreshes the tab from data clears it meanwhile.
    bool update_enabled;
};

#endif
