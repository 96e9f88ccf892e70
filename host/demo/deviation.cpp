#include "host/demo/deviation.h"

#include <cmath>
#include <cstddef>
#include <limits>

namespace
{

constexpr double radians_per_degree = 3.14159265358979323846 / 180.0;
constexpr double shown_rounding = 0.005; // mm and degrees: values are shown with two decimals
constexpr double sent_rounding = 0.0005; // mm: translations are sent with three decimals
constexpr double confidence = 4.0;       // standard deviations
constexpr double degrees_of_freedom = 6.0;

} // namespace

Point Pose::operator()(const Point& point) const
{
    Point result = translation;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            result[row] += rotation[3 * row + column] * point[column];
    return result;
}

double distance(const Point& a, const Point& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

std::array<double, 9> rotation_from_angles(double rx, double ry, double rz)
{
    const double sx = std::sin(rx * radians_per_degree), cx = std::cos(rx * radians_per_degree);
    const double sy = std::sin(ry * radians_per_degree), cy = std::cos(ry * radians_per_degree);
    const double sz = std::sin(rz * radians_per_degree), cz = std::cos(rz * radians_per_degree);
    return {cy * cz,
            -cy * sz,
            sy,
            cx * sz + sx * sy * cz,
            cx * cz - sx * sy * sz,
            -sx * cy,
            sx * sz - cx * sy * cz,
            sx * cz + cx * sy * sz,
            cx * cy};
}

double largest_difference(const std::vector<double>& a, const std::vector<double>& b)
{
    if (a.size() != b.size())
        return std::numeric_limits<double>::infinity();
    double largest = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        largest = std::fmax(largest, std::fabs(a[i] - b[i]));
    return largest;
}

// Noise: the fit has six degrees of freedom, so the squared displacements of all points together
// have the expectation 6 s^2, s being the standard deviation of a mean; one point takes all of it
// at worst. Rounding of the reference points: the fit projects the rounding errors of all points,
// so one point takes their common length at worst. Rounding of the angles: three rotations by
// half a hundredth of a degree about one axis at worst.
double allowed_deviation(const MeasurementLimits& limits, const Point& room_point)
{
    const double noise = confidence * limits.noise * std::sqrt(degrees_of_freedom / limits.samples);
    const double references = shown_rounding * std::sqrt(3.0 * limits.point_count);
    const double angles =
        3.0 * shown_rounding * radians_per_degree * distance(room_point, Point{0, 0, 0});
    const double offset = std::sqrt(3.0) * (shown_rounding + sent_rounding);
    return noise + references + angles + offset;
}
