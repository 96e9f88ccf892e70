// The outcome is that of a walk through all n! orders in lexicographic sequence, which fits each of
// them and keeps the best; ordercontest.h tells how a winner follows from that. An order that
// succeeds takes part in the same way whenever it is met, so the sequence is free, and only orders
// are passed over for which a bound proves that they cannot change the outcome:
//  - those whose first triple is degenerate, as their fit fails;
//  - those whose residual with the best of all rotations lies above the ceiling of the contest
//    (orderwalk.h, rotationsearch.h): the fit starts from a rotation and multiplies it by
//    rotations;
//  - where the start is no rotation but for rounding, those whose residual with the best linear map
//    lies above it (prefixsearch.h).
// If no order succeeds, or if the lists are so bad that the best one succeeds with a residual that
// many orders can reach, all of these have to be fitted. Up to ten points that is done; with more
// the search ends without a result when its budget is over.
#include "pairing/ordersearch.h"

#include "pairing/centeredpoints.h"
#include "pairing/ordercontest.h"
#include "pairing/orderwalk.h"
#include "pairing/prefixsearch.h"
#include "pairing/rotationsearch.h"
#include "pairing/searchbudget.h"
#include "pairing/tripleshapes.h"
#include "registration/trafo3d.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace
{

const int triple_size = 3;
const int always_exact_count = 10; // points
const int walk_only_count = 5; // points; trying their orders is quicker than looking for good ones
const int guesses_only_count = 6; // points; with more, looking for good orders further pays
const double infinity = std::numeric_limits<double>::infinity();

bool are_finite(const double (*points)[3], int n)
{
    for (int i = 0; i < n; ++i)
        for (int c = 0; c < 3; ++c)
            if (!std::isfinite(points[i][c]))
                return false;
    return true;
}

/// About a tenth of what fitting all orders of ten points takes: two or three seconds.
double most_work(int n) { return n <= always_exact_count ? infinity : 2.2e9; }

/// How far a fit with a sound start can fall below the residual of the best rotation: by how much
/// its matrix can stretch the points, and by the rounding of points of size one.
double rigid_tolerance(const CenteredPoints& points)
{
    return 1e-9 * std::sqrt(points.measured_sum / points.n) + 1e-13;
}

/// The search for one pair of lists.
class OrderSearch
{
public:
    OrderSearch(const double (*reference)[3], const double (*measured)[3], int n,
                SearchObserver* observer);
    bool run(int* order);

private:
    void enter_sound_orders();
    void enter_doubtful_orders();
    double first_walk_work() const;
    double rotation_work() const;

    const int m_n;
    SearchBudget m_budget;
    TripleShapes m_shapes;
    CenteredPoints m_points;
    OrderContest m_contest;
    const double m_tolerance;
};

OrderSearch::OrderSearch(const double (*reference)[3], const double (*measured)[3], int n,
                         SearchObserver* observer)
    : m_n(n), m_budget(most_work(n), observer), m_shapes(reference, measured, n),
      m_points(reference, measured, n), m_contest(reference, measured, n, &m_budget),
      m_tolerance(rigid_tolerance(m_points))
{
}

/// Up to ten points the rotation search may cost a part of what it may spare.
double OrderSearch::rotation_work() const
{
    if (m_n > always_exact_count)
        return infinity;
    return 0.05 * std::tgamma(m_n + 1.0) * fit_work(m_n, true);
}

/// How long to walk before cells are looked at: the number of orders within reach grows with the
/// residual and the number of points. Only the time depends on this.
double OrderSearch::first_walk_work() const
{
    const double most = 5.5; // times the radius of the object
    const double bound_work = 60.0;
    const double radius = std::sqrt(m_points.reference_sum / m_n);
    const bool is_promising = m_n * m_contest.ceiling() * m_points.unit < most * radius;
    return (is_promising ? 100.0 : 20.0) * bound_work * m_n * m_n;
}

void OrderSearch::enter_sound_orders()
{
    OrderWalk walk(m_points, m_shapes, &m_contest, &m_budget, m_tolerance);
    if (m_n > walk_only_count) {
        RotationSearch rotations(m_points, &m_contest, &m_budget, m_tolerance);
        rotations.enter_guessed_orders();
        if (m_contest.has_success() && walk.enter_orders(first_walk_work()))
            return;
        if (m_n > guesses_only_count)
            rotations.enter_good_orders();
        if (m_n > guesses_only_count && (m_contest.has_success() || m_n > always_exact_count)
            && rotations.enter_orders_within_reach(rotation_work()))
            return;
    }
    walk.enter_orders(infinity);
}

void OrderSearch::enter_doubtful_orders()
{
    PrefixSearch search(m_points, &m_contest, &m_budget, m_tolerance);
    int t[triple_size];
    for (t[0] = 0; t[0] < m_n; ++t[0])
        for (t[1] = 0; t[1] < m_n; ++t[1])
            for (t[2] = 0; t[2] < m_n && !m_budget.is_over(); ++t[2])
                if (t[0] != t[1] && t[0] != t[2] && t[1] != t[2]
                    && m_shapes.shape(t) == doubtful_triple)
                    search.enter_orders(t);
}

bool OrderSearch::run(int* order)
{
    if (m_shapes.has_sound())
        enter_sound_orders();
    if (!m_shapes.has_only_sound())
        enter_doubtful_orders();
    m_budget.tell_end();
    return !m_budget.is_over() && m_contest.winner(order);
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

bool find_best_order(const double (*reference)[3], const double (*measured)[3], int n, int* order,
                     SearchObserver* observer)
{
    if (n < triple_size || n > trafo3d_max_points)
        return false;
    // A coordinate that is no number leaves no residual that is one, and no fit succeeds.
    if (!are_finite(reference, n) || !are_finite(measured, n) || is_degenerate(reference))
        return false;
    return OrderSearch(reference, measured, n, observer).run(order);
}
