// Guesses the rotation between two point lists from two pairs of points.
#ifndef PAIRING_PAIRGUESS_H
#define PAIRING_PAIRGUESS_H

#include "pairing/centeredpoints.h"

enum
{
    guesses_per_pair = 6,               ///< of two reference points, the best one first
    pair_guesses = 3 * guesses_per_pair ///< most rotations that guess_rotations gives
};

/// As the centroids belong together, two pairs give a rotation. Takes a few pairs of reference
/// points far out, and for each the pairs of measured points that fit best.
/// Returns the number of unit quaternions written.
int guess_rotations(const CenteredPoints& points, double (*quaternions)[4]);

#endif
