#include "simulator/window/windowplace.h"

#include <QEvent>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <algorithm>

namespace simulator
{

namespace
{

constexpr int keep_delay = 500;  ///< ms after the last change
constexpr int title_height = 32; ///< pixels that a window manager adds above, about
constexpr int frame_width = 4;   ///< and at the other sides
constexpr QSize largest_first(1080, 760);
const char geometry_key[] = "window/geometry";

} // namespace

WindowPlace::WindowPlace(QWidget& window, bool fresh) : m_window(window)
{
    if (fresh || !restore())
        place_first();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &WindowPlace::keep);
    window.installEventFilter(this);
}

/// Qt moves a window that would lie beyond today's screens back onto one.
bool WindowPlace::restore()
{
    return m_window.restoreGeometry(QSettings().value(geometry_key).toByteArray());
}

void WindowPlace::place_first()
{
    const QRect screen = m_window.screen()->availableGeometry().adjusted(
        frame_width, title_height, -frame_width, -frame_width);
    const QSize half(screen.width() / 2, screen.height());
    const QSize size = half.boundedTo(largest_first).expandedTo(m_window.minimumSizeHint());
    m_window.resize(size);
    m_window.move(std::max(screen.left(), screen.right() + 1 - size.width()),
                  screen.top() - title_height);
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        m_timer.start(keep_delay);
    return QObject::eventFilter(watched, event);
}

void WindowPlace::keep() const { QSettings().setValue(geometry_key, m_window.saveGeometry()); }

} // namespace simulator
