#include "fine/cootrans.h"

#include "SourceFiles/abcGLCanvas.h"
#include "controller/queries.h"
#include "controller/roomadjustmentdata.h"
#include "controller/vocabulary.h"
#include "matching/abcmatchingdialog.h"
#include "matching/helpdialog.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double wide_scaling_minimum = 0.1;
constexpr double wide_scaling_maximum = 2.0;
constexpr double fine_scaling_minimum = 0.95;
constexpr double fine_scaling_maximum = 1.05;
constexpr double equality_digits = 100000.0;

} // namespace

CooTrans::CooTrans(IOManager* io_manager, BackendVersions* backend_versions,
                   RoomAdjustmentData* ra_data, QWidget* dialog, QWidget* matching_parent)
    : QWidget(dialog), io_manager(io_manager), backend_versions(backend_versions),
      dialog(dialog && dialog->inherits("RoomAdjustmentDlg2g") ? dialog : nullptr),
      gl_canvas(nullptr), ra_data(ra_data), matching_dialog(nullptr), long_axes_shown(false),
      xy_grid_shown(false), yz_grid_shown(false), xz_grid_shown(false), update_enabled(false),
      round_trip(false), trip_needs_window(false)
{
    setOldExtraTrafo(RoomAdjustmentData());
    ui.setupUi(this);
    reset_saved_angles();
    reset_saved_pos();
    matching_dialog = new AbcMatchingDialog(io_manager, backend_versions, matching_parent);
    matching_owner = matching_dialog;
    setupWidgets();
    setupConnections();
    manageColors();
    createContextMenue();
}

CooTrans::~CooTrans()
{
    // In silence: a message could run an event loop, and half of the dialog is gone already.
    if (round_trip && !oldTrafoIsDefault())
        writeOldExtraTrafo(false);
    // Its Qt parent is the host's window, which outlives the module: nothing may stay behind there.
    delete matching_owner;
}

void CooTrans::do_update()
{
    if (gl_canvas->isRoomLoaded())
        gl_canvas->unloadRoom();
    loadRoom();
    update_enabled = false;
    update_widgets_from_data();
    update_enabled = true;
    save_actual_pos();
    save_actual_angles();
    checkLicence();
    resetScalingFactorLimitations();
    readScalingFactor();
    setScalingFactorLimitations();
}

void CooTrans::checkLicence()
{
    bool licensed = false;
    const bool answered =
        io_manager->get_param_bool(&licensed, vocabulary::licence_measurementtool) == 0;
    const bool enable = answered && licensed;
    ui.w_bodyMatchingButton->setEnabled(enable);
    if (enable)
        ui.w_bodyMatchingButton->setWhatsThis(tr("Open matching dialog"));
    else if (answered)
        ui.w_bodyMatchingButton->setWhatsThis(
            tr("Not available: the controller has no licence for the Measurement Tool"));
    else
        ui.w_bodyMatchingButton->setWhatsThis(
            tr("Not available: the controller did not say whether it has a licence for the "
               "Measurement Tool"));
}

void CooTrans::update_widgets_from_data()
{
    ui.doubleSpinBox_x->setValue(-ra_data->translation[0]);
    ui.doubleSpinBox_y->setValue(-ra_data->translation[1]);
    ui.doubleSpinBox_z->setValue(-ra_data->translation[2]);
    double rx, ry, rz;
    rotation_to_angles(ra_data->rotation, rx, ry, rz);
    ui.doubleSpinBox_rx->setValue(rx);
    ui.doubleSpinBox_ry->setValue(ry);
    ui.doubleSpinBox_rz->setValue(rz);
    ui.doubleSpinBox_scalingFactor->setValue(ra_data->scaling);
}

void CooTrans::beautifyRotMatrix(double* m) { beautify_rotation(m); }

/// The elements of the record that the angle boxes stand for.
void CooTrans::rotationFromControls(double* elements)
{
    angles_to_rotation(ui.doubleSpinBox_rx->value(), ui.doubleSpinBox_ry->value(),
                       ui.doubleSpinBox_rz->value(), elements);
    beautifyRotMatrix(elements);
}

void CooTrans::updateGlobalData()
{
    ra_data->translation[0] = -ui.doubleSpinBox_x->value();
    ra_data->translation[1] = -ui.doubleSpinBox_y->value();
    ra_data->translation[2] = -ui.doubleSpinBox_z->value();
    rotationFromControls(ra_data->rotation);
    ra_data->scaling = ui.doubleSpinBox_scalingFactor->value();
}

bool CooTrans::controlValuesEqualsGlobalData()
{
    if (!(ra_data->translation[0] == -ui.doubleSpinBox_x->value()
          && ra_data->translation[1] == -ui.doubleSpinBox_y->value()
          && ra_data->translation[2] == -ui.doubleSpinBox_z->value()))
        return false;
    double elements[9];
    rotationFromControls(elements);
    for (int i = 0; i < 9; ++i)
        if (!(std::trunc(elements[i] * equality_digits)
              == std::trunc(ra_data->rotation[i] * equality_digits)))
            return false;
    return true;
}

