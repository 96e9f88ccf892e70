// Colors that can be read on whatever palette the desktop has.
#ifndef HOST_WINDOW_COLORS_H
#define HOST_WINDOW_COLORS_H

#include <QColor>

class QPalette;

/// Between 1 (the same) and 21 (black on white), from the relative luminances.
double contrast(const QColor& a, const QColor& b);

/// `wanted`, made lighter or darker as far as it takes to have `lowest_contrast` to `background`.
constexpr double lowest_contrast = 4.5;
QColor readable(const QColor& wanted, const QColor& background);

/// What each part of the host's window is written in.
struct WindowColors
{
    QColor fault;    ///< what has failed, on the palette's base
    QColor emphasis; ///< what changes the controller, on the palette's base
    QColor done;     ///< what has succeeded, on the palette's base
    QColor quiet;    ///< what matters less, on the palette's base
    QColor status;   ///< faults in the status bar, on the palette's window color
};
WindowColors colors_for(const QPalette& palette);

#endif
