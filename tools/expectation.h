// The error that a matching is to be expected to leave in the room, by trying it many times.
#ifndef TOOLS_EXPECTATION_H
#define TOOLS_EXPECTATION_H

#include "tools/points.h"

constexpr int default_draws = 1000;

struct ErrorAt
{
    bsVector place;     ///< in the coordinates of the reference points, mm
    double simulated;   ///< root mean square of the distances by which the draws miss, mm
    double worst_in_20; ///< distance that 95 of 100 draws stay below, mm
    double closed_form; ///< see target_error, mm
};

struct Expectation
{
    double residual = 0.0; ///< root mean square of the residuals that the fit reports, mm
    double closed_form_residual = 0.0; ///< of noise times the root of 3 - 6 / count, mm
    int failures = 0;                  ///< draws without a fit; the figures leave them out
    std::vector<ErrorAt> places;
};

/// Measures the points `draws` times in the order of the list, in a random frame and with normal
/// noise of the standard deviation `noise` in each coordinate, fits them as the dialog does, and
/// looks by how much the fit misses each place. The same for the same arguments. At least three
/// points, at most trafo3d_max_points.
Expectation expect_errors(const Points& reference, double noise, const Points& places,
                          int draws = default_draws);

#endif
