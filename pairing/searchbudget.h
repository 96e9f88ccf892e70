// How much a search may do, and who is told about it.
#ifndef PAIRING_SEARCHBUDGET_H
#define PAIRING_SEARCHBUDGET_H

#include "pairing/searchobserver.h"

/// Counts the work of one search. A unit is what the machine of the first measurements did in a
/// nanosecond; it is counted and not timed, so that every machine gives the same answer.
class SearchBudget
{
public:
    /// `most_work` may be infinite. The observer may be null; it must outlive the budget.
    SearchBudget(double most_work, SearchObserver* observer);

    void spend(double work);
    double spent() const { return m_spent; }

    void count_fit() { ++m_progress.fits; }
    void set_best_residual(double residual) { m_progress.best_residual = residual; }

    /// Tells the observer that the search is done.
    void tell_end();

    /// Whether the search has to end, without a result.
    bool is_over() const { return m_is_over; }

private:
    double m_most_work;
    double m_spent;
    double m_next_question; ///< the work after which the observer is asked again
    bool m_is_over;
    SearchProgress m_progress;
    SearchObserver* m_observer;
};

/// Work of one fit of n points. One that fails after its ten iterations takes several times as
/// much.
double fit_work(int n, bool succeeded);

#endif
