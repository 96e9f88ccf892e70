#include "tools/pairingsearch.h"

#include "registration/trafo3d.h"
#include "tools/rigidfit.h"

namespace
{

constexpr int capacity = trafo3d_max_points;
constexpr double rounding = 1e-9;   // of sums of squares, as a share of the ceiling
constexpr double least_sum = 1e-12; // mm squared; exact lists come out with rounding only

void fill_distances(double (*out)[capacity], const Points& points)
{
    for (std::size_t i = 0; i < points.size(); ++i)
        for (std::size_t k = 0; k < points.size(); ++k)
            out[i][k] = distance(points[i], points[k]);
}

/// Walks over all pairings, one reference point a level. A branch ends where the pairs chosen so
/// far fit too badly alone, as further pairs only add to the sum of their squared distances.
class Walk
{
public:
    Walk(const Points& reference, const Points& measured, const PairingSearchLimits& limits);
    PairingSearch run(const std::vector<int>& start);

private:
    void choose_sequence();
    void enter_neighbors(const std::vector<int>& start);
    void enter(const std::vector<int>& order);
    double ceiling() const;
    double mismatch(int level, int candidate) const;
    bool descend(int level, double mismatches);

    const Points& m_reference;
    const Points& m_measured;
    const Points m_centered_reference;
    const Points m_centered_measured;
    const int m_levels;
    const PairingSearchLimits m_limits;
    long m_steps = 0;
    int m_sequence[capacity]; // of the reference points, far ones first
    double m_reference_distance[capacity][capacity];
    double m_measured_distance[capacity][capacity];
    bool m_taken[capacity] = {};
    std::vector<int> m_order;
    PairSums m_sums[capacity + 1];
    PairingSearch m_result;
};

Walk::Walk(const Points& reference, const Points& measured, const PairingSearchLimits& limits)
    : m_reference(reference), m_measured(measured),
      m_centered_reference(moved_by(reference, -centroid(reference))),
      m_centered_measured(moved_by(measured, -centroid(measured))),
      m_levels(static_cast<int>(reference.size())), m_limits(limits), m_order(reference.size())
{
    fill_distances(m_reference_distance, reference);
    fill_distances(m_measured_distance, measured);
    choose_sequence();
}

/// Each point is the one farthest from all before it, so that wrong pairs show early.
void Walk::choose_sequence()
{
    double nearest[capacity];
    for (int i = 0; i < m_levels; ++i)
        nearest[i] = length(m_centered_reference[i]);
    for (int level = 0; level < m_levels; ++level) {
        const int next = static_cast<int>(std::max_element(nearest, nearest + m_levels) - nearest);
        m_sequence[level] = next;
        for (int i = 0; i < m_levels; ++i)
            nearest[i] = level == 0 ? m_reference_distance[next][i]
                                    : std::min(nearest[i], m_reference_distance[next][i]);
        for (int k = 0; k <= level; ++k)
            nearest[m_sequence[k]] = -1.0;
    }
}

double Walk::ceiling() const
{
    const bool is_full = m_result.best.size() == m_limits.count;
    return is_full ? std::min(m_limits.ceiling, m_result.best.back().square_sum) : m_limits.ceiling;
}

void Walk::enter(const std::vector<int>& order)
{
    std::vector<Pairing>& best = m_result.best;
    const Pairing entered = {order, fit_rigidly(m_reference, m_measured, order).square_sum};
    const bool is_known =
        std::any_of(best.begin(), best.end(), [&](const Pairing& p) { return p.order == order; });
    if (is_known || entered.square_sum > m_limits.ceiling)
        return;
    best.insert(std::upper_bound(
                    best.begin(), best.end(), entered,
                    [](const Pairing& a, const Pairing& b) { return a.square_sum < b.square_sum; }),
                entered);
    if (best.size() > m_limits.count)
        best.pop_back();
}

void Walk::enter_neighbors(const std::vector<int>& start)
{
    std::vector<int> order = start;
    enter(order);
    for (std::size_t i = 0; i < order.size(); ++i)
        for (std::size_t k = i + 1; k < order.size(); ++k) {
            std::swap(order[i], order[k]);
            enter(order);
            std::swap(order[i], order[k]);
        }
}

/// What the distances from the pairs so far to a new one lack, squared and summed up.
double Walk::mismatch(int level, int candidate) const
{
    const double* reference = m_reference_distance[m_sequence[level]];
    const double* measured = m_measured_distance[candidate];
    double sum = 0.0;
    for (int k = 0; k < level; ++k) {
        const double lack = reference[m_sequence[k]] - measured[m_order[m_sequence[k]]];
        sum += lack * lack;
    }
    return sum;
}

/// False if the steps are used up.
bool Walk::descend(int level, double mismatches)
{
    if (level == m_levels) {
        enter(m_order);
        return true;
    }
    const int i = m_sequence[level];
    for (int j = 0; j < static_cast<int>(m_measured.size()); ++j) {
        if (m_taken[j])
            continue;
        if (++m_steps > m_limits.most_steps)
            return false;
        // m points with errors e have distances that lack, squared, at most m times the sum of e^2.
        const double reach = ceiling() * (1.0 + rounding) + least_sum;
        const double lacks = mismatches + mismatch(level, j);
        if (lacks > (level + 1) * reach)
            continue;
        m_sums[level + 1] = m_sums[level];
        m_sums[level + 1].add(m_centered_reference[i], m_centered_measured[j]);
        if (level >= 2 && m_sums[level + 1].exceed(reach))
            continue;
        m_taken[j] = true;
        m_order[i] = j;
        const bool done = descend(level + 1, lacks);
        m_taken[j] = false;
        if (!done)
            return false;
    }
    return true;
}

PairingSearch Walk::run(const std::vector<int>& start)
{
    if (!start.empty())
        enter_neighbors(start);
    m_result.is_complete = descend(0, 0.0);
    return m_result;
}

} // namespace

PairingSearch find_pairings(const Points& reference, const Points& measured,
                            const PairingSearchLimits& limits, const std::vector<int>& start)
{
    return Walk(reference, measured, limits).run(start);
}
