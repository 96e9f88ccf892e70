// What the dialog asks of the controller at opening and after each Apply.
#include "module/roomadjustmentdlg.h"

#include "controller/queries.h"
#include "controller/replytext.h"
#include "controller/trackingcontrol.h"
#include "controller/versiongates.h"
#include "controller/vocabulary.h"

#include <QPointer>
#include <QStandardItemModel>

using vocabulary::show_error;

bool RoomAdjustmentDlg2g::replyIs(const char* query, const char* word)
{
    ReplyText reply;
    return query_text(io_manager, &reply, query) && reply.is(word);
}

bool RoomAdjustmentDlg2g::isTrackingAvailable()
{
    if (!passes(*backend_versions, version_gate::tracking_available))
        return true;
    return !replyIs(vocabulary::tracking_available, vocabulary::reply_no);
}

bool RoomAdjustmentDlg2g::is_config_locked()
{
    if (!passes(*backend_versions, version_gate::config_changeable))
        return false;
    return replyIs(vocabulary::config_is_changeable, vocabulary::reply_no);
}

bool RoomAdjustmentDlg2g::isRoomcalAvailable()
{
    int camera_count = 0;
    if (!query_count(io_manager, &camera_count, vocabulary::number_of_cameras)) {
        show_error(io_manager, vocabulary::cannot_get_camera_count);
        return false;
    }
    // On purpose, one wants two positive answers and the other no negative one.
    if (passes(*backend_versions, version_gate::has_room))
        return haveTwoCamerasRoom(camera_count);
    return haveAllCamerasRoom(camera_count);
}

bool RoomAdjustmentDlg2g::haveTwoCamerasRoom(int camera_count)
{
    int with_room = 0;
    for (int camera = 1; camera <= camera_count; ++camera) {
        bool has_room = false;
        if (io_manager->get_param_bool(&has_room, vocabulary::camera_has_room, camera) != 0)
            continue;
        if (has_room && ++with_room == 2)
            return true;
    }
    return false;
}

bool RoomAdjustmentDlg2g::haveAllCamerasRoom(int camera_count)
{
    for (int camera = 1; camera <= camera_count; ++camera) {
        ReplyText reply;
        if (query_text(io_manager, &reply, vocabulary::camera_room, camera)
            && reply.is(vocabulary::reply_none))
            return false;
    }
    return true;
}

void RoomAdjustmentDlg2g::updateModel()
{
    while (model->removeRow(0)) {
    }
    if (!passes(*backend_versions, version_gate::camera_table))
        return;
    int camera_count = 0;
    if (!query_count(io_manager, &camera_count, vocabulary::number_of_cameras)) {
        show_error(io_manager, vocabulary::cannot_get_camera_count);
        return;
    }
    // A message of the host may run an event loop, in which this dialog ends.
    const QPointer<RoomAdjustmentDlg2g> self(this);
    model->setRowCount(camera_count);
    for (int row = 0; self && row < camera_count; ++row)
        fillCameraRow(row);
}

void RoomAdjustmentDlg2g::fillCameraRow(int row)
{
    const int camera = row + 1;
    ReplyText reply;
    const bool answered = query_text(io_manager, &reply, vocabulary::camera_room, camera);
    const QPointer<RoomAdjustmentDlg2g> self(this);
    if (!answered)
        show_error(io_manager, vocabulary::cannot_get_camera_room);
    if (!self)
        return;
    const char* const room =
        answered && !reply.is(vocabulary::reply_none) ? reply.text : vocabulary::room_of_zeros;

    const QString number = QString::number(camera).rightJustified(2, QLatin1Char('0'), true);
    model->setData(model->index(row, 0), QLatin1Char('c') + number, Qt::EditRole);
    for (int column = 1; column <= 3; ++column) {
        const QString value = QString::number(reply_number(room, column - 1), 'f', 2);
        model->setData(model->index(row, column), value, Qt::EditRole);
        model->item(row, column)->setTextAlignment(Qt::AlignRight);
    }
}

int RoomAdjustmentDlg2g::start_tracking() { return ::start_tracking(io_manager); }

int RoomAdjustmentDlg2g::stop_tracking() { return ::stop_tracking(io_manager); }
