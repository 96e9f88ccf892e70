// Two point lists about their centroids, in a common unit that keeps all numbers near one.
#ifndef PAIRING_CENTEREDPOINTS_H
#define PAIRING_CENTEREDPOINTS_H

#include "registration/trafo3d.h"

/// A pairing uses every point of both lists, so in each order the best rigid fit is a rotation
/// about the two centroids. What the bounds need of the lists is here.
struct CenteredPoints
{
    /// Lists of n points, 1 to trafo3d_max_points, all finite and not all zero.
    CenteredPoints(const double (*reference)[3], const double (*measured)[3], int n);

    /// Least sum of a_i . R b_order[i] with which an order with the rotation R can have a residual
    /// up to `ceiling` (in the unit of the lists); minus infinity for an infinite ceiling. It is
    /// widened by `tolerance` (a residual in the unit in here) and by the rounding of the bounds.
    double least_trace(double ceiling, double tolerance) const;

    int n;
    double unit;                             ///< multiply a length by this to get it in here
    double reference[trafo3d_max_points][3]; ///< a_i
    double measured[trafo3d_max_points][3];  ///< b_j
    double measured_x[trafo3d_max_points];   ///< the same by coordinate
    double measured_y[trafo3d_max_points];
    double measured_z[trafo3d_max_points];
    double reference_square[trafo3d_max_points]; ///< |a_i|^2
    double measured_square[trafo3d_max_points];  ///< |b_j|^2
    double reference_sum;                        ///< sum of |a_i|^2
    double measured_sum;                         ///< sum of |b_j|^2
};

/// Sorts indices of points by falling distance to the centroid, equal ones by index.
void sort_outside_in(int* begin, int* end, const double* squares);

/// out = the sum of a_i b_order[i]^T over the pairs of the order.
void cross_covariance(double (*out)[3], const CenteredPoints& points, const int* order);

/// The same with one pair more.
void add_pair(double (*out)[3], const double* a, const double* b);

#endif
