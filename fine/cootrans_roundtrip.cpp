// The way to the matching dialog and back: the controller keeps what it had, the record gets the
// result.
#include "fine/cootrans.h"

#include "SourceFiles/abcGLCanvas.h"
#include "controller/extratransformation.h"
#include "controller/queries.h"
#include "controller/roomadjustmentdata.h"
#include "controller/trackingcontrol.h"
#include "controller/versiongates.h"
#include "controller/vocabulary.h"
#include "matching/abcmatchingdialog.h"

#include <QMessageBox>

#include <algorithm>

using vocabulary::show_error;

namespace
{

/// Stops if `tab` is deleted while a message is shown: its destructor has then given the controller
/// its own values back.
void write_default(IOManager* io_manager, QObject* tab)
{
    const char* const writes[][2] = {
        {vocabulary::set_default_rotation, vocabulary::cannot_set_default_rotation},
        {vocabulary::set_default_translation, vocabulary::cannot_set_default_translation},
        {vocabulary::set_default_scaling, vocabulary::cannot_set_default_scaling}};
    const QPointer<QObject> alive(tab);
    for (const auto& write : writes)
        if (alive && io_manager->set_param_value(write[0]) != 0)
            show_error(io_manager, write[1]);
}

} // namespace

void CooTrans::on_w_bodyMatchingButton_clicked()
{
    const QPointer<CooTrans> self(this);
    if (round_trip || !mayLoseEdits() || !self)
        return;
    round_trip = true;
    trip_needs_window = isWindowOpen();
    saveOldExtraTrafoAndSet2Default();
    if (!self)
        return;
    reset_saved_pos();
    reset_saved_angles();
    if (matching_owner && !isWindowClosed())
        matching_dialog->update_and_exec();
    if (!self)
        return;
    update_enabled = false;
    update_widgets_from_data();
    update_enabled = true;
    save_actual_pos();
    save_actual_angles();
    restoreOldExtraTrafo();
    if (!self)
        return;
    round_trip = false;
    trip_needs_window = false;
}

/// Asks before unsaved numbers give way to the record. False if the user keeps them, and if the
/// dialog has been closed or deleted when the answer comes.
bool CooTrans::mayLoseEdits()
{
    if (controlValuesEqualsGlobalData())
        return true;
    const QPointer<CooTrans> self(this);
    const bool was_open = isWindowOpen();
    const QString text = tr("You have unsaved data. Save changes?\n\n"
                            "(If yes press 'Apply' and re-open matching)");
    // Not on the stack: whoever deletes this tab deletes the box as well.
    const QPointer<QMessageBox> box(new QMessageBox(QMessageBox::Warning, tr("Room Adjustment"),
                                                    text, QMessageBox::Yes | QMessageBox::No,
                                                    this));
    box->setDefaultButton(QMessageBox::No);
    const int answer = box->exec();
    delete box;
    if (!self || answer != QMessageBox::No || isWindowOpen() != was_open)
        return false;
    gl_canvas->unloadRoom();
    loadRoom();
    return true;
}

bool CooTrans::isWindowOpen() const { return dialog && dialog->isVisible(); }

bool CooTrans::isWindowClosed() const { return trip_needs_window && !isWindowOpen(); }

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
    if (!query_numbers(io_manager, read.translation, 3, vocabulary::extra_translation)) {
        show_error(io_manager, vocabulary::cannot_get_translation);
        return false;
    }
    if (!query_numbers(io_manager, read.rotation, 9, vocabulary::extra_rotation)) {
        show_error(io_manager, vocabulary::cannot_get_rotation);
        return false;
    }
    if (!query_number(io_manager, &read.scaling, vocabulary::extra_scaling)) {
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
    const QPointer<CooTrans> self(this);
    stop_tracking(io_manager);
    if (!self)
        return;
    write_default(io_manager, this);
    if (self && !isWindowClosed())
        start_tracking(io_manager);
}

void CooTrans::restoreOldExtraTrafo()
{
    if (oldTrafoIsDefault() || !passes(*backend_versions, version_gate::extra_transformation)
        || !dialog)
        return;
    const QPointer<CooTrans> self(this);
    stop_tracking(io_manager);
    if (!self)
        return;
    writeOldExtraTrafo(true);
    if (self && !isWindowClosed())
        start_tracking(io_manager);
}

/// Touches no member after the first word to the controller: its host may show a message meanwhile,
/// and this tab may be deleted behind it.
void CooTrans::writeOldExtraTrafo(bool tell)
{
    RoomAdjustmentData old;
    std::copy(old_translation, old_translation + 3, old.translation);
    std::copy(old_rotation, old_rotation + 9, old.rotation);
    old.scaling = old_scaling;
    const WriteMessages messages = {vocabulary::cannot_restore_rotation,
                                    vocabulary::cannot_restore_translation,
                                    vocabulary::cannot_restore_scaling};
    const WriteMessages silence = {nullptr, nullptr, nullptr};
    write_extra_transformation(io_manager, old, tell ? messages : silence);
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
