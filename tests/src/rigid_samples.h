// Rotations and poses that are hard to convert, shared by the tests of the geometry kernel.
#ifndef TESTS_SRC_RIGID_SAMPLES_H
#define TESTS_SRC_RIGID_SAMPLES_H

#include "src/bsMatrix.h"

#include <cmath>
#include <vector>

/// Multiples of 90 degrees, 1e-6 beside them, and ordinary angles, in degrees.
inline std::vector<double> hard_angles()
{
    return {-180, -179.999999, -90.000001, -90, -89.999999, -33.3, -1e-6,
            0,    1e-6,        45,         90,  90.000001,  120,   180};
}

/// Rx Ry Rz over all triples of hard angles, with a translation that makes rounding visible.
inline std::vector<bsMatrix> hard_poses()
{
    std::vector<bsMatrix> poses;
    for (double rx : hard_angles())
        for (double ry : hard_angles())
            for (double rz : hard_angles()) {
                const bsMatrix rotation =
                    bsMatrix().rotationX(rx) * bsMatrix().rotationY(ry) * bsMatrix().rotationZ(rz);
                poses.push_back(bsMatrix().translation(10 * rx, -7 * ry, 1000 + rz) * rotation);
            }
    return poses;
}

/// Whether the pose survives the way through a quaternion. Just above a trace of -1 the scalar
/// part is taken for large enough and divides rounding errors; a half turn can lose its axis.
inline bool has_safe_trace(const bsMatrix& m)
{
    const double above_half_turn = m(0, 0) + m(1, 1) + m(2, 2) + 1.0;
    return above_half_turn <= 0.0 || above_half_turn > 1e-9;
}

/// The largest absolute difference of two elements; infinite if there is a NaN.
inline double largest_difference(const bsMatrix& a, const bsMatrix& b)
{
    double largest = 0.0;
    for (int i = 0; i < 16; ++i) {
        const double difference = std::fabs(a[i] - b[i]);
        if (!(difference <= largest))
            largest = std::isnan(difference) ? HUGE_VAL : difference;
    }
    return largest;
}

#endif
