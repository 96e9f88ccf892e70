#include "tools/noise.h"

#include <Eigen/Dense>

#include <limits>

namespace
{

constexpr double quantile_of_999 = 3.0902; // standard normal
constexpr double least_share = 1e-12;      // of the inertia, below which points lie on one line

double chi_square_quantile(double freedom)
{
    const double spread = 2.0 / (9.0 * freedom);
    const double root = 1.0 - spread + quantile_of_999 * std::sqrt(spread);
    return freedom * root * root * root;
}

Eigen::Vector3d to_eigen(const bsVector& v) { return Eigen::Vector3d(v.x, v.y, v.z); }

/// How hard the points resist a turn about their centroid, for each direction of its axis.
Eigen::Matrix3d inertia(const Points& points, const bsVector& center)
{
    Eigen::Matrix3d sum = Eigen::Matrix3d::Zero();
    for (const bsVector& point : points) {
        const Eigen::Vector3d p = to_eigen(point - center);
        sum += p.squaredNorm() * Eigen::Matrix3d::Identity() - p * p.transpose();
    }
    return sum;
}

} // namespace

double largest_square_sum(std::size_t pairs, double noise)
{
    return noise * noise * chi_square_quantile(3.0 * double(pairs) - 6.0);
}

double largest_residual(std::size_t pairs, double noise)
{
    return std::sqrt(largest_square_sum(pairs, noise) / double(pairs));
}

double indistinct_square_sum(double noise) { return 2.0 * std::log(1000.0) * noise * noise; }

// With J the inertia about the centroid and p the place from there, the sum of the squared
// distances of p from the principal axes, each over the moment of its axis, is
// |p|^2 trace(J^-1) - p J^-1 p.
double target_error(const Points& points, const bsVector& place, double noise)
{
    const bsVector center = centroid(points);
    const Eigen::Matrix3d J = inertia(points, center);
    const Eigen::Vector3d moments =
        Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d>(J, Eigen::EigenvaluesOnly).eigenvalues();
    if (!(moments[0] > least_share * moments[2]))
        return std::numeric_limits<double>::infinity();
    const Eigen::Matrix3d inverse = J.inverse();
    const Eigen::Vector3d p = to_eigen(place - center);
    const double turning = p.squaredNorm() * inverse.trace() - p.dot(inverse * p);
    return noise * std::sqrt(3.0 / double(points.size()) + turning);
}
