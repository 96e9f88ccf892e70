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

int World::touched_point(const Tool& tool) const
{
    for (size_t i = 0; i < points.size(); ++i) {
        const Vec3 way = object_point(int(i)) - tool.tip;
        if (dot(way, way) <= on_point * on_point)
            return int(i);
    }
    return -1;
}

void World::note_measurement(const Tool& tool)
{
    if (measured.size() >= max_measured)
        measured.clear();
    measured.push_back(touched_point(tool));
}

Tool* World::held_tool() { return tools.empty() ? nullptr : &tools[held]; }

const Tool* World::held_tool() const { return tools.empty() ? nullptr : &tools[held]; }

} // namespace simulator
