// Decides which order of the measured points wins, whatever the sequence they are entered in.
#ifndef PAIRING_ORDERCONTEST_H
#define PAIRING_ORDERCONTEST_H

#include "registration/trafo3d.h"

class SearchBudget;

/// The winner is defined by a walk through all orders in lexicographic sequence: an order whose fit
/// succeeds replaces the best one so far if its residual r is below the best residual, which is
/// kept in single precision.
///
/// That walk need not be made to know its outcome. Let m be the smallest r of all orders that
/// succeed and F the single precision value nearest to m. The best residual only sinks, it is
/// always some rounded r and so never below F, and it is F from the order with r = m on at the
/// latest. It becomes F at the first order whose r rounds to F: until then the best residual is the
/// next value above F or more, thus above that r. From there on an order replaces it only with
/// r < F. So the winner is the last order with r < F if there is one (such an r rounds to F, too,
/// as it is not below m), and otherwise the first order whose r rounds to F. No r that succeeds is
/// infinite or not a number, since the change of the residual that ends a fit is below a limit.
///
/// The contest keeps both candidates for the smallest F so far. An order whose residual is known to
/// lie above the ceiling need not be entered. To enter one twice does no harm.
class OrderContest
{
public:
    /// The lists and the budget must outlive the contest. n is 3 to trafo3d_max_points.
    OrderContest(const double (*reference)[3], const double (*measured)[3], int n,
                 SearchBudget* budget);

    /// Fits an order, together with all orders that differ from it only in points with exactly the
    /// same coordinates, whose fits are the same. Counts the work.
    void enter(const int* order);

    /// Whether entering this order is known to change nothing.
    bool is_known(const int* order) const;

    bool has_success() const { return m_succeeded; }

    /// Residuals above this can no longer matter; infinite while no order has succeeded.
    double ceiling() const { return m_ceiling; }

    /// Index of the next lower measured point with the same coordinates, or -1.
    int twin(int j) const { return m_twin[j]; }

    /// Returns false, `order` untouched, if no order has succeeded.
    bool winner(int* order) const;

private:
    typedef int Order[trafo3d_max_points];

    bool fit(const int* order, double* residual);
    void spread_twins(int* out, const int* order, bool ascending) const;
    void record(const int* order, double residual);
    int known_index(const int* order) const;

    enum
    {
        remembered = 256
    };

    int m_n;
    SearchBudget* m_budget;
    double m_target[trafo3d_max_points][3];
    const double (*m_measured)[3];
    Order m_twin;

    bool m_succeeded;
    float m_best;     // F
    double m_ceiling; // largest residual that rounds to F
    Order m_first;    // first order whose residual rounds to F
    bool m_has_below;
    Order m_last_below; // last order whose residual is below F

    bool m_has_twins;
    Order m_known[remembered]; // orders fitted lately, by hash
};

#endif
