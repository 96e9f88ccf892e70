// A Qwt wheel's set-up and signals; their names differ between the Qwt series.
#ifndef PLATFORM_QWTWHEEL_H
#define PLATFORM_QWTWHEEL_H

#include <qwt_global.h>
#include <qwt_wheel.h>

#if QWT_VERSION >= 0x060000
#define WHEEL_PRESSED SIGNAL(wheelPressed())
#define WHEEL_RELEASED SIGNAL(wheelReleased())
#else
#define WHEEL_PRESSED SIGNAL(sliderPressed())
#define WHEEL_RELEASED SIGNAL(sliderReleased())
#endif

/// Values from 0 to `range` in steps of `step`, `page_steps` of them at once, without an end: after
/// `range` comes 0.
inline void set_up_endless_wheel(QwtWheel* wheel, double range, double step, int page_steps,
                                 int ticks)
{
#if QWT_VERSION >= 0x060000
    wheel->setRange(0.0, range);
    wheel->setSingleStep(step);
    wheel->setPageStepCount(page_steps);
    wheel->setWrapping(true);
    wheel->setTickCount(ticks);
#else
    wheel->setRange(0.0, range, step, page_steps);
    wheel->setPeriodic(true);
    wheel->setTickCnt(ticks);
#endif
}

#endif
