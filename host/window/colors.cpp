#include "host/window/colors.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace
{

const QColor red(176, 0, 32);
const QColor blue(0, 82, 164);
const QColor green(0, 110, 50);

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
           + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor& from, const QColor& to, double share)
{
    return QColor::fromRgbF(from.redF() + share * (to.redF() - from.redF()),
                            from.greenF() + share * (to.greenF() - from.greenF()),
                            from.blueF() + share * (to.blueF() - from.blueF()));
}

} // namespace

double contrast(const QColor& a, const QColor& b)
{
    const double one = luminance(a) + 0.05, other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor readable(const QColor& wanted, const QColor& background)
{
    constexpr int steps = 20;
    const QColor black(Qt::black), white(Qt::white);
    const QColor end = contrast(white, background) > contrast(black, background) ? white : black;
    for (int i = 0; i < steps; ++i) {
        const QColor color = mixed(wanted, end, double(i) / steps);
        if (contrast(color, background) >= lowest_contrast)
            return color;
    }
    return end;
}

WindowColors colors_for(const QPalette& palette)
{
    const QColor& base = palette.color(QPalette::Base);
    const QColor& text = palette.color(QPalette::Text);
    return {readable(red, base), readable(blue, base), readable(green, base),
            readable(mixed(text, base, 0.35), base),
            readable(red, palette.color(QPalette::Window))};
}
