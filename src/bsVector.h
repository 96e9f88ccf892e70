// A vector of three doubles: point, direction, translation or axis.
#ifndef SRC_BSVECTOR_H
#define SRC_BSVECTOR_H

#include <iosfwd>

/// A value type without heap memory. Lengths are in whatever unit the caller uses, angles in
/// radians unless the name says otherwise. Division by zero is not checked and gives infinities
/// or NaNs. All operators work component by component; none of them is a dot product.
class bsVector
{
public:
    double x;
    double y;
    double z;

    bsVector() : x(0.0), y(0.0), z(0.0) {}
    bsVector(double v) : x(v), y(v), z(v) {}
    bsVector(double x, double y, double z) : x(x), y(y), z(z) {}
    /// Copies three values.
    bsVector(const double* p) : x(p[0]), y(p[1]), z(p[2]) {}
    bsVector(const float* p) : x(p[0]), y(p[1]), z(p[2]) {}
    bsVector(const bsVector&) = default;
    bsVector& operator=(const bsVector&) = default;

    bsVector& setValues(double v);
    bsVector& setValues(double x, double y, double z);
    bsVector& setValues(const double* p);
    bsVector& setValues(const float* p);

    /// 0, 1, 2 for x, y, z; any other index stops the program. A const vector is indexed through
    /// the array conversion below, without a check.
    double& operator[](int i);

    /// The components as an array of three.
    operator double*() { return reinterpret_cast<double*>(this); }
    operator double const*() const { return reinterpret_cast<const double*>(this); }

    bsVector& operator+=(const bsVector& b);
    bsVector& operator-=(const bsVector& b);
    bsVector& operator*=(const bsVector& b);
    bsVector& operator*=(double d);
    bsVector& operator/=(const bsVector& b);
    /// Divides each component; the reciprocal would round differently.
    bsVector& operator/=(double d);
    /// Cross product, this being the left factor.
    bsVector& operator^=(const bsVector& b);
    /// Flips the signs, so that 0.0 becomes -0.0.
    bsVector operator-() const { return bsVector(-x, -y, -z); }

    /// Equal if every component differs by less than 1e-7. NaN is equal to nothing.
    bool operator==(const bsVector& b) const;
    bool operator!=(const bsVector& b) const { return !(*this == b); }

    /// These four ask the same of all three components, without tolerance. They are no ordering:
    /// of two vectors neither may be <= the other, and == may hold where <= does not.
    bool operator<(const bsVector& b) const { return x < b.x && y < b.y && z < b.z; }
    bool operator<=(const bsVector& b) const { return x <= b.x && y <= b.y && z <= b.z; }
    bool operator>(const bsVector& b) const { return x > b.x && y > b.y && z > b.z; }
    bool operator>=(const bsVector& b) const { return x >= b.x && y >= b.y && z >= b.z; }

    /// Takes over each component of v that is smaller (greater) than the own one.
    bsVector& minimize(const bsVector& v);
    bsVector& maximize(const bsVector& v);

    /// Scales to length 1. A vector shorter than 1e-7 stays as it is.
    bsVector& normalize();

    /// Unit vector along the nearest coordinate axis. Ties within 1e-7 go to z before y before x,
    /// and a component of 0 counts as negative: the null vector gives (0, 0, -1).
    bsVector getSnappedToAxis() const;

    /// From elevation (from the x-z plane towards +y), azimuth (from +z towards +x), both in
    /// radians, and radius.
    bsVector& setValuesFromSpherical(double elevation, double azimuth, double radius);

    static double dotProduct(const bsVector& a, const bsVector& b)
    {
        return a.x * b.x + a.y * b.y + a.z * b.z;
    }

    /// Whether the dot product, which is not normalised, is within 1e-7 of 0.
    static bool isOrthogonal(const bsVector& a, const bsVector& b);

    /// Angle between two vectors in radians (R) or degrees (D). The cosine is not clamped: a null
    /// vector gives NaN, and rounding may give NaN for vectors that are nearly parallel.
    static double getAngleR(const bsVector& a, const bsVector& b);
    static double getAngleD(const bsVector& a, const bsVector& b);
};

inline bsVector operator+(const bsVector& a, const bsVector& b)
{
    return bsVector(a.x + b.x, a.y + b.y, a.z + b.z);
}

inline bsVector operator-(const bsVector& a, const bsVector& b)
{
    return bsVector(a.x - b.x, a.y - b.y, a.z - b.z);
}

inline bsVector operator*(const bsVector& a, const bsVector& b)
{
    return bsVector(a.x * b.x, a.y * b.y, a.z * b.z);
}

inline bsVector operator*(const bsVector& a, double d)
{
    return bsVector(a.x * d, a.y * d, a.z * d);
}

inline bsVector operator/(const bsVector& a, const bsVector& b)
{
    return bsVector(a.x / b.x, a.y / b.y, a.z / b.z);
}

inline bsVector operator/(const bsVector& a, double d)
{
    return bsVector(a.x / d, a.y / d, a.z / d);
}

/// The right-handed cross product.
inline bsVector operator^(const bsVector& a, const bsVector& b)
{
    return bsVector(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
}

/// Writes "{x,y,z}" in the number format of the stream.
std::ostream& operator<<(std::ostream& out, const bsVector& v);

/// Reads three numbers, prompting for each on standard output.
std::istream& operator>>(std::istream& in, bsVector& v);

#endif
