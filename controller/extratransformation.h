// Writes an extra transformation to the controller.
#ifndef CONTROLLER_EXTRATRANSFORMATION_H
#define CONTROLLER_EXTRATRANSFORMATION_H

#include "controller/roomadjustmentdata.h"

class IOManager;

/// The messages shown if a write fails; they differ with who writes, and why. Null is silence.
struct WriteMessages
{
    const char* rotation;
    const char* translation;
    const char* scaling;
};

/// Rotation, translation, scaling, always in this order; a failed write has its message and does
/// not stop the next. `data` is a copy: its owner may be gone once a message has been shown.
void write_extra_transformation(IOManager* io_manager, RoomAdjustmentData data,
                                const WriteMessages& messages);

#endif
