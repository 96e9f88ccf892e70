#include "pairing/orderwalk.h"

#include "pairing/ordercontest.h"
#include "pairing/rotationfit.h"
#include "pairing/searchbudget.h"
#include "pairing/tripleshapes.h"

#include <algorithm>
#include <cmath>

namespace
{

void rank(int* indices, double* lengths, const double* squares, int n)
{
    for (int i = 0; i < n; ++i) {
        indices[i] = i;
        lengths[i] = std::sqrt(squares[i]);
    }
    sort_outside_in(indices, indices + n, squares);
}

} // namespace

OrderWalk::OrderWalk(const CenteredPoints& points, const TripleShapes& shapes,
                     OrderContest* contest, SearchBudget* budget, double tolerance)
    : m_points(points), m_shapes(shapes), m_contest(contest), m_budget(budget),
      m_tolerance(tolerance), m_ceiling(0.0), m_least_trace(0.0), m_last_work(0.0)
{
    rank(m_row, m_reference_length, points.reference_square, points.n);
    rank(m_column, m_measured_length, points.measured_square, points.n);
    std::fill(m_taken, m_taken + points.n, false);
}

bool OrderWalk::enter_orders(double most_work)
{
    m_last_work = m_budget->spent() + most_work;
    m_ceiling = m_contest->ceiling();
    m_least_trace = m_points.least_trace(m_ceiling, m_tolerance);
    const Taken nothing = {{{0.0}}, 0.0};
    return descend(nothing, 0);
}

void OrderWalk::update_least_trace()
{
    if (m_contest->ceiling() == m_ceiling)
        return;
    m_ceiling = m_contest->ceiling();
    m_least_trace = m_points.least_trace(m_ceiling, m_tolerance);
}

/// The rearrangement inequality: no assignment of the others gives more than that by rank.
double OrderWalk::most_of_others(int level) const
{
    double sum = 0.0;
    for (int c = 0; level < m_points.n; ++c)
        if (!m_taken[m_column[c]])
            sum += m_reference_length[m_row[level++]] * m_measured_length[m_column[c]];
    return sum;
}

void OrderWalk::enter()
{
    if (!m_shapes.has_only_sound() && m_shapes.shape(m_order) != sound_triple)
        return;
    m_contest->enter(m_order);
    update_least_trace();
}

bool OrderWalk::descend(const Taken& taken, int level)
{
    if (level == m_points.n) {
        enter();
        return true;
    }
    for (int c = 0; c < m_points.n; ++c) {
        const int j = m_column[c];
        const int twin = m_contest->twin(j);
        if (m_taken[j] || (twin >= 0 && !m_taken[twin]))
            continue;
        m_taken[j] = true;
        const bool finished = take(taken, level, j);
        m_taken[j] = false;
        if (!finished)
            return false;
    }
    return true;
}

bool OrderWalk::take(const Taken& before, int level, int column)
{
    const double bound_work = 60.0;
    const int row = m_row[level];
    m_budget->spend(bound_work);
    if (m_budget->is_over() || m_budget->spent() > m_last_work)
        return false;
    m_order[row] = column;
    Taken taken = before;
    taken.lengths += m_reference_length[row] * m_measured_length[column];
    // Before an order has succeeded nothing is out of reach, and some fits fail at once.
    const double others = m_contest->has_success() ? most_of_others(level + 1) : 0.0;
    if (taken.lengths + others < m_least_trace)
        return true;
    add_pair(taken.H, m_points.reference[row], m_points.measured[column]);
    if (trace_stays_below(taken.H, m_least_trace - others))
        return true;
    return descend(taken, level + 1);
}
