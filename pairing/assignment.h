// One-to-one assignment of columns to rows with the largest total profit, or an upper bound of it.
#ifndef PAIRING_ASSIGNMENT_H
#define PAIRING_ASSIGNMENT_H

#include "registration/trafo3d.h"

/// The assignment problem of n rows and columns, by shortest augmenting paths on prices of the
/// columns (R. Jonker, A. Volgenant, "A shortest augmenting path algorithm for dense and sparse
/// linear assignment problems", 1987). Any prices give an upper bound of the profit: what each row
/// gains from its best column, plus all prices. The bound sinks with each row assigned.
class Assignment
{
public:
    enum
    {
        capacity = trafo3d_max_points
    };

    double profit[capacity][capacity]; ///< of column j in row i, set by the caller
    double price[capacity];            ///< where to start from, and the last prices reached
    int column[capacity];              ///< of each row; valid if solve() ran to the end

    /// Returns the largest profit, or as soon as an upper bound of it is not above `enough`, that
    /// bound. n is at most `capacity`.
    double solve(int n, double enough);

    /// What row i loses against its best choice at the present prices by taking column j.
    double regret(int i, int j) const { return m_gain[i] + price[j] - profit[i][j]; }

private:
    void find_gains();
    void assign_best_columns();
    void augment(int row);
    void settle(int column, int settled);
    double bound() const;
    double best_gain(int i) const;

    int m_size;
    double m_gain[capacity]; // of each row from its best column, at the present or lower prices
    int m_row[capacity];     // of each column, or -1
    int m_unassigned[capacity];
    int m_unassigned_count;

    // While a path is sought:
    double m_distance[capacity];
    int m_previous_row[capacity];
    int m_sequence[capacity]; // columns: settled ones first, in the order of their distance
};

#endif
