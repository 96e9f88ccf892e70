#include "matching/ordersearch.h"

#include "registration/trafo3d.h"

#include <algorithm>
#include <cstring>

namespace
{

typedef double PointList[trafo3d_max_points][3];

/// Returns whether the fit of the measured points in this order succeeds, and its residual.
bool fit_order(double (*target)[3], const double (*measured)[3], const int* order, int n,
               double* residual)
{
    PointList candidate;
    for (int i = 0; i < n; ++i)
        std::memcpy(candidate[i], measured[order[i]], sizeof candidate[i]);
    double T_target_candidate[4][4];
    return trafo3d_3trafo(T_target_candidate, target, candidate) == 0
           && trafo3d_opttrafo(T_target_candidate, nullptr, target, candidate, n, residual) == 0;
}

} // namespace

bool find_best_order(const double (*reference)[3], const double (*measured)[3], int n, int* order)
{
    if (n < 3 || n > trafo3d_max_points)
        return false;
    PointList target;
    std::memcpy(target, reference, n * sizeof target[0]);
    int tried[trafo3d_max_points];
    for (int i = 0; i < n; ++i)
        tried[i] = i;

    bool found = false;
    float best_residual = -1.0f; // single precision decides which of nearly equal orders wins
    do {
        double residual;
        if (fit_order(target, measured, tried, n, &residual)
            && (!found || double(best_residual) > residual)) {
            best_residual = float(residual);
            std::memcpy(order, tried, n * sizeof order[0]);
            found = true;
        }
    } while (std::next_permutation(tried, tried + n));
    return found;
}
