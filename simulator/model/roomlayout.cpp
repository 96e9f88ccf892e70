#include "simulator/model/roomlayout.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace simulator
{

namespace
{

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

Vec3 nearest_to_rear_wall(const std::vector<Pose>& cameras)
{
    const auto distance = [](const Pose& camera) {
        const Vec3 way = camera.position - Vec3{0.0, camera_height, -room_half_depth};
        return dot(way, way);
    };
    return std::min_element(cameras.begin(), cameras.end(),
                            [&](const Pose& a, const Pose& b) { return distance(a) < distance(b); })
        ->position;
}

Vec3 origin_in_world(const QByteArray& type, const std::vector<Pose>& cameras)
{
    if (type == "normal")
        return {};
    if (type == "powerwall")
        return {0.0, wall_middle_height, -room_half_depth};
    if (type == "powerwall_standing" || cameras.empty())
        return {0.0, 0.0, -room_half_depth};
    return nearest_to_rear_wall(cameras);
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
    return {{0.0, 0.0, 0.0},          {480.40, -62.25, 35.50},  {905.10, 48.75, -20.00},
            {842.35, 385.20, 58.60},  {560.80, 610.90, 127.25}, {118.15, 542.45, -40.70},
            {610.60, 265.30, 214.15}, {225.25, 250.80, 105.90}};
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
    const Mat3 turned = rotation_about(up, heading) * rotation_about({1, 0, 0}, tilt)
                        * rotation_about({0, 0, 1}, roll) * lying;
    const Vec3 middle = {450.0, 260.0, 60.0};
    const Vec3 stand = {900.0 + within(100.0), object_height, -300.0 + within(100.0)};
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
