#include "simulator/window/labelplacer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace simulator
{

namespace
{

constexpr int directions = 16;
constexpr int rings = 6;
constexpr double ring_spacing = 9.0; ///< pixels
constexpr double gap = 3.0;          ///< pixels between a marker and its label
constexpr double line_piece = 6.0;   ///< pixels
constexpr double negligible = 0.5;   ///< pixels squared, rounding included
const double full_turn = 2.0 * std::acos(-1.0);

double area(const QRectF& rect) { return rect.isValid() ? rect.width() * rect.height() : 0.0; }

/// Center of a label that touches the circle of this radius from outside.
QPointF beside(const QPointF& anchor, const QSizeF& size, double radius, double angle)
{
    const QPointF direction(std::cos(angle), std::sin(angle));
    return anchor
           + QPointF(direction.x() * (radius + size.width() / 2),
                     direction.y() * (radius + size.height() / 2));
}

QRectF around(const QPointF& center, const QSizeF& size)
{
    return {center - QPointF(size.width() / 2, size.height() / 2), size};
}

} // namespace

void LabelPlacer::block_line(const QPointF& from, const QPointF& to)
{
    const QPointF way = to - from;
    const int pieces = 1 + int(std::hypot(way.x(), way.y()) / line_piece);
    for (int i = 0; i <= pieces; ++i)
        block(around(from + way * (double(i) / pieces), {line_piece, line_piece}));
}

double LabelPlacer::covered(const QRectF& candidate) const
{
    double sum = area(candidate) - area(candidate.intersected(m_bounds));
    for (const QRectF& other : m_taken)
        sum += area(candidate.intersected(other));
    return sum;
}

QRectF LabelPlacer::place(const QPointF& anchor, const QSizeF& size, double marker_radius)
{
    QRectF best;
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < rings * directions && least > negligible; ++i) {
        const double radius = marker_radius + gap + (i / directions) * ring_spacing;
        const double angle = (i % directions) * full_turn / directions;
        const QRectF candidate = around(beside(anchor, size, radius, angle), size);
        const double cost = covered(candidate);
        if (cost < least) {
            least = cost;
            best = candidate;
        }
    }
    block(best);
    return best;
}

} // namespace simulator
