// How the order search keeps to the caps of rotations that can matter.
#include "pairing/rotationsearch.h"

#include "pairing/rotationfit.h"

#include <algorithm>
#include <cmath>

namespace
{

const double surround_angle = 0.05; // of the ball within a tetrahedron around a small cap

/// Corners of a tetrahedron of quaternions that holds all within `surround_angle` of the center.
void surround(double (*corners)[4], const double* center)
{
    const double w = center[0], x = center[1], y = center[2], z = center[3];
    const double tangents[3][4] = {{-x, w, z, -y}, {-y, -z, w, x}, {-z, y, -x, w}};
    const double directions[4][3] = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
    const double inner_radius = 1.0 / std::sqrt(3.0); // of the tetrahedron of these directions
    const double reach = std::tan(surround_angle) / inner_radius;
    for (int k = 0; k < 4; ++k) {
        const double length = std::sqrt(1.0 + 3.0 * reach * reach);
        for (int r = 0; r < 4; ++r) {
            double sum = center[r];
            for (int axis = 0; axis < 3; ++axis)
                sum += reach * directions[k][axis] * tangents[axis][r];
            corners[k][r] = sum / length;
        }
    }
}

} // namespace

/// Returns false if no cap reaches into the tetrahedron.
bool RotationSearch::find_near_caps(NearCaps* near, const Tetrahedron& t,
                                    const NearCaps& caps) const
{
    double center[4];
    for (int r = 0; r < 4; ++r)
        center[r] = t.corner[0][r] + t.corner[1][r] + t.corner[2][r] + t.corner[3][r];
    const double length = std::sqrt(quaternion_dot(center, center));
    double cosine = 1.0;
    for (int k = 0; k < corners; ++k)
        cosine = std::min(cosine, quaternion_dot(center, t.corner[k]) / length);
    const double sine = std::sqrt(1.0 - cosine * cosine);
    for (int r = 0; r < 4; ++r)
        center[r] /= length;

    near->count = 0;
    for (int c = 0; c < caps.count; ++c)
        if (m_caps.is_near(caps.caps[c], center, cosine, sine))
            near->caps[near->count++] = caps.caps[c];
    return near->count > 0;
}

/// If all caps are small, visits a tetrahedron around each that no earlier one holds.
void RotationSearch::visit_around_caps(const NearCaps& caps)
{
    const double cosine = std::cos(surround_angle);
    const double sine = std::sin(surround_angle);
    NearCaps visited;
    visited.count = 0;
    for (int c = 0; c < caps.count; ++c) {
        bool is_held = false;
        for (int v = 0; v < visited.count && !is_held; ++v)
            is_held = m_caps.is_inside(c, m_caps.center(visited.caps[v]), cosine, sine);
        if (is_held)
            continue;
        visited.caps[visited.count++] = short(c);
        visit_around(m_caps.center(c), caps);
    }
}

void RotationSearch::visit_around(const double* center, const NearCaps& caps)
{
    double corner[corners][4];
    Product products[corners][corners];
    Tetrahedron t;
    surround(corner, center);
    for (int k = 0; k < corners; ++k) {
        t.corner[k] = corner[k];
        for (int l = 0; l <= k; ++l) {
            init(&products[k][l], corner[k], corner[l], m_start_price);
            t.product[k][l] = t.product[l][k] = &products[k][l];
        }
    }
    visit(t, caps);
}
