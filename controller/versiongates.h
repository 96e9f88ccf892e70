// The backend versions from which on the module may use each feature.
#ifndef CONTROLLER_VERSIONGATES_H
#define CONTROLLER_VERSIONGATES_H

#include "contract/backendversions.h"

namespace version_gate
{

const VersionGate camera_table = {0, 9};
const VersionGate extra_transformation = {0, 16};
const VersionGate tracking_available = {0, 17};
const VersionGate config_changeable = {1, 9};
const VersionGate last_coordinate_type = {1, 9};
const VersionGate has_room = {1, 18};

} // namespace version_gate

#endif
