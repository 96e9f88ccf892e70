#include "simulator/model/world.h"

namespace simulator
{

namespace
{

const Vec3 start_of_hand = {-450.0, 1000.0, 350.0};
const Vec3 start_of_stick = {-1200.0, 1100.0, -500.0};
const Vec3 table_edge = {-1500.0, 800.0, 950.0};
const Vec3 table_spacing = {180.0, 0.0, 0.0};

} // namespace

World::World(const Setup& setup)
    : cameras(mount_cameras(setup.cameras)), points(object_points()),
      object(place_object(setup.seed)), tools(setup.tools)
{
    for (size_t i = 0; i < tools.size(); ++i)
        tools[i].tip = i == 0 ? start_of_hand : table_edge + double(i - 1) * table_spacing;
    stick.position = start_of_stick;
}

Vec3 World::object_point(int index) const { return object * points.at(index); }

Tool* World::held_tool() { return tools.empty() ? nullptr : &tools[held]; }

const Tool* World::held_tool() const { return tools.empty() ? nullptr : &tools[held]; }

} // namespace simulator
