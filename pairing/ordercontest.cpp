#include "pairing/ordercontest.h"

#include "pairing/searchbudget.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{

/// Largest double that rounds to this float, or the tie above it, which may round either way.
double upper_edge(float value)
{
    const float next = std::nextafter(value, std::numeric_limits<float>::infinity());
    return value / 2.0 + next / 2.0;
}

} // namespace

OrderContest::OrderContest(const double (*reference)[3], const double (*measured)[3], int n,
                           SearchBudget* budget)
    : m_n(n), m_budget(budget), m_measured(measured), m_succeeded(false), m_best(0.0f),
      m_ceiling(std::numeric_limits<double>::infinity()), m_has_below(false), m_has_twins(false)
{
    std::memcpy(m_target, reference, m_n * sizeof m_target[0]);
    for (int j = 0; j < m_n; ++j) {
        m_twin[j] = j - 1;
        while (m_twin[j] >= 0
               // Bit by bit on purpose: 0.0 and -0.0 need not fit alike.
               // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison)
               && std::memcmp(measured[m_twin[j]], measured[j], sizeof measured[j]) != 0)
            --m_twin[j];
        m_has_twins = m_has_twins || m_twin[j] >= 0;
    }
    for (int k = 0; k < remembered; ++k)
        m_known[k][0] = -1;
}

void OrderContest::enter(const int* order)
{
    Order first;
    spread_twins(first, order, true);
    if (is_known(first))
        return;
    std::memcpy(m_known[known_index(first)], first, m_n * sizeof first[0]);
    double residual;
    if (fit(first, &residual))
        record(first, residual);
}

void OrderContest::record(const int* order, double residual)
{
    const float rounded = float(residual);
    if (m_succeeded && rounded > m_best)
        return;
    if (!m_succeeded || rounded < m_best) {
        m_succeeded = true;
        m_best = rounded;
        m_ceiling = upper_edge(rounded);
        m_budget->set_best_residual(residual);
        m_has_below = false;
        std::memcpy(m_first, order, m_n * sizeof order[0]);
    } else if (std::lexicographical_compare(order, order + m_n, m_first, m_first + m_n)) {
        std::memcpy(m_first, order, m_n * sizeof order[0]);
    }

    if (!(residual < double(rounded)))
        return;
    Order last;
    spread_twins(last, order, false);
    if (!m_has_below
        || std::lexicographical_compare(m_last_below, m_last_below + m_n, last, last + m_n))
        std::memcpy(m_last_below, last, m_n * sizeof last[0]);
    m_has_below = true;
}

bool OrderContest::winner(int* order) const
{
    if (m_succeeded)
        std::memcpy(order, m_has_below ? m_last_below : m_first, m_n * sizeof order[0]);
    return m_succeeded;
}

bool OrderContest::fit(const int* order, double* residual)
{
    double source[trafo3d_max_points][3];
    for (int i = 0; i < m_n; ++i)
        std::memcpy(source[i], m_measured[order[i]], sizeof source[i]);
    double T_target_source[4][4];
    const bool succeeded =
        trafo3d_3trafo(T_target_source, m_target, source) == 0
        && trafo3d_opttrafo(T_target_source, nullptr, m_target, source, m_n, residual) == 0;
    m_budget->count_fit();
    m_budget->spend(fit_work(m_n, succeeded));
    return succeeded;
}

/// The lexicographically first or last of the orders that differ only in equal points.
void OrderContest::spread_twins(int* out, const int* order, bool ascending) const
{
    std::memcpy(out, order, m_n * sizeof order[0]);
    for (int j = m_n - 1; j >= 0 && m_has_twins; --j) {
        if (m_twin[j] < 0)
            continue;
        // All twins below j are still anywhere among them: j must come to the utmost position.
        int at = -1;
        for (int i = 0; i < m_n; ++i) {
            bool is_twin = false;
            for (int t = j; t >= 0; t = m_twin[t])
                is_twin = is_twin || out[i] == t;
            if (is_twin && (at < 0 || ascending))
                at = i;
        }
        std::swap(out[at], *std::find(out, out + m_n, j));
    }
}

int OrderContest::known_index(const int* order) const
{
    unsigned hash = 0;
    for (int i = 0; i < m_n; ++i)
        hash = hash * 53u + unsigned(order[i]);
    return int((hash ^ (hash >> 12)) % remembered);
}

bool OrderContest::is_known(const int* order) const
{
    return std::equal(order, order + m_n, m_known[known_index(order)]);
}
