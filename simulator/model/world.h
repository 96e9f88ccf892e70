// Where everything in the room is at the moment: cameras, object, tools, stick.
#ifndef SIMULATOR_MODEL_WORLD_H
#define SIMULATOR_MODEL_WORLD_H

#include "simulator/model/roomlayout.h"
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

    static constexpr int max_measured = 200;
    static constexpr double on_point = 1.0; ///< mm; a tip that is not further off touches a point

    Vec3 object_point(int index) const;
    /// The object's point, from 0, that the tip of a tool is on; -1 for none.
    int touched_point(const Tool& tool) const;
    /// Keeps that a measurement has just been completed there. A full list begins anew.
    void note_measurement(const Tool& tool);
    Tool* held_tool(); ///< null if there is none
    const Tool* held_tool() const;

    std::vector<Pose> cameras; ///< T_world_camera
    std::vector<Vec3> points;  ///< of the object, in its own coordinates
    Pose object;               ///< T_world_object
    std::vector<Tool> tools;
    Stick stick;
    /// The points, from 0, that have been measured, in order; -1 for a place off all points.
    std::vector<int> measured;
    int held = 0;       ///< index of the tool in the person's hand
    double shake = 0.0; ///< standard deviation of the hand's trembling, per axis
};

} // namespace simulator

#endif
