// The colors of the simulator's window, made from the desktop's palette.
#ifndef SIMULATOR_WINDOW_ROOMCOLORS_H
#define SIMULATOR_WINDOW_ROOMCOLORS_H

#include <QColor>
#include <QPalette>

namespace simulator
{

/// From 1, no difference, to 21, black on white, as WCAG 2 defines it.
double contrast(const QColor& a, const QColor& b);

/// All but the areas, `grid` and `object_fill` stand out from both areas with at least
/// `least_contrast` on light and dark palettes, since text is written in them.
struct RoomColors
{
    static constexpr double least_contrast = 4.5;

    explicit RoomColors(const QPalette& palette);

    QColor background, floor; ///< areas: outside the walls, and inside
    QColor grid, object_fill;
    QColor wall, text, quiet;
    QColor camera, blind_camera;
    QColor calibrated, adjusted; ///< axes of the two rooms
    QColor object, measured;
    QColor held, stick, good, bad;
};

} // namespace simulator

#endif
