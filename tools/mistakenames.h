// Names the mistake in a point from what it is and what it should be.
#ifndef TOOLS_MISTAKENAMES_H
#define TOOLS_MISTAKENAMES_H

#include "src/bsVector.h"

#include <QString>

struct NamedMistake
{
    QString what;   ///< "z is off by 4320 mm", "x and y are swapped", ...
    bool is_typing; ///< a slip of a person who writes numbers, rather than a point that was missed
};

/// `given` differs from `expected` by more than `tolerance` (mm) in at least one coordinate.
NamedMistake name_mistake(const bsVector& given, const bsVector& expected, double tolerance);

/// "10", "100" or "1000" for a factor, or its inverse, within 2 % of that; otherwise empty.
QString name_factor(double factor);

#endif
