// What a caller can see of a search that takes long, and how it ends it.
#ifndef PAIRING_SEARCHOBSERVER_H
#define PAIRING_SEARCHOBSERVER_H

/// How far a search has come.
struct SearchProgress
{
    long long fits;       ///< orders fitted so far
    double best_residual; ///< in the unit of the points; negative while no fit has succeeded
};

/// Asked by a search in its own thread, about once a millisecond, so the answer should be quick.
class SearchObserver
{
public:
    /// False ends the search: it is not asked again, and no order is found.
    virtual bool go_on(const SearchProgress& progress) = 0;

    /// Told once after each search. Unless it is complete it was ended before all orders that can
    /// win were fitted, by go_on or because it would have taken too much work.
    virtual void ended(const SearchProgress& /*progress*/, bool /*is_complete*/) {}

protected:
    ~SearchObserver() {}
};

#endif
