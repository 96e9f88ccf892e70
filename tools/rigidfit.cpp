#include "tools/rigidfit.h"

#include "pairing/rotationfit.h"

namespace
{

// Rounding of the sums, as a share of them.
constexpr double rounding = 1e-9;

constexpr double degrees_per_radian = 57.295779513082321;

void add_product(double (*H)[3], const bsVector& a, const bsVector& b)
{
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            H[r][c] += a[r] * b[c];
}

bsMatrix best_motion(const double (*H)[3], const bsVector& to, const bsVector& from)
{
    double quaternion[4];
    double R[3][3];
    best_rotation(H, quaternion);
    rotation_product(R, quaternion, quaternion);
    bsMatrix T(bsMatrix::getIdentityMatrix());
    for (int r = 0; r < 3; ++r)
        T.setRow(r, bsVector(R[r]), 0.0);
    const bsVector rotated = T * from;
    T.setColumn(3, to - rotated, 1.0);
    return T;
}

} // namespace

RigidFit fit_rigidly(const Points& reference, const Points& measured, const std::vector<int>& order)
{
    Points paired;
    for (int i : order)
        paired.push_back(measured[i]);
    const bsVector to = centroid(reference), from = centroid(paired);
    double H[3][3] = {};
    for (std::size_t i = 0; i < paired.size(); ++i)
        add_product(H, reference[i] - to, paired[i] - from);
    RigidFit fit = {best_motion(H, to, from), 0.0};
    for (std::size_t i = 0; i < paired.size(); ++i) {
        const bsVector off = fit.T_reference_measured * paired[i] - reference[i];
        fit.square_sum += bsVector::dotProduct(off, off);
    }
    return fit;
}

void PairSums::add(const bsVector& reference, const bsVector& measured)
{
    ++m_count;
    m_squares +=
        bsVector::dotProduct(reference, reference) + bsVector::dotProduct(measured, measured);
    m_reference += reference;
    m_measured += measured;
    add_product(m_products, reference, measured);
}

bool PairSums::exceed(double ceiling) const
{
    double H[3][3];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            H[r][c] = m_products[r][c] - m_reference[r] * m_measured[c] / m_count;
    const double squares = m_squares
                           - (bsVector::dotProduct(m_reference, m_reference)
                              + bsVector::dotProduct(m_measured, m_measured))
                                 / m_count;
    // The least sum is `squares` minus twice the largest trace of a rotation times H.
    return trace_stays_below(H, 0.5 * (squares - ceiling - rounding * m_squares));
}

double turn_of(const bsMatrix& motion)
{
    const double cosine = 0.5 * (motion(0, 0) + motion(1, 1) + motion(2, 2) - 1.0);
    return std::acos(std::max(-1.0, std::min(1.0, cosine))) * degrees_per_radian;
}
