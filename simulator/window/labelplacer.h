// Finds room for labels beside what they name, so that none covers another.
#ifndef SIMULATOR_WINDOW_LABELPLACER_H
#define SIMULATOR_WINDOW_LABELPLACER_H

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace simulator
{

class LabelPlacer
{
public:
    /// Labels stay within `bounds`.
    explicit LabelPlacer(const QRectF& bounds) : m_bounds(bounds) {}

    /// No label is to cover this, as long as there is another place for it.
    void block(const QRectF& area) { m_taken.push_back(area); }
    void block_line(const QPointF& from, const QPointF& to);

    /// The nearest free place for a label of this size around a marker of this radius; it counts
    /// as taken from then on. Where nothing is free, the place that covers least.
    QRectF place(const QPointF& anchor, const QSizeF& size, double marker_radius);

private:
    double covered(const QRectF& candidate) const;

    QRectF m_bounds;
    std::vector<QRectF> m_taken;
};

} // namespace simulator

#endif
