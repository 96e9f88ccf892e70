#include "simulator/room.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace simulator {

namespace {

constexpr double camera_height = 2300.0;
constexpr double wall_middle_height = 1200.0;
constexpr double object_height = 700.0;
constexpr double max_tilt = 25.0;
const Vec3 aim = {0.0, 900.0, 0.0};
const Vec3 up = {0.0, 1.0, 0.0};

/// The point of the walls that is seen from the middle at this part of a full turn.
Vec3 wall_point(double turn)
{
    const double angle = 2.0 * std::acos(-1.0) * turn;
    const double along = std::cos(angle);
    const double across = std::sin(angle);
    const double stretch = 1.0 / std::max(std::abs(along), std::abs(across));
    return {room_half_width * stretch * along, camera_height, room_half_depth * stretch * across};
}

Pose mount_camera(double turn)
{
    const Vec3 position = wall_point(turn);
    const Vec3 forward = unit(aim - position);
    const Vec3 right = unit(cross(forward, up));
    return {from_columns(right, cross(forward, right), forward), position};
}

Vec3 origin_in_world(const QByteArray& type, const std::vector<Pose>& cameras)
{
    if (type == "normal")
        return {};
    if (type == "powerwall")
        return {0.0, wall_middle_height, -room_half_depth};
    if (type == "powerwall_standing" || cameras.empty())
        return {0.0, 0.0, -room_half_depth};
    return cameras[(cameras.size() - 1) / 2].position;
}

} // namespace

std::vector<Pose> mount_cameras(int count)
{
    std::vector<Pose> cameras;
    for (int i = 0; i < count; ++i)
        cameras.push_back(mount_camera((i + 0.5) / count));
    return cameras;
}

std::vector<Vec3> object_points()
{
    return {{0.0, 0.0, 0.0},          {640.40, 12.25, -8.50},  {715.10, 298.75, 42.0},
            {412.35, 505.20, 58.60},  {-95.80, 418.90, 27.25}, {78.15, 142.45, 330.70},
            {540.60, 225.30, 284.15}, {265.25, 310.80, 205.90}};
}

Pose place_object(unsigned int seed)
{
    std::mt19937 generator(seed);
    const auto within = [&](double limit) {
        return std::uniform_real_distribution<double>(-limit, limit)(generator);
    };
    const double heading = within(180.0);
    const double tilt = within(max_tilt);
    const double roll = within(max_tilt);
    const Mat3 lying = rotation_about({1, 0, 0}, -90.0);
    const Mat3 turned = rotation_about(up, heading) * rotation_about({1, 0, 0}, tilt) *
                        rotation_about({0, 0, 1}, roll) * lying;
    const Vec3 middle = {310.0, 240.0, 120.0};
    const Vec3 stand = {850.0 + within(100.0), object_height, -350.0 + within(100.0)};
    return {turned, stand - turned * middle};
}

bool is_coordinate_type(const QByteArray& word)
{
    static const char* const words[] = {"normal", "powerwall", "powerwall_standing", "mid_camera",
                                        "none"};
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char* known) { return word == known; });
}

Pose calibration(const QByteArray& type, const std::vector<Pose>& cameras)
{
    const Mat3 axes = type == "normal" ? rotation_about({1, 0, 0}, 90.0) : Mat3();
    return {axes, -1.0 * (axes * origin_in_world(type, cameras))};
}

} // namespace simulator
