#include "pairing/rotationcaps.h"

#include "pairing/rotationfit.h"
#include "pairing/searchbudget.h"

#include <algorithm>
#include <cmath>

namespace
{

double distance(const double* a, const double* b)
{
    const double d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
}

} // namespace

RotationCaps::RotationCaps(const CenteredPoints& points, SearchBudget* budget)
    : m_points(points), m_budget(budget), m_count(0)
{
    for (int i = 0; i < points.n; ++i) {
        m_outside_in[i] = i;
        m_reference_radius[i] = std::sqrt(points.reference_square[i]);
        m_measured_radius[i] = std::sqrt(points.measured_square[i]);
    }
    sort_outside_in(m_outside_in, m_outside_in + points.n, points.reference_square);
}

bool RotationCaps::find(double least_trace)
{
    m_count = 0;
    const int groups = m_points.n / group_size;
    const double most = m_points.reference_sum + m_points.measured_sum - 2.0 * least_trace;
    for (int g = 0; g < groups; ++g) {
        // One point from far out, one from the middle, one from inside. What is left over is dealt
        // out to the groups, as only shares that sum up to all points prove anything.
        const int group[group_size] = {m_outside_in[g], m_outside_in[g + groups],
                                       m_outside_in[g + 2 * groups]};
        const int left_over = m_points.n - group_size * groups;
        const int members = group_size + left_over / groups + (g < left_over % groups);
        if (!add_caps(group, most * members / m_points.n))
            return false;
    }
    return true;
}

/// Whether a triple of measured points, complete up to its `last`, can stay within the share.
bool RotationCaps::fits(const int* group, const int* triple, int last, double share) const
{
    const double rounding = 1e-12; // coordinates are below one
    const double most = share + rounding;
    const int i = group[last], j = triple[last];
    const double radial = m_reference_radius[i] - m_measured_radius[j];
    if (radial * radial > most)
        return false;
    for (int k = 0; k < last; ++k) {
        if (triple[k] == j)
            return false;
        // Two errors with the square sum e change a distance by sqrt(2 e) at most.
        const double change = distance(m_points.reference[i], m_points.reference[group[k]])
                              - distance(m_points.measured[j], m_points.measured[triple[k]]);
        if (change * change > 2.0 * most)
            return false;
    }
    return true;
}

bool RotationCaps::add_caps(const int* group, double share)
{
    const double triple_work = 5.0;
    const int n = m_points.n;
    int t[group_size];
    for (t[0] = 0; t[0] < n; ++t[0]) {
        if (!fits(group, t, 0, share))
            continue;
        for (t[1] = 0; t[1] < n; ++t[1]) {
            if (!fits(group, t, 1, share))
                continue;
            m_budget->spend(triple_work * n);
            if (m_budget->is_over())
                return false;
            for (t[2] = 0; t[2] < n; ++t[2])
                if (fits(group, t, 2, share) && !add_cap(group, t, share))
                    return false;
        }
    }
    return true;
}

bool RotationCaps::add_cap(const int* group, const int* triple, double share)
{
    const double rounding = 1e-9; // of traces, generously
    double H[3][3] = {{0.0}};
    double squares = 0.0;
    for (int k = 0; k < group_size; ++k) {
        add_pair(H, m_points.reference[group[k]], m_points.measured[triple[k]]);
        squares += m_points.reference_square[group[k]] + m_points.measured_square[triple[k]];
    }
    const double least = 0.5 * (squares - share) - rounding;
    if (trace_stays_below(H, least))
        return true;

    Cap cap;
    double second;
    const double first = best_rotation(H, cap.quaternion, &second);
    if (first < least)
        return true;
    const double square_sine = (first - least) / (first - second);
    if (!(square_sine < 1.0) || m_count == capacity)
        return false;
    cap.sine = std::sqrt(square_sine);
    cap.cosine = std::sqrt(1.0 - square_sine);
    m_caps[m_count++] = cap;
    return true;
}

bool RotationCaps::is_near(int cap, const double* center, double cosine, double sine) const
{
    const double rounding = 1e-6;
    const Cap& c = m_caps[cap];
    return std::fabs(quaternion_dot(c.quaternion, center))
           >= c.cosine * cosine - c.sine * sine - rounding;
}

bool RotationCaps::is_inside(int cap, const double* center, double cosine, double sine) const
{
    const double rounding = 1e-6;
    const Cap& c = m_caps[cap];
    return std::fabs(quaternion_dot(c.quaternion, center))
           >= c.cosine * cosine + c.sine * sine + rounding;
}

double RotationCaps::widest_sine() const
{
    double widest = 0.0;
    for (int c = 0; c < m_count; ++c)
        widest = std::max(widest, m_caps[c].sine);
    return widest;
}
