#include "simulator/model/geometry.h"

#include <cmath>

namespace simulator
{

Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }

Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }

Vec3 operator*(double factor, const Vec3& v) { return {factor * v.x, factor * v.y, factor * v.z}; }

Vec3 cross(const Vec3& a, const Vec3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

Vec3 unit(const Vec3& v) { return (1.0 / std::sqrt(dot(v, v))) * v; }

Vec3 Mat3::column(int index) const
{
    return {columns[3 * index], columns[3 * index + 1], columns[3 * index + 2]};
}

Mat3 from_columns(const Vec3& x, const Vec3& y, const Vec3& z)
{
    return Mat3{{x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z}};
}

Mat3 transpose(const Mat3& m)
{
    return Mat3{{m(0, 0), m(0, 1), m(0, 2), m(1, 0), m(1, 1), m(1, 2), m(2, 0), m(2, 1), m(2, 2)}};
}

Mat3 operator*(const Mat3& a, const Mat3& b)
{
    return from_columns(a * b.column(0), a * b.column(1), a * b.column(2));
}

Vec3 operator*(const Mat3& m, const Vec3& v)
{
    return v.x * m.column(0) + v.y * m.column(1) + v.z * m.column(2);
}

Mat3 rotation_about(const Vec3& axis, double degrees)
{
    const double radians = degrees * std::acos(-1.0) / 180.0;
    const auto turned = [&](const Vec3& v) {
        return std::cos(radians) * v + std::sin(radians) * cross(axis, v)
               + ((1.0 - std::cos(radians)) * dot(axis, v)) * axis;
    };
    return from_columns(turned({1, 0, 0}), turned({0, 1, 0}), turned({0, 0, 1}));
}

bool is_rotation(const Mat3& m, double tolerance)
{
    const Mat3 identity;
    const Mat3 square = transpose(m) * m;
    for (size_t i = 0; i < square.columns.size(); ++i)
        if (!(std::abs(square.columns[i] - identity.columns[i]) <= tolerance))
            return false;
    return dot(cross(m.column(0), m.column(1)), m.column(2)) > 0.0;
}

Pose operator*(const Pose& a, const Pose& b) { return {a.rotation * b.rotation, a * b.position}; }

Vec3 operator*(const Pose& pose, const Vec3& point)
{
    return pose.rotation * point + pose.position;
}

Pose inverse(const Pose& pose)
{
    const Mat3 back = transpose(pose.rotation);
    return {back, -1.0 * (back * pose.position)};
}

} // namespace simulator
