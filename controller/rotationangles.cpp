#include "controller/rotationangles.h"

#include <algorithm>
#include <cmath>

namespace
{

/// The exact value that `element` is close to; false if it is close to none.
bool nearest_exact(double element, double& exact)
{
    const double candidates[][3] = {
        {-0.000001, 0.0, 0.000001}, {0.999999, 1.0, 1.000001}, {-1.000001, -1.0, -0.999999}};
    for (const double(&candidate)[3] : candidates) {
        if (element > candidate[0] && element < candidate[2]) {
            exact = candidate[1];
            return true;
        }
    }
    return false;
}

/// The degree constant is a little too large, so an angle of -pi comes out just below -180.
double without_overshoot(double degrees)
{
    return degrees > -180.01 && degrees < -180.0 ? 180.0 : degrees;
}

} // namespace

void _angles2matrix(double* m, double rx, double ry, double rz)
{
    const double sx = std::sin(rx / room_degrees_per_radian);
    const double cx = std::cos(rx / room_degrees_per_radian);
    const double sy = std::sin(ry / room_degrees_per_radian);
    const double cy = std::cos(ry / room_degrees_per_radian);
    const double sz = std::sin(rz / room_degrees_per_radian);
    const double cz = std::cos(rz / room_degrees_per_radian);
    m[0] = cy * cz;
    m[1] = sz * cx + cz * sy * sx;
    m[2] = sz * sx - cz * sy * cx;
    m[3] = -sz * cy;
    m[4] = cz * cx - sz * sy * sx;
    m[5] = cz * sx + sz * sy * cx;
    m[6] = sy;
    m[7] = -cy * sx;
    m[8] = cx * cy;
}

void angles_to_rotation(double rx, double ry, double rz, double* elements)
{
    _angles2matrix(elements, rx, ry, rz);
    std::swap(elements[1], elements[3]);
    std::swap(elements[2], elements[6]);
    std::swap(elements[5], elements[7]);
}

void rotation_to_angles(const double* elements, double& rx, double& ry, double& rz)
{
    const double(*R)[3] = reinterpret_cast<const double(*)[3]>(elements);
    const double K = room_degrees_per_radian;
    // A foreign value a digit above 1 is a right angle, not a number that does not exist.
    ry = std::asin(std::max(-1.0, std::min(1.0, R[0][2]))) * K;
    if ((R[1][2] == 0.0 && R[2][2] == 0.0) || (R[0][1] == 0.0 && R[0][0] == 0.0)) {
        rz = 0.0;
        rx = std::atan2(R[2][1], R[1][1]) * K;
    } else {
        rx = std::atan2(R[1][2], R[2][2]) * -K;
        rz = std::atan2(R[0][1], R[0][0]) * -K;
    }
    rx = without_overshoot(rx);
    ry = without_overshoot(ry);
    rz = without_overshoot(rz);
}

void beautify_rotation(double* elements)
{
    double exact[9];
    for (int i = 0; i < 9; ++i)
        if (!nearest_exact(elements[i], exact[i]))
            return;
    std::copy(exact, exact + 9, elements);
}

bool is_default_transformation(const double* translation, const double* rotation, double scaling)
{
    const double* r = rotation;
    return translation[0] + translation[1] + translation[2] == 0.0
           && r[1] + r[2] + r[3] + r[5] + r[6] + r[7] == 0.0 && r[0] + r[4] + r[8] == 3.0
           && scaling == 1.0;
}
