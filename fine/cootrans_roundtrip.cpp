// The way to the matching dialog and back: the controller keeps what it had, the record gets the
// result.
#include "fine/cootrans.h"

#include "SourceFiles/abcGLCanvas.h"
#include "controller/extratransformation.h"
#include "controller/roomadjustmentdata.h"
#include "controller/versiongates.h"
#include "controller/vocabulary.h"
#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"

#include <QMessageBox>

#include <algorithm>

using vocabulary::show_error;

void CooTrans::on_w_bodyMatchingButton_clicked()
{
    if (!controlValuesEqualsGlobalData()) {
        const QString text = tr("You have unsaved data. Save changes?\n\n"
                                "(If yes press 'Apply' and re-open matching)");
        if (QMessageBox::warning(this, tr("Room Adjustment"), text,
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
            == QMessageBox::Yes)
            return;
        gl_canvas->unloadRoom();
        loadRoom();
    }
    saveOldExtraTrafoAndSet2Default();
    reset_saved_pos();
    reset_saved_angles();
    matching_dialog->update_and_exec();
    update_enabled = false;
    update_widgets_from_data();
    update_enabled = true;
    save_actual_pos();
    save_actual_angles();
    restoreOldExtraTrafo();
}

void CooTrans::setOldExtraTrafo(const RoomAdjustmentData& data)
{
    std::copy(data.translation, data.translation + 3, old_translation);
    std::copy(data.rotation, data.rotation + 9, old_rotation);
    old_scaling = data.scaling;
}

bool CooTrans::oldTrafoIsDefault() const
{
    return is_default_transformation(old_translation, old_rotation, old_scaling);
}

/// All three or none; a failure leaves the members at the defaults.
bool CooTrans::readOldExtraTrafo()
{
    RoomAdjustmentData read;
    if (io_manager->get_param_doubles(read.translation, 3, vocabulary::extra_translation) != 0) {
        show_error(io_manager, vocabulary::cannot_get_translation);
        return false;
    }
    if (io_manager->get_param_doubles(read.rotation, 9, vocabulary::extra_rotation) != 0) {
        show_error(io_manager, vocabulary::cannot_get_rotation);
        return false;
    }
    if (io_manager->get_param_double(&read.scaling, vocabulary::extra_scaling) != 0) {
        show_error(io_manager, vocabulary::cannot_get_scaling);
        return false;
    }
    setOldExtraTrafo(read);
    return true;
}

void CooTrans::saveOldExtraTrafoAndSet2Default()
{
    setOldExtraTrafo(RoomAdjustmentData());
    if (!passes(*backend_versions, version_gate::extra_transformation))
        return;
    if (!readOldExtraTrafo() || oldTrafoIsDefault() || !dialog)
        return;
    dialog->stop_tracking();
    if (io_manager->set_param_value(vocabulary::set_default_rotation) != 0)
        show_error(io_manager, vocabulary::cannot_set_default_rotation);
    if (io_manager->set_param_value(vocabulary::set_default_translation) != 0)
        show_error(io_manager, vocabulary::cannot_set_default_translation);
    if (io_manager->set_param_value(vocabulary::set_default_scaling) != 0)
        show_error(io_manager, vocabulary::cannot_set_default_scaling);
    dialog->start_tracking();
}

void CooTrans::restoreOldExtraTrafo()
{
    if (oldTrafoIsDefault() || !passes(*backend_versions, version_gate::extra_transformation)
        || !dialog)
        return;
    dialog->stop_tracking();
    RoomAdjustmentData old;
    std::copy(old_translation, old_translation + 3, old.translation);
    std::copy(old_rotation, old_rotation + 9, old.rotation);
    old.scaling = old_scaling;
    const WriteMessages messages = {vocabulary::cannot_restore_rotation,
                                    vocabulary::cannot_restore_translation,
                                    vocabulary::cannot_restore_scaling};
    write_extra_transformation(io_manager, old, messages);
    dialog->start_tracking();
}

void CooTrans::applyTrafo(const bsMatrix& matrix)
{
    gl_canvas->unloadRoom();
    loadRoomDefault();
    gl_canvas->rotateRoom(matrix);
    const bsVector position = matrix.getColumn(3);
    gl_canvas->translateRoom(position.x, position.y, position.z);
    gl_canvas->saveCurrentRoom();
    gl_canvas->saveRoom(ra_data, true);
    onEnableButtonApply();
}
