#include "simulator/window/roomview.h"

#include "simulator/model/simulator.h"
#include "simulator/window/roompainter.h"

#include <QMouseEvent>
#include <cmath>

namespace simulator
{

namespace
{

constexpr double reach = 14.0; ///< pixels from a point's middle within which a click counts

} // namespace

RoomView::RoomView(const Simulator& the_simulator, QWidget* parent)
    : QWidget(parent), m_simulator(the_simulator)
{
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize RoomView::minimumSizeHint() const { return {480, 400}; }

int RoomView::point_at(const QPointF& place) const
{
    const RoomProjection projection(rect());
    int nearest = -1;
    double least = reach;
    for (size_t i = 0; i < m_simulator.world.points.size(); ++i) {
        const QPointF way = projection(m_simulator.world.object_point(int(i))) - place;
        const double distance = std::hypot(way.x(), way.y());
        if (distance <= least) {
            least = distance;
            nearest = int(i);
        }
    }
    return nearest;
}

void RoomView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    RoomPainter(painter, m_simulator, rect(), m_hovered).paint();
}

void RoomView::mousePressEvent(QMouseEvent* event)
{
    const int point = point_at(event->localPos());
    if (point >= 0 && event->button() == Qt::LeftButton)
        emit point_clicked(point + 1);
}

void RoomView::mouseMoveEvent(QMouseEvent* event)
{
    const int point = point_at(event->localPos());
    if (point == m_hovered)
        return;
    m_hovered = point;
    setCursor(point >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

} // namespace simulator
