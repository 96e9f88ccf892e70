#include "simulator/window/roomprojection.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr double margin = 330.0; ///< mm around the walls, for the cameras' labels

} // namespace

RoomProjection::RoomProjection(const QRectF& area)
    : m_center(area.center()), m_scale(std::min(area.width() / (2.0 * (room_half_width + margin)),
                                                area.height() / (2.0 * (room_half_depth + margin))))
{
}

QPointF RoomProjection::operator()(const Vec3& world) const
{
    return m_center + QPointF(m_scale * world.x, m_scale * world.z);
}

QRectF RoomProjection::floor() const
{
    return {(*this)({-room_half_width, 0.0, -room_half_depth}),
            (*this)({room_half_width, 0.0, room_half_depth})};
}

} // namespace simulator
