// The order search's beginning: good orders, found without looking everywhere.
#include "pairing/rotationsearch.h"

#include "pairing/ordercontest.h"
#include "pairing/pairguess.h"
#include "pairing/rotationfit.h"
#include "pairing/searchbudget.h"

#include <algorithm>
#include <limits>

namespace
{

const double infinity = std::numeric_limits<double>::infinity();

} // namespace

void RotationSearch::climb(const double* start)
{
    const int most_rounds = 20;
    const double least_gain = 1e-9 * (m_points.reference_sum + m_points.measured_sum);
    double trace = -infinity;
    double former;
    Product product;
    init(&product, start, start, m_start_price);
    int round = 0;
    do {
        solve(&product, -infinity);
        former = trace;
        double quaternion[4];
        trace = likely_rotation(product.H, quaternion);
        rotation_product(product.M, quaternion, quaternion);
    } while (trace > former + least_gain && ++round < most_rounds);
    m_top_trace = std::max(m_top_trace, trace);
    offer(m_assignment.column);
}

/// The best guess of each pair of reference points, as one of the two may lie elsewhere.
void RotationSearch::enter_guessed_orders()
{
    m_guess_count = guess_rotations(m_points, m_guesses);
    for (int g = 0; g < m_guess_count && !fits_well(); g += guesses_per_pair)
        climb(m_guesses[g]);
}

/// Whether what an order leaves is small beside the object, so that a better one is unlikely.
bool RotationSearch::fits_well() const
{
    const double small = 1e-4; // of the squares
    const double half = 0.5 * (m_points.reference_sum + m_points.measured_sum);
    return m_contest->has_success() && m_least_trace > (1.0 - small) * half;
}

RotationSearch::Seed RotationSearch::make_seed(const double* quaternion)
{
    Product product;
    init(&product, quaternion, quaternion, m_start_price);
    solve(&product, -infinity);
    Seed seed;
    seed.trace = likely_rotation(product.H, seed.quaternion);
    return seed;
}

void RotationSearch::enter_good_orders()
{
    const RotationCells& cells = RotationCells::instance();
    Seed seeds[RotationCells::vertex_count + pair_guesses];
    int count = 0;
    for (int v = 0; v < RotationCells::vertex_count; ++v)
        seeds[count++] = make_seed(cells.vertices[v]);
    for (int g = 0; g < m_guess_count; ++g)
        seeds[count++] = make_seed(m_guesses[g]);
    const int climbs = 6; // at least
    std::sort(seeds, seeds + count);
    for (int s = 0; s < count && !m_budget->is_over(); ++s)
        if (s < climbs || !m_contest->has_success())
            climb(seeds[s].quaternion);
}
