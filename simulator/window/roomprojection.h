// The room from above, fitted into an area of the screen.
#ifndef SIMULATOR_WINDOW_ROOMPROJECTION_H
#define SIMULATOR_WINDOW_ROOMPROJECTION_H

#include "simulator/model/roomlayout.h"

#include <QPointF>
#include <QRectF>

namespace simulator
{

/// The rear wall is at the top. Pixels are square: one scale holds for both directions.
class RoomProjection
{
public:
    explicit RoomProjection(const QRectF& area);

    QPointF operator()(const Vec3& world) const;
    double pixels(double mm) const { return mm * m_scale; }
    QRectF floor() const;

private:
    QPointF m_center;
    double m_scale; ///< pixels per mm
};

} // namespace simulator

#endif
