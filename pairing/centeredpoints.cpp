#include "pairing/centeredpoints.h"

#include <algorithm>
#include <cmath>

namespace
{

double largest_magnitude(const double (*points)[3], int n)
{
    double largest = 0.0;
    for (int i = 0; i < n; ++i)
        for (int c = 0; c < 3; ++c)
            largest = std::max(largest, std::fabs(points[i][c]));
    return largest;
}

/// Returns the sum of the squared distances to the centroid.
double center(double (*out)[3], double* squares, const double (*points)[3], int n, double unit)
{
    double centroid[3] = {0.0, 0.0, 0.0};
    for (int i = 0; i < n; ++i)
        for (int c = 0; c < 3; ++c)
            centroid[c] += points[i][c] * unit / n;

    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        squares[i] = 0.0;
        for (int c = 0; c < 3; ++c) {
            out[i][c] = points[i][c] * unit - centroid[c];
            squares[i] += out[i][c] * out[i][c];
        }
        sum += squares[i];
    }
    return sum;
}

struct Farther
{
    const double* squares;
    bool operator()(int i, int j) const
    {
        return squares[i] != squares[j] ? squares[i] > squares[j] : i < j;
    }
};

} // namespace

CenteredPoints::CenteredPoints(const double (*reference_)[3], const double (*measured_)[3], int n_)
    : n(n_)
{
    const double largest =
        std::max(largest_magnitude(reference_, n), largest_magnitude(measured_, n));
    // A power of two, so that changing the unit rounds nothing; kept where it is a normal number.
    unit = std::ldexp(1.0, std::min(1000, std::max(-1000, -std::ilogb(largest) - 1)));
    reference_sum = center(reference, reference_square, reference_, n, unit);
    measured_sum = center(measured, measured_square, measured_, n, unit);
    for (int j = 0; j < n; ++j) {
        measured_x[j] = measured[j][0];
        measured_y[j] = measured[j][1];
        measured_z[j] = measured[j][2];
    }
}

double CenteredPoints::least_trace(double ceiling, double tolerance) const
{
    const double residual_rounding = 1e-12; // relative
    const double trace_rounding = 1e-10;    // relative to the sums of squares
    const double sum = reference_sum + measured_sum;
    const double widest = ceiling * unit * (1.0 + residual_rounding) + tolerance;
    return 0.5 * (sum - n * widest * widest) - trace_rounding * sum;
}

void sort_outside_in(int* begin, int* end, const double* squares)
{
    const Farther farther = {squares};
    std::sort(begin, end, farther);
}

void add_pair(double (*out)[3], const double* a, const double* b)
{
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            out[r][c] += a[r] * b[c];
}

void cross_covariance(double (*out)[3], const CenteredPoints& points, const int* order)
{
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            out[r][c] = 0.0;
    for (int i = 0; i < points.n; ++i)
        add_pair(out, points.reference[i], points.measured[order[i]]);
}