void CooTrans::save_actual_pos()
{
    saved_pos[0] = ui.doubleSpinBox_x->value();
    saved_pos[1] = ui.doubleSpinBox_y->value();
    saved_pos[2] = ui.doubleSpinBox_z->value();
}

void CooTrans::save_actual_angles()
{
    getAngleValues(saved_angles[0], saved_angles[1], saved_angles[2]);
}

void CooTrans::reset_saved_pos() { std::fill(saved_pos, saved_pos + 3, 0.0); }

void CooTrans::reset_saved_angles() { std::fill(saved_angles, saved_angles + 3, 0.0); }

void CooTrans::translateRoom()
{
    gl_canvas->translateRoom(ui.doubleSpinBox_x->value() - saved_pos[0],
                             ui.doubleSpinBox_y->value() - saved_pos[1],
                             ui.doubleSpinBox_z->value() - saved_pos[2]);
}

void CooTrans::rotateRoom()
{
    gl_canvas->rotateRoom(ui.doubleSpinBox_rx->value() - saved_angles[0],
                          ui.doubleSpinBox_ry->value() - saved_angles[1],
                          ui.doubleSpinBox_rz->value() - saved_angles[2]);
}

void CooTrans::getAngleValues(double& rx, double& ry, double& rz)
{
    rx = ui.doubleSpinBox_rx->value();
    ry = ui.doubleSpinBox_ry->value();
    rz = ui.doubleSpinBox_rz->value();
}

void CooTrans::setAngleValues(const double& rx, const double& ry, const double& rz)
{
    ui.doubleSpinBox_rx->setValue(rx);
    ui.doubleSpinBox_ry->setValue(ry);
    ui.doubleSpinBox_rz->setValue(rz);
}

void CooTrans::on_doubleSpinBox_x_valueChanged(double)
{
    if (!update_enabled)
        return;
    translateRoom();
    onEnableButtonApply();
}

void CooTrans::on_doubleSpinBox_y_valueChanged(double value)
{
    on_doubleSpinBox_x_valueChanged(value);
}

void CooTrans::on_doubleSpinBox_z_valueChanged(double value)
{
    on_doubleSpinBox_x_valueChanged(value);
}

void CooTrans::on_doubleSpinBox_rx_valueChanged(double)
{
    if (!update_enabled)
        return;
    rotateRoom();
    onEnableButtonApply();
}

void CooTrans::on_doubleSpinBox_ry_valueChanged(double value)
{
    on_doubleSpinBox_rx_valueChanged(value);
}

void CooTrans::on_doubleSpinBox_rz_valueChanged(double value)
{
    on_doubleSpinBox_rx_valueChanged(value);
}

void CooTrans::on_doubleSpinBox_scalingFactor_valueChanged(double)
{
    if (update_enabled)
        onEnableButtonApply();
}

void CooTrans::onEnableButtonApply() { emit do_btn_apply_enable(true); }

void CooTrans::on_btn_resetVector_clicked()
{
    update_enabled = false;
    ui.doubleSpinBox_x->setValue(0.0);
    ui.doubleSpinBox_y->setValue(0.0);
    ui.doubleSpinBox_z->setValue(0.0);
    update_enabled = true;
    translateRoom();
    onEnableButtonApply();
}

void CooTrans::on_btn_resetAngles_clicked()
{
    update_enabled = false;
    setAngleValues(0.0, 0.0, 0.0);
    update_enabled = true;
    rotateRoom();
    onEnableButtonApply();
}

void CooTrans::on_btn_resetScaling_clicked() { ui.doubleSpinBox_scalingFactor->setValue(1.0); }

void CooTrans::setControlsDefaultValues()
{
    on_btn_resetVector_clicked();
    on_btn_resetAngles_clicked();
    on_btn_resetScaling_clicked();
}

void CooTrans::resetScalingFactorLimitations()
{
    ui.doubleSpinBox_scalingFactor->setMaximum(wide_scaling_maximum);
    ui.doubleSpinBox_scalingFactor->setMinimum(wide_scaling_minimum);
}

void CooTrans::readScalingFactor()
{
    double scaling = 1.0;
    if (query_number(io_manager, &scaling, vocabulary::extra_scaling))
        ui.doubleSpinBox_scalingFactor->setValue(scaling);
}

void CooTrans::setScalingFactorLimitations()
{
    const double scaling = ui.doubleSpinBox_scalingFactor->value();
    if (scaling > fine_scaling_maximum || scaling < fine_scaling_minimum) {
        ui.label_scaling_2->setText(tr("Scaling"));
        resetScalingFactorLimitations();
        return;
    }
    ui.label_scaling_2->setText(tr("Scaling (+/- 5%)"));
    ui.doubleSpinBox_scalingFactor->setMaximum(fine_scaling_maximum);
    ui.doubleSpinBox_scalingFactor->setMinimum(fine_scaling_minimum);
}

int CooTrans::set_ascii_data(const char* line_type, const char* line)
{
    return matching_dialog->set_ascii_data(line_type, line);
}

void CooTrans::on_pushButton_helpView_clicked()
{
    // Not on the stack: whoever deletes this tab deletes the help as well.
    const QPointer<HelpDialog> help(new HelpDialog(this));
    help->exec();
    delete help;
}
