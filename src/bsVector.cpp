#include "src/bsVector.h"

#include "src/bsAssert.h"

#include <cmath>
#include <iostream>

namespace
{

constexpr double tolerance = 1e-7;
constexpr double pi = 3.141592653589793;

double lengthOf(const bsVector& v) { return std::sqrt(bsVector::dotProduct(v, v)); }

bool isNear(double a, double b) { return std::fabs(a - b) < tolerance; }

double signOf(double value) { return value > 0.0 ? 1.0 : -1.0; }

} // namespace

static_assert(sizeof(bsVector) == 3 * sizeof(double), "read as an array of three doubles");

bsVector& bsVector::setValues(double v) { return *this = bsVector(v); }

bsVector& bsVector::setValues(double x, double y, double z) { return *this = bsVector(x, y, z); }

bsVector& bsVector::setValues(const double* p) { return *this = bsVector(p); }

bsVector& bsVector::setValues(const float* p) { return *this = bsVector(p); }

double& bsVector::operator[](int i)
{
    switch (i) {
    case 0:
        return x;
    case 1:
        return y;
    case 2:
        return z;
    }
    BS_ASSERT(false, "false", "src/bsVector.cpp");
    return x;
}

bsVector& bsVector::operator+=(const bsVector& b) { return *this = *this + b; }

bsVector& bsVector::operator-=(const bsVector& b) { return *this = *this - b; }

bsVector& bsVector::operator*=(const bsVector& b) { return *this = *this * b; }

bsVector& bsVector::operator*=(double d) { return *this = *this * d; }

bsVector& bsVector::operator/=(const bsVector& b) { return *this = *this / b; }

bsVector& bsVector::operator/=(double d) { return *this = *this / d; }

bsVector& bsVector::operator^=(const bsVector& b) { return *this = *this ^ b; }

bool bsVector::operator==(const bsVector& b) const
{
    return isNear(x, b.x) && isNear(y, b.y) && isNear(z, b.z);
}

bsVector& bsVector::minimize(const bsVector& v)
{
    x = v.x < x ? v.x : x;
    y = v.y < y ? v.y : y;
    z = v.z < z ? v.z : z;
    return *this;
}

bsVector& bsVector::maximize(const bsVector& v)
{
    x = v.x > x ? v.x : x;
    y = v.y > y ? v.y : y;
    z = v.z > z ? v.z : z;
    return *this;
}

bsVector& bsVector::normalize()
{
    const double length = lengthOf(*this);
    if (length < tolerance)
        return *this;
    return *this /= length;
}

bsVector bsVector::getSnappedToAxis() const
{
    const double ax = std::fabs(x);
    const double ay = std::fabs(y);
    const double az = std::fabs(z);
    if (ax - ay >= tolerance && ax - az >= tolerance)
        return bsVector(signOf(x), 0.0, 0.0);
    if (ay - az >= tolerance)
        return bsVector(0.0, signOf(y), 0.0);
    return bsVector(0.0, 0.0, signOf(z));
}

bsVector& bsVector::setValuesFromSpherical(double elevation, double azimuth, double radius)
{
    x = radius * std::cos(elevation) * std::sin(azimuth);
    y = radius * std::sin(elevation);
    z = radius * std::cos(elevation) * std::cos(azimuth);
    return *this;
}

bool bsVector::isOrthogonal(const bsVector& a, const bsVector& b)
{
    return std::fabs(dotProduct(a, b)) < tolerance;
}

double bsVector::getAngleR(const bsVector& a, const bsVector& b)
{
    return std::acos(dotProduct(a, b) / lengthOf(a) / lengthOf(b));
}

double bsVector::getAngleD(const bsVector& a, const bsVector& b)
{
    return getAngleR(a, b) * 180.0 / pi;
}

std::ostream& operator<<(std::ostream& out, const bsVector& v)
{
    return out << "{" << v.x << "," << v.y << "," << v.z << "}";
}

std::istream& operator>>(std::istream& in, bsVector& v)
{
    std::cout << "x : ";
    in >> v.x;
    std::cout << "\ny : ";
    in >> v.y;
    std::cout << "\nz : ";
    return in >> v.z;
}
