// What the dialog asks of the controller at opening and after each Apply.
#include "module/roomadjustmentdlg.h"

#include "controller/replytext.h"
#include "controller/versiongates.h"
#include "controller/vocabulary.h"

#include <QStandardItemModel>

#include <cstring>

using vocabulary::show_error;

bool RoomAdjustmentDlg2g::replyIs(const char* query, const char* word)
{
    char reply[IOManager::buffer_size] = "";
    return io_manager->get_param_string(reply, query) == 0 && std::strcmp(reply, word) == 0;
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
    if (io_manager->get_param_int(&camera_count, vocabulary::number_of_cameras) != 0) {
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
        char reply[IOManager::buffer_size] = "";
        if (io_manager->get_param_string(reply, vocabulary::camera_room, camera) != 0)
            continue;
        if (std::strcmp(reply, vocabulary::reply_none) == 0)
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
    if (io_manager->get_param_int(&camera_count, vocabulary::number_of_cameras) != 0) {
        show_error(io_manager, vocabulary::cannot_get_camera_count);
        return;
    }
    model->setRowCount(camera_count);
    for (int row = 0; row < camera_count; ++row)
        fillCameraRow(row);
}

void RoomAdjustmentDlg2g::fillCameraRow(int row)
{
    const int camera = row + 1;
    char reply[IOManager::buffer_size] = "";
    if (io_manager->get_param_string(reply, vocabulary::camera_room, camera) != 0) {
        show_error(io_manager, vocabulary::cannot_get_camera_room);
        std::strcpy(reply, vocabulary::room_of_zeros);
    } else if (std::strcmp(reply, vocabulary::reply_none) == 0) {
        std::strcpy(reply, vocabulary::room_of_zeros);
    }

    const QString number = QString::number(camera).rightJustified(2, QLatin1Char('0'), true);
    model->setData(model->index(row, 0), QLatin1Char('c') + number, Qt::EditRole);
    for (int column = 1; column <= 3; ++column) {
        const QString value = QString::number(reply_number(reply, column - 1), 'f', 2);
        model->setData(model->index(row, column), value, Qt::EditRole);
        model->item(row, column)->setTextAlignment(Qt::AlignRight);
    }
}

int RoomAdjustmentDlg2g::start_tracking()
{
    char reply[IOManager::buffer_size] = "";
    if (io_manager->send_command(reply, vocabulary::start_tracking) != 0) {
        show_error(io_manager, vocabulary::cannot_start_tracking);
        return 1;
    }
    return 0;
}

int RoomAdjustmentDlg2g::stop_tracking()
{
    char reply[IOManager::buffer_size] = "";
    if (io_manager->get_param_string(reply, vocabulary::status_active) != 0) {
        show_error(io_manager, vocabulary::cannot_check_status);
        return 1;
    }
    if (std::strcmp(reply, vocabulary::reply_measuring) != 0)
        return 0;
    if (io_manager->send_command(reply, vocabulary::stop_tracking) != 0) {
        show_error(io_manager, vocabulary::cannot_stop_tracking);
        return 1;
    }
    return 0;
}
