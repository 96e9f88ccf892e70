// The best rigid transformation between paired points in closed form, which needs no start and
// always converges, unlike the fit of the matching dialog.
#ifndef TOOLS_RIGIDFIT_H
#define TOOLS_RIGIDFIT_H

#include "src/bsMatrix.h"
#include "tools/points.h"

struct RigidFit
{
    bsMatrix T_reference_measured;
    double square_sum; ///< of the distances, in mm squared

    double residual(std::size_t count) const { return std::sqrt(square_sum / double(count)); }
};

/// Fits measured[order[i]] to reference[i]. `order` has an entry for each reference point.
RigidFit fit_rigidly(const Points& reference, const Points& measured,
                     const std::vector<int>& order);

/// Sums over point pairs from which it follows how well they fit. Pairs are only ever added. The
/// lists should lie about their centroids, or digits are lost.
class PairSums
{
public:
    void add(const bsVector& reference, const bsVector& measured);

    /// Whether no rigid transformation brings the sum of the squared distances down to `ceiling`.
    bool exceed(double ceiling) const;

private:
    int m_count = 0;
    double m_squares = 0.0;
    bsVector m_reference;
    bsVector m_measured;
    double m_products[3][3] = {};
};

/// Angle of the rotation of `motion` in degrees, 0 to 180.
double turn_of(const bsMatrix& motion);

#endif
