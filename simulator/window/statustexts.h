// The texts of the window's status line.
#ifndef SIMULATOR_WINDOW_STATUSTEXTS_H
#define SIMULATOR_WINDOW_STATUSTEXTS_H

#include "simulator/model/simulator.h"

#include "simulator/window/roomcolors.h"

#include <QString>

namespace simulator
{

/// Rich text: whether tracking runs, and what the held tool does, with a lamp in one of the colors.
QString tracking_text(const Simulator& simulator, const RoomColors& colors);

/// The held tool's tip as it is reported, without noise.
QString tip_text(const Simulator& simulator);

/// Translation, scale, and the rotation as an angle about an axis of the calibrated room.
QString extra_text(const ExtraTransformation& extra);

} // namespace simulator

#endif
