#include "coarse/coarseadjustment.h"

#include "coarse/renderarea.h"
#include "contract/iomanager.h"
#include "controller/queries.h"
#include "controller/roomadjustmentdata.h"
#include "controller/roomangles.h"
#include "controller/rotationangles.h"
#include "controller/versiongates.h"
#include "controller/vocabulary.h"
#include "platform/headersections.h"

#include <QPointer>
#include <QStandardItemModel>

#include <algorithm>
#include <cmath>

namespace
{

const int quarter_turn = 90; // degrees

void refill_with_axes(QComboBox* box, CoordinateCalculator& calculator)
{
    box->clear();
    for (int code = 0; code < axis_code_count; ++code)
        box->addItem(calculator.convert_int_to_desc(code));
}

QString opposite_desc(const QString& desc)
{
    return desc.startsWith(QLatin1Char('-')) ? desc.mid(1) : QString::fromLatin1("-%1").arg(desc);
}

} // namespace

CoarseAdjustment::CoarseAdjustment(IOManager* io_manager, BackendVersions* backend_versions,
                                   RoomAdjustmentData* ra_data, QWidget* parent)
    : QWidget(parent), io_manager(io_manager), backend_versions(backend_versions),
      room_angles(nullptr), model(nullptr), roomcal_coord_type(calibration_normal),
      calculator(nullptr), render_area(nullptr), ra_data(ra_data), update_enabled(false)
{
    ui.setupUi(this);
    setupTableView();
    calculator = new CoordinateCalculator(calibration_none);
    render_area = new RenderArea(ui.stackedWidget->width(), this);
    render_area->set_coord_type(-1);
    ui.stackedWidget->addWidget(render_area);
    ui.stackedWidget->setCurrentWidget(render_area);
}

CoarseAdjustment::~CoarseAdjustment() { delete calculator; }

void CoarseAdjustment::setRoomAngles(RoomAngles* angles) { room_angles = angles; }

void CoarseAdjustment::setModel(QStandardItemModel* model)
{
    this->model = model;
    ui.tableView->setModel(model);
}

void CoarseAdjustment::setupTableView()
{
    const int row_height = 22;
    ui.tableView->verticalHeader()->setDefaultSectionSize(row_height);
    ui.tableView->verticalHeader()->hide();
    set_sections_clickable(ui.tableView->horizontalHeader(), false);
    ui.tableView->setSelectionMode(QAbstractItemView::NoSelection);
    ui.tableView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Nothing can be done in a cell, so Tab goes to the next widget and not to the next cell.
    ui.tableView->setTabKeyNavigation(false);
}

void CoarseAdjustment::updateTableViewColumnWidth()
{
    const int column_count = 4;
    for (int column = 0; column < column_count; ++column)
        ui.tableView->setColumnWidth(column, ui.tableView->width() / column_count - 1);
}

void CoarseAdjustment::resizeEvent(QResizeEvent*) { updateTableViewColumnWidth(); }

bool CoarseAdjustment::ask_coord_type(ReplyText* reply, const char* query)
{
    if (query_text(io_manager, reply, query))
        return true;
    vocabulary::show_error(io_manager, vocabulary::cannot_get_coordinate_type);
    return false;
}

int CoarseAdjustment::get_roomcal_coord_type()
{
    struct
    {
        const char* word;
        int type;
    } const types[] = {
        {vocabulary::type_normal, calibration_normal},
        {vocabulary::type_powerwall, calibration_powerwall},
        {vocabulary::type_powerwall_standing, calibration_powerwall_standing},
        {vocabulary::type_mid_camera, calibration_mid_camera},
        {vocabulary::reply_none, calibration_none},
    };

    ReplyText reply;
    const bool knows_last = passes(*backend_versions, version_gate::last_coordinate_type);
    if (!ask_coord_type(&reply, knows_last ? vocabulary::last_coordinate_type
                                           : vocabulary::coordinate_type))
        return -1;
    if (reply.is(vocabulary::reply_none) && !ask_coord_type(&reply, vocabulary::coordinate_type))
        return -1;
    for (const auto& known : types)
        if (reply.is(known.word))
            return known.type;
    return -1;
}

void CoarseAdjustment::do_update()
{
    update_enabled = false;
    update_comboBox_top();
    update_comboBox_right();
    // A message of the host may run an event loop, in which this tab ends.
    const QPointer<CoarseAdjustment> self(this);
    const int type = get_roomcal_coord_type();
    if (!self)
        return;
    roomcal_coord_type = type < 0 ? static_cast<int>(calibration_none) : type;
    if (roomcal_coord_type == calibration_none)
        reset_roomcal_coord_type();
    else
        choose_coord_type(roomcal_coord_type);
    update_from_data();
    update_enabled = true;
}

void CoarseAdjustment::reset_roomcal_coord_type()
{
    roomcal_coord_type = calibration_none;
    choose_coord_type(calibration_none);
}

void CoarseAdjustment::choose_coord_type(int type)
{
    calculator->set_cali_type(type);
    render_area->set_coord_type(type);
    show_in_sketch(get_current_axis_des());
    enable_two_combobox(type != calibration_none);
}

void CoarseAdjustment::enable_two_combobox(bool enabled)
{
    ui.comboBox_top->setEnabled(enabled);
    ui.comboBox_right->setEnabled(enabled);
}

void CoarseAdjustment::update_comboBox_top() { refill_with_axes(ui.comboBox_top, *calculator); }

void CoarseAdjustment::update_comboBox_right() { refill_with_axes(ui.comboBox_right, *calculator); }

