// What a person in the room can touch: the object, the tools, the stick.
#ifndef SIMULATOR_MODEL_WORLD_H
#define SIMULATOR_MODEL_WORLD_H

#include "simulator/model/room.h"
#include "simulator/model/setup.h"

#include <array>
#include <vector>

namespace simulator
{

/// A Measurement Tool. It points straight down in the world.
struct Tool
{
    Vec3 tip; ///< world coordinates
    bool hidden = false;
    std::array<bool, 3> pressed = {}; ///< buttons 1 to 3
};

struct Stick
{
    Vec3 position; ///< world coordinates
    std::array<bool, 6> pressed = {};
};

/// All positions are world coordinates, in mm.
struct World
{
    explicit World(const Setup& setup);

    Vec3 object_point(int index) const;
    Tool* held_tool(); ///< null if there is none
    const Tool* held_tool() const;

    std::vector<Pose> cameras; ///< T_world_camera
    std::vector<Vec3> points;  ///< of the object, in its own coordinates
    Pose object;               ///< T_world_object
    std::vector<Tool> tools;
    Stick stick;
    int held = 0;       ///< index of the tool in the person's hand
    double shake = 0.0; ///< standard deviation of the hand's trembling, per axis
};

} // namespace simulator

#endif
