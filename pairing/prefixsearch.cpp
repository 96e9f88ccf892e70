#include "pairing/prefixsearch.h"

#include "pairing/ordercontest.h"
#include "pairing/searchbudget.h"

#include <cmath>
#include <limits>

namespace
{

const int triple_size = 3;
const double infinity = std::numeric_limits<double>::infinity();

// The start is the product of two matrices with columns of length 1 (by far less than 2 where the
// lengths are subnormal numbers), so the sum of its squared entries stays below this.
const double largest_square_norm = 50.0;
const double ridge = 1e-6; // keeps the normal equations regular; relative to sum |b_j|^2

// The condition of the normal equations is at most 1 / ridge, so that what they explain of the sum
// of squares is right to about thirty roundings of 1.2e-16 times that, relative to the whole.
const double rounding = 1e-8;

/// Least value of sum |a - L b|^2 + ridge |L|^2 over all L, by the Cholesky factors of BB.
double least_square_sum(const double (*BB)[3], const double (*AB)[3], double AA, double ridge)
{
    double C[3][3];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c <= r; ++c) {
            double sum = BB[r][c] + (r == c ? ridge : 0.0);
            for (int k = 0; k < c; ++k)
                sum -= C[r][k] * C[c][k];
            C[r][c] = r == c ? std::sqrt(sum) : sum / C[c][c];
        }
    double explained = 0.0;
    for (int row = 0; row < 3; ++row) {
        double y[3];
        for (int r = 0; r < 3; ++r) {
            double sum = AB[row][r];
            for (int k = 0; k < r; ++k)
                sum -= C[r][k] * y[k];
            y[r] = sum / C[r][r];
            explained += y[r] * y[r];
        }
    }
    return AA - explained;
}

} // namespace

PrefixSearch::PrefixSearch(const CenteredPoints& points, OrderContest* contest,
                           SearchBudget* budget, double tolerance)
    : m_points(points), m_contest(contest), m_budget(budget), m_tolerance(tolerance)
{
    for (int i = 0; i < points.n; ++i) {
        m_row[i] = i;
        m_taken[i] = false;
    }
    sort_outside_in(m_row + triple_size, m_row + points.n, points.reference_square);
}

void PrefixSearch::enter_orders(const int* triple)
{
    Sums sums = {{{0.0}}, {{0.0}}, 0.0};
    for (int k = 0; k < triple_size; ++k) {
        m_taken[triple[k]] = true;
        m_order[k] = triple[k];
        sums.AA += m_points.reference_square[k];
        add_pair(sums.AB, m_points.reference[k], m_points.measured[triple[k]]);
        add_pair(sums.BB, m_points.measured[triple[k]], m_points.measured[triple[k]]);
    }
    descend(sums, triple_size);
    for (int k = 0; k < triple_size; ++k)
        m_taken[triple[k]] = false;
}

bool PrefixSearch::is_hopeless(const Sums& sums) const
{
    if (m_contest->ceiling() == infinity)
        return false;
    const double weight = ridge * m_points.measured_sum;
    const double total = m_points.reference_sum + m_points.measured_sum;
    const double most = total - 2.0 * m_points.least_trace(m_contest->ceiling(), m_tolerance);
    return least_square_sum(sums.BB, sums.AB, sums.AA, weight)
           > most + weight * largest_square_norm + rounding * total;
}

void PrefixSearch::descend(const Sums& sums, int level)
{
    const double bound_work = 60.0;
    m_budget->spend(bound_work);
    if (m_budget->is_over())
        return;
    if (level == m_points.n) {
        m_contest->enter(m_order);
        return;
    }
    if (is_hopeless(sums))
        return;
    for (int j = 0; j < m_points.n; ++j) {
        const int twin = m_contest->twin(j);
        if (m_taken[j] || (twin >= 0 && !m_taken[twin]))
            continue;
        take(sums, level, j);
    }
}

void PrefixSearch::take(const Sums& before, int level, int column)
{
    const double* a = m_points.reference[m_row[level]];
    const double* b = m_points.measured[column];
    Sums sums = before;
    sums.AA += m_points.reference_square[m_row[level]];
    add_pair(sums.AB, a, b);
    add_pair(sums.BB, b, b);
    m_taken[column] = true;
    m_order[m_row[level]] = column;
    descend(sums, level + 1);
    m_taken[column] = false;
}
