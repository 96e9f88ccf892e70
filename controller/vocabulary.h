// Every text that goes to the controller or comes from it, and every message about a failure.
#ifndef CONTROLLER_VOCABULARY_H
#define CONTROLLER_VOCABULARY_H

#include "contract/iomanager.h"

/// The texts are part of the protocol, the number of decimals included, and so is each blank. None
/// of them is translated. Cameras (`c`) and tools (`b`) are numbered from 1, lengths are mm.
namespace vocabulary
{

// Commands, sent with `send_command`; the reply is never read.
const char start_tracking[] = "zetrak2 tracking start";
const char stop_tracking[] = "zetrak2 tracking stop";
const char start_measurement[] = "zetrak2 measurementtool start_measurement b%02d";

// Queries.
const char status_active[] = "status active";
const char tracking_available[] = "tracking available";
const char config_is_changeable[] = "config is_changeable";
const char number_of_cameras[] = "camera number_of_cameras";
const char camera_has_room[] = "tracking has_room c%02d";
const char camera_room[] = "tracking room c%2.2d";
const char extra_rotation[] = "tracking extra_rotation";
const char extra_translation[] = "tracking extra_translation";
const char extra_scaling[] = "tracking extra_scaling";
const char last_coordinate_type[] = "roomcal last_coordinate_type";
const char coordinate_type[] = "roomcal coordinate_type";
const char number_of_tools[] = "measurementtool number_of_tools";
const char tip_calibrated[] = "measurementtool tip_calibrated b%02d";
const char tip_tolerance[] = "measurementtool measurement_tip_tolerance b%02d";
const char measurement_duration[] = "measurementtool measurement_duration b%02d";
const char licence_measurementtool[] = "licence measurementtool";

// Settings: name and values in one text.
const char set_extra_rotation[] =
    "tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f";
const char set_extra_translation[] = "tracking extra_translation %.3f %.3f %.3f";
const char set_extra_scaling[] = "tracking extra_scaling %.5f";
const char set_default_rotation[] =
    "tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 0.00000000 "
    "0.00000000 0.00000000 1.00000000";
const char set_default_translation[] = "tracking extra_translation 0.000 0.000 0.000";
const char set_default_scaling[] = "tracking extra_scaling 1.00000";

// Replies with a meaning; compared exactly.
const char reply_measuring[] = "mea";
const char reply_no[] = "no";
const char reply_none[] = "none";
const char type_normal[] = "normal";
const char type_powerwall[] = "powerwall";
const char type_powerwall_standing[] = "powerwall_standing";
const char type_mid_camera[] = "mid_camera";

/// Stands in for the room calibration of a camera that has none.
const char room_of_zeros[] = "0.0 0.0 0.0 0.0 0.0 0.0 0.0 0.0 0.0 0.0 0.0 0.0 ";

// Data lines that the dialog subscribes, in this order.
const char* const subscribed_lines[] = {"ts", "6dmt2", "6dmt", "6df2", "6df"};

// Messages. They name what failed and are the only trace of a failure.
const char cannot_start_tracking[] = "Error: Unable to start tracking";
const char cannot_stop_tracking[] = "Error: Unable to stop tracking";
const char cannot_check_status[] = "Error: Unable to check tracking status";
const char cannot_get_camera_count[] = "Error: Unable to get number of cameras";
const char cannot_get_camera_room[] = "Error: Unable to get room cal of camera";
const char cannot_get_coordinate_type[] = "Error: Cannot require room calibration coordinate type.";
const char cannot_set_adjustment_rotation[] = "Error: Unable to set room adjustment rotation";
const char cannot_set_adjustment_translation[] = "Error: Unable to set room adjustment translation";
const char cannot_set_adjustment_scaling[] = "Error: Unable to set room adjustment scaling";
const char cannot_get_rotation[] = "Error: Unable to get info extra rotation";
const char cannot_get_translation[] = "Error: Unable to get info extra translation";
const char cannot_get_scaling[] = "Error: Unable to get info extra scaling";
const char cannot_set_default_rotation[] = "Error: Unable to set extra rotation default";
const char cannot_set_default_translation[] = "Error: Unable to set extra translation default";
const char cannot_set_default_scaling[] = "Error: Unable to set extra scaling default";
const char cannot_restore_rotation[] = "Error: Unable to set extra rotation";
const char cannot_restore_translation[] = "Error: Unable to set extra translation";
const char cannot_restore_scaling[] = "Error: Unable to set extra scaling";
const char cannot_get_tool_count[] = "Error : Unable to get number of measurement tools";
const char cannot_get_tip_calibration[] = "Error : Unable to get info of tip calibration";
const char cannot_get_tip_tolerance[] = "Error : Unable to get tip tolerance of measurement tool";
const char cannot_start_measurement[] = "Error : Unable to start measurement tool measurement";

/// Shows one of the messages above in the one way the host knows.
inline void show_error(IOManager* io_manager, const char* text)
{
    const int level = 1;
    io_manager->show_message("standard", "Zetrak2", level, text);
}

} // namespace vocabulary

#endif
