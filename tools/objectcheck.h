// Whether a list of reference points makes a good object to match.
#ifndef TOOLS_OBJECTCHECK_H
#define TOOLS_OBJECTCHECK_H

#include "tools/pairingsearch.h"
#include "tools/points.h"
#include "tools/verdict.h"

#include <QStringList>

/// The object carried onto itself in another way.
struct Symmetry
{
    std::vector<int> order; ///< index of the point that each point falls on
    double residual;        ///< root mean square of the distances that remain, mm
};

struct ObjectCheck
{
    double size = 0.0;          ///< largest distance between two points, mm
    double thickness = 0.0;     ///< largest distance of a point from the plane that fits best, mm
    double width = 0.0;         ///< largest distance of a point from the line that fits best, mm
    double triple_height = 0.0; ///< of the third point over the line through the first two, mm
    double triple_length = 0.0; ///< longest side of the first three points, mm
    std::vector<std::pair<int, int>> duplicates; ///< indices of points within the tolerance
    std::vector<Symmetry> symmetries;            ///< within the tolerance, the closest first
    bool has_more_symmetries = false;            ///< than are listed
    Symmetry nearest = {{}, 0.0}; ///< the other pairing that fits best, symmetry or not
    bool is_proven = false;       ///< the search for pairings was exhaustive
    QStringList doubts;           ///< a sentence each
    Verdict verdict = verdict_good;
};

/// `tolerance`: largest residual in mm of another pairing that counts as a symmetry, and largest
/// distance of points that count as equal.
ObjectCheck check_object(const Points& points, double tolerance);

/// Whether all points lie close to one plane, for their size.
bool is_flat(const ObjectCheck& check);

#endif
