// Points, rotations and poses of the simulated room.
#ifndef SIMULATOR_MODEL_GEOMETRY_H
#define SIMULATOR_MODEL_GEOMETRY_H

#include <array>

namespace simulator
{

struct Vec3
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

Vec3 operator+(const Vec3& a, const Vec3& b);
Vec3 operator-(const Vec3& a, const Vec3& b);
Vec3 operator*(double factor, const Vec3& v);
Vec3 cross(const Vec3& a, const Vec3& b);
double dot(const Vec3& a, const Vec3& b);
/// `v` must not be the null vector.
Vec3 unit(const Vec3& v);

/// A 3 by 3 matrix, the identity at first. Given and listed column after column, as the
/// controller's texts hold it.
struct Mat3
{
    std::array<double, 9> columns = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};

    double operator()(int row, int column) const { return columns[row + 3 * column]; }
    Vec3 column(int index) const;
};

Mat3 from_columns(const Vec3& x, const Vec3& y, const Vec3& z);
Mat3 transpose(const Mat3& m);
Mat3 operator*(const Mat3& a, const Mat3& b);
Vec3 operator*(const Mat3& m, const Vec3& v);

/// Right-handed rotation about a unit axis.
Mat3 rotation_about(const Vec3& axis, double degrees);

/// True if the columns are orthonormal and right-handed, each product within `tolerance`. Eight
/// decimals, as they come over the line, pass at 1e-6.
bool is_rotation(const Mat3& m, double tolerance);

/// A rigid motion. Named T_to_from, it takes coordinates of `from` to coordinates of `to`.
struct Pose
{
    Mat3 rotation;
    Vec3 position;
};

Pose operator*(const Pose& a, const Pose& b);
Vec3 operator*(const Pose& pose, const Vec3& point);
Pose inverse(const Pose& pose);

} // namespace simulator

#endif
