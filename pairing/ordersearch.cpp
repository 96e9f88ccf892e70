// The outcome is that of a walk through all n! orders in lexicographic sequence, which fits each of
// them and keeps the best; ordercontest.h tells how a winner follows from that. An order that
// succeeds takes part in the same way whenever it is met, so the sequence is free, and only orders
// are passed over for which a bound proves that they cannot change the outcome:
//  - those whose first triple is degenerate, as their fit fails;
//  - those whose residual with the best of all rotations lies above the ceiling of the contest
//    (rotationsearch.h): the fit starts from a rotation and multiplies it by rotations;
//  - where the start is no rotation but for rounding, those whose residual with the best linear map
//    lies above it (prefixsearch.h).
// If no order succeeds, or if the lists are so bad that the best one succeeds with a residual that
// many orders can reach, the time is that of fitting all of these.
#include "pairing/ordersearch.h"

#include "pairing/centeredpoints.h"
#include "pairing/ordercontest.h"
#include "pairing/prefixsearch.h"
#include "pairing/rotationsearch.h"
#include "registration/trafo3d.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{

const int triple_size = 3;
const double infinity = std::numeric_limits<double>::infinity();

/// What the start of a fit makes of three points.
enum TripleShape
{
    degenerate, ///< no start, every order with it fails
    doubtful,   ///< nearly collinear: the start may be far from a rotation
    sound       ///< the start is a rotation within 1e-10
};

double square_sum(const double* v) { return v[0] * v[0] + v[1] * v[1] + v[2] * v[2]; }

/// Whether rounding leaves the axes of the triple orthonormal within 1e-10.
bool is_well_shaped(const double* p0, const double* p1, const double* p2)
{
    const double least_square_sine = 1e-10;
    const double smallest = 1e-250; // far from where squares lose digits
    double u[3], v[3], w[3];
    for (int c = 0; c < 3; ++c) {
        u[c] = p1[c] - p0[c];
        v[c] = p2[c] - p0[c];
    }
    for (int c = 0; c < 3; ++c)
        w[c] = u[(c + 1) % 3] * v[(c + 2) % 3] - u[(c + 2) % 3] * v[(c + 1) % 3];
    const double uu = square_sum(u), vv = square_sum(v), ww = square_sum(w);
    return uu > smallest && vv > smallest && ww > smallest && uu < 1.0 / smallest
           && vv < 1.0 / smallest && ww < 1.0 / smallest && ww > least_square_sine * uu * vv;
}

bool are_finite(const double (*points)[3], int n)
{
    for (int i = 0; i < n; ++i)
        for (int c = 0; c < 3; ++c)
            if (!std::isfinite(points[i][c]))
                return false;
    return true;
}

/// The search for one pair of lists.
class OrderSearch
{
public:
    OrderSearch(const double (*reference)[3], const double (*measured)[3], int n);
    bool run(int* order);

private:
    TripleShape shape(const int* triple);
    bool has_sound_triples();
    bool has_success() const { return m_contest.ceiling() < infinity; }
    void enter_orders_from(TripleShape least_shape, TripleShape most_shape, bool until_success);
    template <typename Action>
    void for_each_triple(Action action);

    const double (*m_measured)[3];
    const int n;
    double m_first_reference[triple_size][3];
    bool m_reference_is_well_shaped;
    CenteredPoints m_points;
    OrderContest m_contest;
    const double m_tolerance;
};

/// How far a fit with a sound start can fall below the residual of the best rotation: by how much
/// its matrix can stretch the points, and by the rounding of points of size one.
double rigid_tolerance(const CenteredPoints& points)
{
    return 1e-9 * std::sqrt(points.measured_sum / points.n) + 1e-13;
}

OrderSearch::OrderSearch(const double (*reference)[3], const double (*measured)[3], int n_)
    : m_measured(measured), n(n_),
      m_reference_is_well_shaped(is_well_shaped(reference[0], reference[1], reference[2])),
      m_points(reference, measured, n_), m_contest(reference, measured, n_),
      m_tolerance(rigid_tolerance(m_points))
{
    std::memcpy(m_first_reference, reference, sizeof m_first_reference);
}

TripleShape OrderSearch::shape(const int* triple)
{
    double first[triple_size][3];
    for (int k = 0; k < triple_size; ++k)
        std::memcpy(first[k], m_measured[triple[k]], sizeof first[k]);
    if (m_reference_is_well_shaped && is_well_shaped(first[0], first[1], first[2]))
        return sound;
    double unused[4][4];
    return trafo3d_3trafo(unused, m_first_reference, first) == 0 ? doubtful : degenerate;
}

/// Calls action(triple) for all triples of different measured points until it returns false.
template <typename Action>
void OrderSearch::for_each_triple(Action action)
{
    int t[triple_size];
    for (t[0] = 0; t[0] < n; ++t[0])
        for (t[1] = 0; t[1] < n; ++t[1])
            for (t[2] = 0; t[2] < n; ++t[2])
                if (t[0] != t[1] && t[0] != t[2] && t[1] != t[2] && !action(t))
                    return;
}

bool OrderSearch::has_sound_triples()
{
    bool found = false;
    for_each_triple([&](const int* triple) {
        found = shape(triple) == sound;
        return !found;
    });
    return found;
}

void OrderSearch::enter_orders_from(TripleShape least_shape, TripleShape most_shape,
                                    bool until_success)
{
    PrefixSearch search(m_points, &m_contest, m_tolerance);
    for_each_triple([&](const int* triple) {
        const TripleShape found = shape(triple);
        if (found >= least_shape && found <= most_shape)
            search.enter_orders(triple, until_success);
        return !(until_success && has_success());
    });
}

bool OrderSearch::run(int* order)
{
    const bool any_sound = has_sound_triples();
    RotationSearch rotations(m_points, &m_contest, m_tolerance);
    if (any_sound)
        rotations.enter_good_orders();
    if (!has_success())
        enter_orders_from(doubtful, sound, true);
    if (has_success()) {
        const bool done = !any_sound || rotations.enter_orders_within_reach();
        enter_orders_from(doubtful, done ? doubtful : sound, false);
    }
    return m_contest.winner(order);
}

/// Whether the first three points give no start at all.
bool is_degenerate(const double (*points)[3])
{
    double first[triple_size][3];
    double unused[4][4];
    std::memcpy(first, points, sizeof first);
    return trafo3d_3trafo(unused, first, first) != 0;
}

} // namespace

bool find_best_order(const double (*reference)[3], const double (*measured)[3], int n, int* order)
{
    if (n < triple_size || n > trafo3d_max_points)
        return false;
    // A coordinate that is no number leaves no residual that is one, and no fit succeeds.
    if (!are_finite(reference, n) || !are_finite(measured, n) || is_degenerate(reference))
        return false;
    return OrderSearch(reference, measured, n).run(order);
}