// Rounded up and never down, so that what lies just below a multiple of 90 counts as one.
void CoarseAdjustment::get_whole_angles(int angles[3])
{
    double rx = 0.0, ry = 0.0, rz = 0.0;
    getCooTransAngleValues(rx, ry, rz);
    angles[0] = static_cast<int>(std::ceil(rx));
    angles[1] = static_cast<int>(std::ceil(ry));
    angles[2] = static_cast<int>(std::ceil(rz));
}

bool CoarseAdjustment::check_coarse_valid()
{
    int angles[3];
    get_whole_angles(angles);
    return angles[0] % quarter_turn == 0 && angles[1] % quarter_turn == 0
           && angles[2] % quarter_turn == 0;
}

void CoarseAdjustment::update_from_data()
{
    const bool valid = check_coarse_valid();
    update_coarse_tab(valid);
    ui.frame->setEnabled(valid);
}

void CoarseAdjustment::update_coarse_tab(bool valid)
{
    CoordinateAxix axis = calculator->get_standard_axis();
    if (valid) {
        int angles[3];
        get_whole_angles(angles);
        axis = calculator->x_y_z_rotate(axis, angles[0], angles[1], angles[2]);
    }
    show_coord_axis_desc(axis);
    show_in_sketch(axis); // the handlers do not while the frame or the whole dialog is disabled
}

// The labels are written here, too, because the handlers do nothing while the boxes are disabled.
void CoarseAdjustment::show_coord_axis_desc(CoordinateAxix axis)
{
    ui.label_left->setText(calculator->get_left_desc(axis));
    ui.comboBox_right->setCurrentIndex(axis.right);
    ui.comboBox_top->setCurrentIndex(axis.up);
    ui.label_bottom->setText(calculator->get_down_desc(axis));
    ui.label_top_right->setText(calculator->get_in_desc(axis));
    ui.label_bottom_left->setText(calculator->get_out_desc(axis));
}

CoordinateAxix CoarseAdjustment::get_current_axis_des()
{
    CoordinateAxix axis;
    axis.left = calculator->convert_desc_to_int(ui.label_left->text());
    axis.right = ui.comboBox_right->currentIndex();
    axis.up = ui.comboBox_top->currentIndex();
    axis.down = calculator->convert_desc_to_int(ui.label_bottom->text());
    axis.out = calculator->convert_desc_to_int(ui.label_bottom_left->text());
    axis.in = calculator->convert_desc_to_int(ui.label_top_right->text());
    return axis;
}

void CoarseAdjustment::update_label_bottom_left(int out_code)
{
    if (!is_axis_code(out_code))
        return;
    ui.label_bottom_left->setText(calculator->convert_int_to_desc(out_code));
    ui.label_top_right->setText(calculator->convert_int_to_desc(opposite_axis(out_code)));
}

void CoarseAdjustment::show_in_sketch(const CoordinateAxix& axis)
{
    render_area->set_current_axis(axis);
    render_area->update();
}

void CoarseAdjustment::on_comboBox_right_currentIndexChanged(int index)
{
    if (!ui.comboBox_right->isEnabled())
        return;
    int right = index;
    int up = ui.comboBox_top->currentIndex();
    int out = -1; // stays so while a box is being refilled
    ui.label_left->setText(opposite_desc(ui.comboBox_right->currentText()));
    if (!calculator->adjust_coordinate_desc(right, up, out, true))
        ui.comboBox_top->setCurrentIndex(up); // runs the other handler, which writes label_bottom
    choice_made(out);
}

void CoarseAdjustment::on_comboBox_top_currentIndexChanged(int index)
{
    if (!ui.comboBox_top->isEnabled())
        return;
    int up = index;
    int right = ui.comboBox_right->currentIndex();
    int out = -1; // stays so while a box is being refilled
    ui.label_bottom->setText(opposite_desc(ui.comboBox_top->currentText()));
    if (!calculator->adjust_coordinate_desc(right, up, out, false))
        ui.comboBox_right->setCurrentIndex(right); // runs the other handler, as above
    choice_made(out);
}

void CoarseAdjustment::choice_made(int out_code)
{
    update_label_bottom_left(out_code);
    show_in_sketch(get_current_axis_des());
    if (!update_enabled)
        return;
    double rx = 0.0, ry = 0.0, rz = 0.0;
    getAngleValues(rx, ry, rz);
    setCooTransAngleValues(rx, ry, rz);
    emit do_btn_apply_enable(true);
}

void CoarseAdjustment::on_pushButton_reset_clicked()
{
    if (ui.comboBox_top->isEnabled() && ui.comboBox_right->isEnabled())
        show_coord_axis_desc(calculator->get_standard_axis());
}

void CoarseAdjustment::getAngleValues(double& rx, double& ry, double& rz)
{
    int x = 0, y = 0, z = 0;
    calculator->get_angle_from_coord_desc(get_current_axis_des(), x, y, z);
    rx = x;
    ry = y;
    rz = z;
}

void CoarseAdjustment::setCooTransAngleValues(const double& rx, const double& ry, const double& rz)
{
    if (room_angles)
        room_angles->set_angles(rx, ry, rz);
}

void CoarseAdjustment::getCooTransAngleValues(double& rx, double& ry, double& rz)
{
    if (room_angles)
        room_angles->get_angles(rx, ry, rz);
    else
        rx = ry = rz = 0.0;
}

void CoarseAdjustment::updateRaData()
{
    double rx = 0.0, ry = 0.0, rz = 0.0;
    getAngleValues(rx, ry, rz);
    angles_to_rotation(rx, ry, rz, ra_data->rotation);
}
