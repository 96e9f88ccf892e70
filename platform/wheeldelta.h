// How far a mouse wheel was turned; the name of that differs between the Qt series.
#ifndef PLATFORM_WHEELDELTA_H
#define PLATFORM_WHEELDELTA_H

#include <QWheelEvent>

/// The turn about the upright axis in eighths of a degree, positive away from the person.
inline int wheel_delta(const QWheelEvent* event)
{
#if QT_VERSION >= 0x050000
    return event->angleDelta().y();
#else
    return event->delta();
#endif
}

#endif
