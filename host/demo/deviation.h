// How far the adjusted room may be from the truth, and how far it is.
#ifndef HOST_DEMO_DEVIATION_H
#define HOST_DEMO_DEVIATION_H

#include <array>
#include <vector>

using Point = std::array<double, 3>; ///< mm

/// Takes a point p to R p + t. The rotation stands row after row.
struct Pose
{
    std::array<double, 9> rotation = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    Point translation = {0, 0, 0};

    Point operator()(const Point& point) const;
};

double distance(const Point& a, const Point& b);

/// Rx(rx) Ry(ry) Rz(rz), right-handed, angles in degrees; row after row.
std::array<double, 9> rotation_from_angles(double rx, double ry, double rz);

/// The largest difference between elements that belong together; infinite if the lists differ in
/// length.
double largest_difference(const std::vector<double>& a, const std::vector<double>& b);

/// What limits the result of a matching.
struct MeasurementLimits
{
    double noise;    ///< standard deviation per axis of one measured position, mm
    double samples;  ///< positions that are averaged for one point
    int point_count; ///< pairs that the fit uses
};

/// Upper limit, in mm, for the distance between a reported point of the object and its reference
/// point. `room_point` is where the point lies in the calibrated room: the rounding of the shown
/// angles acts with the distance from the room's origin.
double allowed_deviation(const MeasurementLimits& limits, const Point& room_point);

#endif
