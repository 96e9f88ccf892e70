// A quaternion that holds an orientation, with the scalar part last.
#ifndef SRC_BSQUATERNION_H
#define SRC_BSQUATERNION_H

#include "src/bsMatrix.h"
#include "src/bsVector.h"

#include <iosfwd>

/// A value type without heap memory. A right-handed rotation by the angle a about the unit axis u
/// is (u sin(a/2), cos(a/2)), which agrees with bsMatrix::rotationX, rotationY and rotationZ.
/// Values are normalised only where it is said.
class bsQuaternion
{
public:
    double x;
    double y;
    double z;
    double w; ///< scalar part

    /// The identity.
    bsQuaternion() : x(0.0), y(0.0), z(0.0), w(1.0) {}
    bsQuaternion(double x, double y, double z, double w) : x(x), y(y), z(z), w(w) {}
    /// As fromAxis.
    bsQuaternion(double degrees, const bsVector& axis);
    bsQuaternion(const bsQuaternion&) = default;
    bsQuaternion& operator=(const bsQuaternion&) = default;

    bsQuaternion& setValues(double x, double y, double z, double w);

    /// Right-handed rotation about an axis of any length; the result is normalised. A null axis
    /// gives w = 1 or -1.
    bsQuaternion& fromAxis(double degrees, bsVector axis);

    /// From the upper left 3 by 3 block of m. The result is not normalised: a block that is no
    /// rotation gives a quaternion of another length, or NaNs. A half turn whose trace rounds to
    /// barely above -1 loses its axis, since the trace is compared without tolerance.
    bsQuaternion& fromMatrix(const bsMatrix& m);

    /// All sixteen elements, from the quaternion as it is, unit or not.
    bsMatrix& toMatrix(bsMatrix& out) const;
    bsMatrix toMatrix() const;

    /// Scales to length 1; anything shorter than 1e-7 becomes the identity.
    bsQuaternion& normalize();

    /// Normalised Hamilton product, this being the left factor.
    bsQuaternion& operator*=(const bsQuaternion& q);

    /// Becomes the spherical interpolation from a (t = 0) to b (t = 1), not normalised. Opposite
    /// quaternions have no shortest way: for a = -b the result is (0, 0, 0, a.z).
    void slerp(const bsQuaternion& a, const bsQuaternion& b, double t);
};

/// Normalised Hamilton product: its matrix is that of p times that of q.
bsQuaternion operator*(const bsQuaternion& p, const bsQuaternion& q);

/// Writes "{x, y, z, w}" in the number format of the stream.
std::ostream& operator<<(std::ostream& out, const bsQuaternion& q);

/// Reads four numbers, prompting for each on standard output.
std::istream& operator>>(std::istream& in, bsQuaternion& q);

#endif
