#include "pairing/tripleshapes.h"

#include "registration/trafo3d.h"

#include <cstring>

namespace
{

const double smallest = 1e-250; // far from where squares lose digits

struct Leg
{
    double v[3];
    double square;
    bool is_usable;
};

Leg leg_between(const double* from, const double* to)
{
    Leg leg;
    for (int c = 0; c < 3; ++c)
        leg.v[c] = to[c] - from[c];
    leg.square = leg.v[0] * leg.v[0] + leg.v[1] * leg.v[1] + leg.v[2] * leg.v[2];
    leg.is_usable = leg.square > smallest && leg.square < 1.0 / smallest;
    return leg;
}

/// Whether rounding leaves the axes of the triple with these two legs orthonormal within 1e-10; the
/// same for both sequences of the legs.
bool are_well_shaped(const Leg& u, const Leg& v)
{
    const double least_square_sine = 1e-10;
    const double x = u.v[1] * v.v[2] - u.v[2] * v.v[1];
    const double y = u.v[2] * v.v[0] - u.v[0] * v.v[2];
    const double z = u.v[0] * v.v[1] - u.v[1] * v.v[0];
    const double square = x * x + y * y + z * z;
    return u.is_usable && v.is_usable && square > smallest && square < 1.0 / smallest
           && square > least_square_sine * (u.square * v.square);
}

bool is_well_shaped(const double* p0, const double* p1, const double* p2)
{
    return are_well_shaped(leg_between(p0, p1), leg_between(p0, p2));
}

} // namespace

TripleShapes::TripleShapes(const double (*reference)[3], const double (*measured)[3], int n)
    : m_reference(reference), m_measured(measured), m_n(n),
      m_reference_is_well_shaped(is_well_shaped(reference[0], reference[1], reference[2])),
      m_has_sound(false), m_has_others(!m_reference_is_well_shaped)
{
    for (int first = 0; m_reference_is_well_shaped && first < n; ++first)
        look_at_triples_from(first);
}

void TripleShapes::look_at_triples_from(int first)
{
    Leg legs[trafo3d_max_points];
    int count = 0;
    for (int j = 0; j < m_n; ++j)
        if (j != first)
            legs[count++] = leg_between(m_measured[first], m_measured[j]);
    for (int k = 1; k < count; ++k)
        for (int l = 0; l < k; ++l) {
            const bool is_sound = are_well_shaped(legs[k], legs[l]);
            m_has_sound = m_has_sound || is_sound;
            m_has_others = m_has_others || !is_sound;
        }
}

TripleShape TripleShapes::shape(const int* triple) const
{
    if (m_reference_is_well_shaped
        && is_well_shaped(m_measured[triple[0]], m_measured[triple[1]], m_measured[triple[2]]))
        return sound_triple;
    double target[size][3];
    double source[size][3];
    double unused[4][4];
    std::memcpy(target, m_reference, sizeof target);
    for (int k = 0; k < size; ++k)
        std::memcpy(source[k], m_measured[triple[k]], sizeof source[k]);
    return trafo3d_3trafo(unused, target, source) == 0 ? doubtful_triple : degenerate_triple;
}
