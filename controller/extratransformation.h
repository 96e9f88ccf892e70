// Writes an extra transformation to the controller.
#ifndef CONTROLLER_EXTRATRANSFORMATION_H
#define CONTROLLER_EXTRATRANSFORMATION_H

class IOManager;
struct RoomAdjustmentData;

/// The messages shown if a write fails; they differ with who writes, and why.
struct WriteMessages
{
    const char* rotation;
    const char* translation;
    const char* scaling;
};

/// Rotation, translation, scaling, always in this order; a failed write has its message and does
/// not stop the next.
void write_extra_transformation(IOManager* io_manager, const RoomAdjustmentData& data,
                                const WriteMessages& messages);

#endif
