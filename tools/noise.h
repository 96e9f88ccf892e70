// What the noise of measured points explains, and what it does not.
#ifndef TOOLS_NOISE_H
#define TOOLS_NOISE_H

#include "tools/points.h"

/// Standard deviation of one coordinate of a measured point in mm, unless told otherwise.
constexpr double default_noise = 1.0;

/// Largest sum of squared distances in mm squared that the best rigid fit of `pairs` (three or
/// more) leaves in 999 of 1000 cases, if every measured coordinate has the standard deviation
/// `noise` in mm: chi-square with 3 * pairs - 6 degrees of freedom, by the formula of Wilson and
/// Hilferty (1931), which is within 2 % of the exact value.
double largest_square_sum(std::size_t pairs, double noise);

/// The same as a residual: the root of the mean squared distance, in mm.
double largest_residual(std::size_t pairs, double noise);

/// By how much the square sums of two pairings may differ before noise explains them with odds of
/// less than 1 to 1000.
double indistinct_square_sum(double noise);

/// Target registration error: root mean square of the distance by which a rigid fit of `points`
/// misses `place`, if every measured coordinate has the standard deviation `noise`. J. M.
/// Fitzpatrick, J. B. West, C. R. Maurer, "Predicting error in rigid-body point-based
/// registration", 1998. Infinite for points on one line.
double target_error(const Points& points, const bsVector& place, double noise);

#endif
