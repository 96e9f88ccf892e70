#include "pairing/orderlisting.h"

#include "pairing/ordercontest.h"

#include <algorithm>

namespace
{

struct FewerChoices
{
    const int* counts;
    bool operator()(int i, int j) const
    {
        return counts[i] != counts[j] ? counts[i] < counts[j] : i < j;
    }
};

} // namespace

OrderListing::OrderListing(const Assignment& solved, const OrderContest& contest, int n)
    : m_solved(solved), m_contest(contest), m_n(n), m_visitor(nullptr), m_steps_left(0)
{
}

bool OrderListing::list(double slack, int most_steps, OrderVisitor* visitor)
{
    m_visitor = visitor;
    m_steps_left = most_steps;
    std::fill(m_taken, m_taken + m_n, false);
    find_choices(slack);
    return descend(0, slack);
}

void OrderListing::find_choices(double slack)
{
    for (int i = 0; i < m_n; ++i) {
        m_choice_count[i] = 0;
        for (int j = 0; j < m_n; ++j)
            if (m_solved.regret(i, j) <= slack)
                m_choices[i][m_choice_count[i]++] = j;
        m_row[i] = i;
    }
    const FewerChoices fewer = {m_choice_count};
    std::sort(m_row, m_row + m_n, fewer);
}

/// A column is taken only after its lower twins.
bool OrderListing::is_open(int column) const
{
    const int twin = m_contest.twin(column);
    return !m_taken[column] && (twin < 0 || m_taken[twin]);
}

bool OrderListing::descend(int level, double slack)
{
    if (level == m_n) {
        return m_visitor->visit_order(m_order);
    }
    const int i = m_row[level];
    for (int c = 0; c < m_choice_count[i]; ++c) {
        const int j = m_choices[i][c];
        const double left = slack - m_solved.regret(i, j);
        if (left < 0.0 || !is_open(j))
            continue;
        if (--m_steps_left < 0 || !m_visitor->count_step())
            return false;
        m_taken[j] = true;
        m_order[i] = j;
        const bool finished = descend(level + 1, left);
        m_taken[j] = false;
        if (!finished)
            return false;
    }
    return true;
}
