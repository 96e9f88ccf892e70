// Walks through all orders point by point, for lists where halving sets of rotations tells little.
#ifndef PAIRING_ORDERWALK_H
#define PAIRING_ORDERWALK_H

#include "pairing/centeredpoints.h"

class OrderContest;
class SearchBudget;
class TripleShapes;

/// Depth-first walk over the reference points from the outside in.
///
/// The residual of an order with its best rotation R follows from <R, H> (rotationsearch.h). With
/// some pairs given, no rotation brings <R, H> above the largest eigenvalue for these pairs plus
/// what the others give at most, sum |a_i| |b_j| of both sorted by length; and no order brings it
/// above the same sum over all pairs. A branch ends where that stays below what an order needs to
/// matter. Bounds and walk cost a hundredth of a fit, so that nothing is lost where no bound helps.
class OrderWalk
{
public:
    /// `tolerance` as for CenteredPoints::least_trace. All must outlive the walk.
    OrderWalk(const CenteredPoints& points, const TripleShapes& shapes, OrderContest* contest,
              SearchBudget* budget, double tolerance);

    /// Enters every order with a sound first triple whose best rotation can win. Returns false if
    /// it gave up, after so much work or because the budget is over.
    bool enter_orders(double most_work);

private:
    /// What the pairs taken so far amount to.
    struct Taken
    {
        double H[3][3];
        double lengths; ///< sum of |a_i| |b_j|
    };

    void enter();
    bool descend(const Taken& taken, int level);
    bool take(const Taken& before, int level, int column);
    double most_of_others(int level) const;
    void update_least_trace();

    const CenteredPoints& m_points;
    const TripleShapes& m_shapes;
    OrderContest* m_contest;
    SearchBudget* m_budget;
    const double m_tolerance;
    double m_ceiling; // the one that m_least_trace belongs to
    double m_least_trace;
    double m_last_work;
    int m_row[trafo3d_max_points];    // reference points, farthest first
    int m_column[trafo3d_max_points]; // measured points, farthest first
    double m_reference_length[trafo3d_max_points];
    double m_measured_length[trafo3d_max_points];
    bool m_taken[trafo3d_max_points];
    int m_order[trafo3d_max_points];
};

#endif
