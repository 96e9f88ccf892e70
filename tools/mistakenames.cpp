#include "tools/mistakenames.h"

#include <QStringList>

#include <cmath>

namespace
{

const char* const axis_names[3] = {"x", "y", "z"};

constexpr double factors[] = {10.0, 100.0, 1000.0, 0.1, 0.01, 0.001};
constexpr double decimal_step = 0.005; // what a coordinate with two decimals leaves open, mm
constexpr double vague_share = 0.2;    // a match must be closer than this share of the value
constexpr double factor_accuracy = 0.02;

bool is_close(double value, double expected, double tolerance)
{
    return std::fabs(value - expected) <= tolerance;
}

/// Close, and not only because all is small.
bool explains(double value, double expected, double tolerance)
{
    return is_close(value, expected, tolerance) && tolerance < vague_share * std::fabs(expected);
}

/// The factor of ten by which `given` has to be multiplied, or 0.
double missing_factor(double given, double expected, double tolerance)
{
    for (double factor : factors)
        if (explains(given * factor, expected, tolerance + decimal_step * factor))
            return factor;
    return 0.0;
}

QString millimeters(double value)
{
    const double size = std::fabs(value);
    return QString::number(size, 'f',
                           size < 10.0     ? 2
                           : size < 1000.0 ? 1
                                           : 0)
           + QLatin1String(" mm");
}

QString factor_text(double factor)
{
    const QString name = name_factor(factor);
    return factor > 1.0 ? name + QLatin1String(" times too small")
                        : name + QLatin1String(" times too large");
}

/// One coordinate for itself.
NamedMistake name_coordinate(int axis, double given, double expected, double tolerance)
{
    const QString name = QLatin1String(axis_names[axis]);
    if (explains(-given, expected, tolerance))
        return {name
                    + QLatin1String(expected < 0.0 ? " lacks its minus sign"
                                                   : " has a minus sign too much"),
                true};
    const double factor = missing_factor(given, expected, tolerance);
    if (factor != 0.0)
        return {name + QLatin1String(" is ") + factor_text(factor), true};
    return {name + QLatin1String(" is off by ") + millimeters(given - expected), false};
}

/// "" unless all three coordinates are written in another unit.
QString name_common_factor(const bsVector& given, const bsVector& expected, double tolerance)
{
    for (double factor : factors) {
        bool all = true;
        bool any = false;
        for (int c = 0; c < 3; ++c) {
            const double allowed = tolerance + decimal_step * factor;
            all = all && is_close(given[c] * factor, expected[c], allowed);
            any = any || explains(given[c] * factor, expected[c], allowed);
        }
        if (all && any)
            return QLatin1String("all coordinates are ") + factor_text(factor)
                   + QLatin1String(factor == 1000.0 ? ", as in metres" : "");
    }
    return QString();
}

/// "" unless the coordinates are those expected, on other axes.
QString name_exchange(const bsVector& given, const bsVector& expected, double tolerance)
{
    const int orders[][3] = {{1, 0, 2}, {2, 1, 0}, {0, 2, 1}, {1, 2, 0}, {2, 0, 1}};
    const char* const names[] = {"x and y are swapped", "x and z are swapped",
                                 "y and z are swapped", "the axes are swapped (y, z, x)",
                                 "the axes are swapped (z, x, y)"};
    for (int k = 0; k < 5; ++k) {
        bool all = true;
        for (int c = 0; c < 3; ++c)
            all = all && is_close(given[orders[k][c]], expected[c], tolerance);
        if (all)
            return QLatin1String(names[k]);
    }
    return QString();
}

} // namespace

QString name_factor(double factor)
{
    const double size = factor < 1.0 ? 1.0 / factor : factor;
    for (double known : {10.0, 100.0, 1000.0})
        if (std::fabs(size / known - 1.0) < factor_accuracy)
            return QString::number(known);
    return QString();
}

NamedMistake name_mistake(const bsVector& given, const bsVector& expected, double tolerance)
{
    for (const QString& name : {name_exchange(given, expected, tolerance),
                                name_common_factor(given, expected, tolerance)})
        if (!name.isEmpty())
            return {name, true};

    QStringList slips;
    int unexplained = 0;
    for (int c = 0; c < 3; ++c) {
        if (is_close(given[c], expected[c], tolerance))
            continue;
        const NamedMistake slip = name_coordinate(c, given[c], expected[c], tolerance);
        slips << slip.what;
        unexplained += !slip.is_typing;
    }
    // One coordinate alone is mistyped; several that nothing explains are another place.
    if (unexplained == 0 || slips.size() == 1)
        return {slips.join(QLatin1String(", ")), true};
    const bsVector off = given - expected;
    return {QLatin1String("it is off by ") + millimeters(std::sqrt(bsVector::dotProduct(off, off))),
            false};
}
