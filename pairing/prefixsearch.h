// Walks through orders point by point, for the few first triples where the rigid bound is no bound.
#ifndef PAIRING_PREFIXSEARCH_H
#define PAIRING_PREFIXSEARCH_H

#include "pairing/centeredpoints.h"

class OrderContest;
class SearchBudget;

/// Depth-first walk over the positions of an order, the first three given.
///
/// Where the triple that the fit starts from is collinear but for rounding, its start is no
/// rotation but some other matrix, and as each step of the fit multiplies it by a rotation, it
/// stays one: the residual can fall below that of the best rotation. It cannot fall below that of
/// the best linear map L about the centroids, the minimum of sum |a_i - L b_i|^2, and a sum over
/// some of the pairs is not above that over all. This is the bound here. It needs three points
/// beside the triple to tell anything, but then it ends wrong orders quickly.
class PrefixSearch
{
public:
    /// `tolerance` as for CenteredPoints::least_trace. All must outlive the search.
    PrefixSearch(const CenteredPoints& points, OrderContest* contest, SearchBudget* budget,
                 double tolerance);

    /// Enters every order that begins with the triple and can matter, until the budget is over.
    void enter_orders(const int* triple);

private:
    /// Normal equations of the linear map, from the pairs taken so far.
    struct Sums
    {
        double BB[3][3]; ///< sum of b b^T
        double AB[3][3]; ///< sum of a b^T
        double AA;       ///< sum of |a|^2
    };

    void take(const Sums& before, int level, int column);
    void descend(const Sums& sums, int level);
    bool is_hopeless(const Sums& sums) const;

    const CenteredPoints& m_points;
    OrderContest* m_contest;
    SearchBudget* m_budget;
    const double m_tolerance;
    int m_row[trafo3d_max_points]; // the first three, then from the outside in
    bool m_taken[trafo3d_max_points];
    int m_order[trafo3d_max_points];
};

#endif
