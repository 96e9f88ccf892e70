#include "simulator/window/roomview.h"

#include "simulator/model/simulator.h"
#include "simulator/window/roompainter.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <cmath>

namespace simulator
{

namespace
{

constexpr double same_place = 0.01; ///< pixels, rounding
constexpr double reach = 14.0;      ///< pixels from a point's middle within which a click counts

double length(const QPointF& v) { return std::hypot(v.x(), v.y()); }

/// A direction of the screen, or the null vector for another key.
QPointF arrow(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

RoomView::RoomView(const Simulator& simulator, QWidget* parent)
    : QWidget(parent), m_simulator(simulator)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName("Room from above");
    setAccessibleDescription("Keys 1 to 9 and the arrows put the tip on a point of the object; "
                             "Space measures there.");
}

QSize RoomView::minimumSizeHint() const { return {360, 300}; }

int RoomView::point_at(const QPointF& place) const
{
    const RoomProjection projection(rect());
    int nearest = -1;
    double least = reach;
    for (size_t i = 0; i < m_simulator.world.points.size(); ++i) {
        const double distance = length(projection(m_simulator.world.object_point(int(i))) - place);
        if (distance <= least) {
            least = distance;
            nearest = int(i);
        }
    }
    return nearest;
}

int RoomView::next_point(const QPointF& direction) const
{
    const Tool* tool = m_simulator.world.held_tool();
    if (!tool)
        return -1;
    const RoomProjection projection(rect());
    int nearest = -1;
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < int(m_simulator.world.points.size()); ++i) {
        const QPointF way = projection(m_simulator.world.object_point(i)) - projection(tool->tip);
        const double along = QPointF::dotProduct(way, direction);
        if (along > same_place && along < least) {
            least = along;
            nearest = i;
        }
    }
    return nearest;
}

void RoomView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const RoomColors colors(palette());
    RoomPainter(painter, m_simulator, colors, rect(), m_hovered).paint();
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colors.quiet, 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }
}

bool RoomView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int point = point_at(help->pos());
    if (point < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(),
                           QString("Point %1\nClick or key %1: put the tip here\n"
                                   "Double click or Space: measure it as well")
                               .arg(point + 1),
                           this);
    return true;
}

void RoomView::mousePressEvent(QMouseEvent* event)
{
    const int point = point_at(event->localPos());
    if (event->button() == Qt::LeftButton)
        touch(point);
}

/// The first click has touched the point.
void RoomView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && point_at(event->localPos()) >= 0)
        emit measure_wanted();
}

void RoomView::mouseMoveEvent(QMouseEvent* event) { point_at_mouse(point_at(event->localPos())); }

void RoomView::leaveEvent(QEvent*) { point_at_mouse(-1); }

void RoomView::point_at_mouse(int point)
{
    if (point == m_hovered)
        return;
    m_hovered = point;
    setCursor(point >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void RoomView::keyPressEvent(QKeyEvent* event)
{
    const QPointF direction = arrow(event->key());
    if (!direction.isNull())
        touch(next_point(direction));
    else if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        measure_with_space();
    else
        QWidget::keyPressEvent(event);
}

void RoomView::measure_with_space()
{
    touch(m_hovered);
    emit measure_wanted();
}

void RoomView::touch(int point)
{
    if (point >= 0)
        emit touch_wanted(point + 1);
}

} // namespace simulator
