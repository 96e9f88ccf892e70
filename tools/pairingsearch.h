// The few pairings of two point lists that fit best, by branch and bound.
#ifndef TOOLS_PAIRINGSEARCH_H
#define TOOLS_PAIRINGSEARCH_H

#include "tools/points.h"

struct Pairing
{
    std::vector<int> order; ///< index of the measured point of each reference point
    double square_sum;      ///< of the distances after the best rigid transformation, mm squared
};

struct PairingSearch
{
    std::vector<Pairing> best; ///< the best one first
    bool is_complete;          ///< no pairing that belongs into `best` can be missing
};

struct PairingSearchLimits
{
    std::size_t count;         ///< most pairings wanted
    double ceiling;            ///< largest square sum wanted, mm squared; may be infinite
    long most_steps = 3000000; ///< about half a second; then the search ends incomplete
};

/// Gives each reference point a measured point of its own; measured points may be left over, so
/// there must be at least as many. Both lists hold 1 to trafo3d_max_points points.
/// `start`, unless empty, is a good pairing of all points, whose neighbors by one exchange are
/// looked at first: that makes the search short, and its result good where it ends early.
PairingSearch find_pairings(const Points& reference, const Points& measured,
                            const PairingSearchLimits& limits, const std::vector<int>& start = {});

#endif
