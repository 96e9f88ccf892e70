#include "pairing/assignment.h"

#include <algorithm>
#include <limits>

double Assignment::solve(int n, double enough)
{
    m_size = n;
    find_gains();
    double upper = bound();
    if (upper <= enough)
        return upper;

    assign_best_columns();
    while (upper > enough && m_unassigned_count > 0) {
        augment(m_unassigned[--m_unassigned_count]);
        upper = bound();
    }
    return upper;
}

double Assignment::bound() const
{
    double sum = 0.0;
    for (int k = 0; k < m_size; ++k)
        sum += m_gain[k] + price[k];
    return sum;
}

/// Most that row i gains from any column. Four running maxima, as one would wait for itself.
double Assignment::best_gain(int i) const
{
    enum
    {
        lanes = 4
    };
    double most[lanes];
    for (int k = 0; k < lanes; ++k)
        most[k] = profit[i][0] - price[0];
    int j = 0;
    for (; j + lanes <= m_size; j += lanes)
        for (int k = 0; k < lanes; ++k) {
            const double value = profit[i][j + k] - price[j + k];
            most[k] = value > most[k] ? value : most[k];
        }
    for (; j < m_size; ++j)
        most[0] = std::max(most[0], profit[i][j] - price[j]);
    return std::max(std::max(most[0], most[1]), std::max(most[2], most[3]));
}

void Assignment::find_gains()
{
    for (int i = 0; i < m_size; ++i)
        m_gain[i] = best_gain(i);
}

void Assignment::assign_best_columns()
{
    m_unassigned_count = 0;
    for (int j = 0; j < m_size; ++j)
        m_row[j] = -1;
    for (int i = 0; i < m_size; ++i) {
        int best = 0;
        while (best < m_size - 1 && profit[i][best] - price[best] != m_gain[i])
            ++best;
        column[i] = best;
        if (m_row[best] < 0)
            m_row[best] = i;
        else
            m_unassigned[m_unassigned_count++] = i;
    }
}

/// Assigns one more row along the path of least regret to a free column.
void Assignment::augment(int start)
{
    m_gain[start] = best_gain(start);
    for (int j = 0; j < m_size; ++j) {
        m_distance[j] = regret(start, j);
        m_previous_row[j] = start;
        m_sequence[j] = j;
    }

    int settled = 0;
    int last;
    for (;;) {
        int nearest = settled;
        for (int k = settled + 1; k < m_size; ++k)
            if (m_distance[m_sequence[k]] < m_distance[m_sequence[nearest]])
                nearest = k;
        last = m_sequence[nearest];
        if (m_row[last] < 0)
            break;
        std::swap(m_sequence[nearest], m_sequence[settled]);
        settle(last, ++settled);
    }

    const double length = m_distance[last];
    m_gain[start] -= length;
    for (int k = 0; k < settled; ++k) {
        const int j = m_sequence[k];
        price[j] += length - m_distance[j];
        m_gain[m_row[j]] -= length - m_distance[j];
    }
    for (int j = last, i = -1; i != start;) {
        i = m_previous_row[j];
        m_row[j] = i;
        std::swap(j, column[i]);
    }
}

/// Looks for shorter ways to the columns that are not settled, through the row of this column.
void Assignment::settle(int through, int settled)
{
    const int i = m_row[through];
    const double offset = m_distance[through] - regret(i, through);
    for (int k = settled; k < m_size; ++k) {
        const int j = m_sequence[k];
        const double length = offset + regret(i, j);
        if (length < m_distance[j]) {
            m_distance[j] = length;
            m_previous_row[j] = i;
        }
    }
}
