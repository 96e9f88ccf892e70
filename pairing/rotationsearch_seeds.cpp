// The order search's beginning: good orders, found without looking everywhere.
#include "pairing/rotationsearch.h"

#include "pairing/ordercontest.h"
#include "pairing/pairguess.h"
#include "pairing/rotationfit.h"

#include <algorithm>
#include <limits>

namespace
{

static_assert(int(pair_guesses) <= int(RotationCells::vertex_count), "seeds hold both");

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
        trace = best_rotation(product.H, quaternion);
        rotation_product(product.M, quaternion, quaternion);
    } while (trace > former + least_gain && ++round < most_rounds);
    m_top_trace = std::max(m_top_trace, trace);
    offer(m_assignment.column);
}

RotationSearch::Seed RotationSearch::make_seed(const double* quaternion)
{
    Product product;
    init(&product, quaternion, quaternion, m_start_price);
    solve(&product, -infinity);
    Seed seed;
    seed.trace = best_rotation(product.H, seed.quaternion);
    return seed;
}

void RotationSearch::climb_from_best(Seed* seeds, int count, int climbs)
{
    std::sort(seeds, seeds + count);
    for (int s = 0; s < count; ++s)
        if (s < climbs || !m_contest->has_success())
            climb(seeds[s].quaternion);
}

void RotationSearch::enter_good_orders()
{
    const int climbs = 6; // at least
    double guesses[pair_guesses][4];
    Seed seeds[RotationCells::vertex_count];
    const int guess_count = guess_rotations(m_points, guesses);
    for (int g = 0; g < guess_count; ++g)
        seeds[g] = make_seed(guesses[g]);
    climb_from_best(seeds, guess_count, climbs);
    if (m_contest->has_success())
        return;
    const RotationCells& cells = RotationCells::instance();
    for (int v = 0; v < RotationCells::vertex_count; ++v)
        seeds[v] = make_seed(cells.vertices[v]);
    climb_from_best(seeds, RotationCells::vertex_count, climbs);
}
