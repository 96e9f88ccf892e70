// Looks for the one mistake that explains a bad fit.
#ifndef TOOLS_MISTAKES_H
#define TOOLS_MISTAKES_H

#include "tools/points.h"

#include <QString>
#include <QStringList>

/// A pair of points without which the rest fits.
struct PointMistake
{
    enum Side
    {
        reference,
        measured,
        either ///< nothing tells which of the two is wrong
    };

    int reference_index;
    int measured_index;
    Side side;
    QString what;            ///< see name_mistake
    bsVector given;          ///< the wrong point
    bsVector expected;       ///< where the rest says that it should be, in the same coordinates
    double residual_of_rest; ///< mm
};

/// All single pairs of which one point must be wrong, those with a typing mistake first; several
/// of them if the lists do not decide it. Empty if no single pair explains the bad fit, or with
/// fewer than four pairs. The lists have the same length, at most trafo3d_max_points.
/// `ordered`: point i belongs to point i. `noise`: standard deviation of a coordinate in mm.
std::vector<PointMistake> find_point_mistakes(const Points& reference, const Points& measured,
                                              bool ordered, double noise);

/// What is wrong with a list as a whole: another unit, a mirror image; "" if neither makes the
/// lists fit.
QString find_list_mistake(const Points& reference, const Points& measured, bool ordered,
                          double noise);

/// For lists of different length: which points of the longer one are left over where the shorter
/// one fits, as numbers from 1. Empty if it does not fit, or with fewer than four points in it.
QStringList find_surplus_points(const Points& reference, const Points& measured, double noise);

#endif
