// The three settings that the room adjustment dialog sends for a fit, as text for the controller.
#ifndef TOOLS_WIRESETTINGS_H
#define TOOLS_WIRESETTINGS_H

#include "src/bsMatrix.h"

#include <QStringList>

struct RoomAdjustmentData;

/// What the dialog's record holds after OK in the matching dialog and Apply, on a controller
/// without scaling. On its way the fit goes through a quaternion and through the fine tab's number
/// boxes, which hold two decimals and no angle from -180 up to -179 degrees.
RoomAdjustmentData applied_adjustment(const bsMatrix& T_reference_measured);

/// The transformation from measured to reference points that a record brings into force.
bsMatrix motion_in_force(const RoomAdjustmentData& data);

/// Rotation, translation, scaling: each a text for the controller, in the order of sending.
QStringList wire_texts(const RoomAdjustmentData& data);

#endif
