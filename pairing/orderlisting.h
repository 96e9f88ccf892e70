// Lists all assignments whose profit stays within reach of the best one.
#ifndef PAIRING_ORDERLISTING_H
#define PAIRING_ORDERLISTING_H

#include "pairing/assignment.h"

class OrderContest;

/// Takes the orders that a listing finds.
class OrderVisitor
{
public:
    /// Returns false to end the listing.
    virtual bool visit_order(const int* order) = 0;

    /// Called before each step; returns false to end the listing.
    virtual bool count_step() = 0;

protected:
    ~OrderVisitor() {}
};

/// Depth-first walk over the rows of a solved assignment problem. The regrets of an assignment sum
/// up to what its profit lacks, and none is negative, so a branch ends where they exceed the slack.
class OrderListing
{
public:
    OrderListing(const Assignment& solved, const OrderContest& contest, int n);

    /// Passes every assignment to the visitor that loses at most `slack` against the best. Of
    /// assignments that differ only in measured points with the same coordinates, one is passed.
    /// Returns false if that takes more than `most_steps` steps, or if the visitor ends it.
    bool list(double slack, int most_steps, OrderVisitor* visitor);

private:
    void find_choices(double slack);
    bool descend(int level, double slack);
    bool is_open(int column) const;

    const Assignment& m_solved;
    const OrderContest& m_contest;
    const int m_n;
    OrderVisitor* m_visitor;
    int m_steps_left;
    int m_row[Assignment::capacity]; // rows, those with the fewest choices first
    int m_choices[Assignment::capacity][Assignment::capacity]; // columns of each row
    int m_choice_count[Assignment::capacity];
    bool m_taken[Assignment::capacity];
    int m_order[Assignment::capacity];
};

#endif
