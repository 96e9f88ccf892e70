// Point lists of the offline tool, and the little arithmetic that several of its units need.
#ifndef TOOLS_POINTS_H
#define TOOLS_POINTS_H

#include "src/bsVector.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

/// Points in mm.
typedef std::vector<bsVector> Points;

/// The list as rows of three doubles, which is how a vector of them lies in memory.
inline const double (*rows(const Points& points))[3]
{
    static_assert(sizeof(bsVector) == sizeof(double[3]), "a point is three doubles");
    return reinterpret_cast<const double(*)[3]>(points.data());
}

inline double length(const bsVector& v) { return std::sqrt(bsVector::dotProduct(v, v)); }

inline double distance(const bsVector& a, const bsVector& b) { return length(a - b); }

/// Of a list that is not empty.
inline bsVector centroid(const Points& points)
{
    return std::accumulate(points.begin(), points.end(), bsVector())
           / static_cast<double>(points.size());
}

inline Points moved_by(Points points, const bsVector& shift)
{
    for (bsVector& point : points)
        point += shift;
    return points;
}

/// 0, 1, ... count - 1.
inline std::vector<int> counting_order(std::size_t count)
{
    std::vector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    return order;
}

#endif
