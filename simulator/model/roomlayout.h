// How the room is laid out: cameras on its walls, the object in it, and how it can be calibrated.
#ifndef SIMULATOR_MODEL_ROOMLAYOUT_H
#define SIMULATOR_MODEL_ROOMLAYOUT_H

#include "simulator/model/geometry.h"

#include <QByteArray>
#include <vector>

namespace simulator
{

/// World coordinates, in mm: x to the right, y up, z towards the viewer who stands before the
/// front wall; the origin is the middle of the floor.
constexpr double room_half_width = 2100.0;
constexpr double room_half_depth = 1600.0;

/// Poses T_world_camera of `count` cameras spread along the walls, looking to the room's middle.
std::vector<Pose> mount_cameras(int count);

/// The object's points in its own coordinates, in mm with two decimals. No two triangles of them
/// are congruent, so that there is one right pairing only.
std::vector<Vec3> object_points();

/// A pose T_world_object that depends on the seed: any heading, tilted by up to 25 degrees.
Pose place_object(unsigned int seed);

/// True for the words of the controller, "none" included.
bool is_coordinate_type(const QByteArray& word);

/// T_room_world of a calibration of this type, which must not be "none". "normal" has its origin
/// on the floor and z up; the others have y up, with the origin in the middle of the rear wall,
/// at its foot, or in the camera nearest to its middle.
Pose calibration(const QByteArray& type, const std::vector<Pose>& cameras);

} // namespace simulator

#endif
