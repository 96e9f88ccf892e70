#include "simulator/window/roomcolors.h"

#include <algorithm>
#include <cmath>

namespace simulator
{

namespace
{

constexpr double grid_share = 0.09; ///< of the text's color in the floor's
constexpr int fill_alpha = 38;
constexpr int lightness_steps = 64;

/// A component of the sRGB color space as an amount of light.
double light(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF())
           + 0.0722 * light(color.blueF());
}

QColor mix(const QColor& a, const QColor& b, double share_of_b)
{
    const auto part = [&](double x, double y) { return x + share_of_b * (y - x); };
    return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()),
                            part(a.blueF(), b.blueF()));
}

/// The color nearest to `wish` on the way to white or black that stands out from both areas; where
/// none does, the one that stands out most.
QColor legible(const QColor& wish, const QColor& floor, const QColor& background)
{
    const auto least = [&](const QColor& color) {
        return std::min(contrast(color, floor), contrast(color, background));
    };
    QColor best = wish;
    for (int i = 0; i <= lightness_steps && least(best) < RoomColors::least_contrast; ++i)
        for (const QColor& end : {QColor(Qt::black), QColor(Qt::white)}) {
            const QColor candidate = mix(wish, end, double(i) / lightness_steps);
            if (least(candidate) > least(best))
                best = candidate;
        }
    return best;
}

} // namespace

double contrast(const QColor& a, const QColor& b)
{
    const double brighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (brighter + 0.05) / (darker + 0.05);
}

RoomColors::RoomColors(const QPalette& palette)
    : background(palette.color(QPalette::Active, QPalette::Window)),
      floor(palette.color(QPalette::Active, QPalette::Base))
{
    const QColor ink = palette.color(QPalette::Active, QPalette::Text);
    const auto readable = [&](const QColor& wish) { return legible(wish, floor, background); };
    grid = mix(floor, ink, grid_share);
    text = readable(ink);
    wall = readable("#6d7684");
    quiet = readable("#6d7684");
    camera = readable("#3d4a5c");
    blind_camera = readable("#8a8f98");
    calibrated = readable("#3b6cc0");
    adjusted = readable("#c05f0c");
    object = readable("#237a58");
    measured = readable("#8a5a00");
    held = readable("#b3264a");
    stick = readable("#7a4fb5");
    good = readable("#1a7f3c");
    bad = readable("#b3264a");
    object_fill = object;
    object_fill.setAlpha(fill_alpha);
}

} // namespace simulator
