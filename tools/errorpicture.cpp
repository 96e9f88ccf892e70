#include "tools/errorpicture.h"

#include "tools/noise.h"

namespace
{

constexpr double picture_width = 800.0; // pixels
constexpr double margin_share = 0.25;   // of the extent, around points and places
constexpr double least_extent = 100.0;  // mm
constexpr int cells = 40;               // along the longer side of the ground
constexpr double caption_height = 60.0; // pixels
constexpr double largest_circle = 60.0; // pixels
constexpr double dot_radius = 4.0;      // pixels
const char* const axis_names[3] = {"x", "y", "z"};

QString number(double value) { return QString::number(value, 'f', 1); }

/// Which part of which plane is drawn.
class Ground
{
public:
    Ground(const Points& reference, const Expectation& expected)
    {
        low = high = reference.front();
        for (const bsVector& point : reference)
            include(point);
        for (const ErrorAt& error : expected.places)
            include(error.place);
        choose_axes();
        widen();
        scale = picture_width / (high[right] - low[right]);
    }

    double height() const { return (high[up] - low[up]) * scale; }
    double x(const bsVector& p) const { return (p[right] - low[right]) * scale; }
    double y(const bsVector& p) const { return (high[up] - p[up]) * scale; }
    double cell() const { return std::max(high[right] - low[right], high[up] - low[up]) / cells; }

    bsVector low, high;
    int right = 0, up = 1; // axes
    double scale = 1.0;    // pixels per mm

private:
    void include(const bsVector& p)
    {
        low.minimize(p);
        high.maximize(p);
    }

    /// Leaves out the axis with the least extent.
    void choose_axes()
    {
        const bsVector extent = high - low;
        int least = 2;
        for (int axis = 1; axis >= 0; --axis)
            if (extent[axis] < extent[least])
                least = axis;
        right = least == 0 ? 1 : 0;
        up = least == 2 ? 1 : 2;
    }

    void widen()
    {
        const double largest = std::max(high[right] - low[right], high[up] - low[up]);
        const double margin = margin_share * std::max(largest, least_extent);
        for (int axis : {right, up}) {
            low[axis] -= margin;
            high[axis] += margin;
        }
    }
};

/// White for no error, red for `most`.
QString color_of(double error, double most)
{
    const double share = most > 0.0 && error < most ? error / most : 1.0;
    const int rest = static_cast<int>(255.0 * (1.0 - 0.8 * share));
    return QString::fromLatin1("rgb(255,%1,%1)").arg(rest);
}

struct Cell
{
    bsVector corner; // upper left
    double error;
};

/// The error on the level of the points' centroid.
std::vector<Cell> cells_of(const Ground& ground, const Points& reference, double noise)
{
    std::vector<Cell> found;
    bsVector corner = centroid(reference);
    const double step = ground.cell();
    for (double v = ground.high[ground.up]; v > ground.low[ground.up]; v -= step)
        for (double u = ground.low[ground.right]; u < ground.high[ground.right]; u += step) {
            corner[ground.right] = u;
            corner[ground.up] = v;
            bsVector middle = corner;
            middle[ground.right] += step / 2.0;
            middle[ground.up] -= step / 2.0;
            found.push_back({corner, target_error(reference, middle, noise)});
        }
    return found;
}

QString draw_cells(const Ground& ground, const std::vector<Cell>& found, double most)
{
    QString text;
    const QString size = number(ground.cell() * ground.scale + 0.5); // no gaps
    for (const Cell& cell : found)
        text += QString::fromLatin1(
                    "<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%3\" fill=\"%4\"/>\n")
                    .arg(number(ground.x(cell.corner)), number(ground.y(cell.corner)), size,
                         color_of(cell.error, most));
    return text;
}

/// To the right of a circle.
QString label(const Ground& ground, const bsVector& place, double radius, const QString& text)
{
    return QString::fromLatin1("<text x=\"%1\" y=\"%2\">%3</text>\n")
        .arg(number(ground.x(place) + radius + 4.0), number(ground.y(place) - 4.0), text);
}

QString circle(const Ground& ground, const bsVector& place, double radius, const char* style)
{
    return QString::fromLatin1("<circle cx=\"%1\" cy=\"%2\" r=\"%3\" %4/>\n")
        .arg(number(ground.x(place)), number(ground.y(place)), number(radius),
             QLatin1String(style));
}

QString draw_points(const Ground& ground, const Points& reference)
{
    QString text;
    for (std::size_t i = 0; i < reference.size(); ++i)
        text += circle(ground, reference[i], dot_radius, "fill=\"black\"")
                + label(ground, reference[i], dot_radius, QString::number(i + 1));
    return text;
}

QString draw_places(const Ground& ground, const Expectation& expected, double enlarged)
{
    QString text;
    for (const ErrorAt& error : expected.places) {
        const double radius = error.simulated * ground.scale * enlarged;
        text +=
            circle(ground, error.place, radius, "fill=\"none\" stroke=\"blue\" stroke-width=\"2\"")
            + label(ground, error.place, radius,
                    QString::number(error.simulated, 'f', 2) + QLatin1String(" mm"));
    }
    return text;
}

/// A round factor that makes the largest error well visible.
double enlargement(const Ground& ground, const Expectation& expected)
{
    double largest = 0.0;
    for (const ErrorAt& error : expected.places)
        largest = std::max(largest, error.simulated);
    const double factor = largest > 0.0 ? largest_circle / (largest * ground.scale) : 1.0;
    return std::pow(10.0, std::floor(std::log10(factor)));
}

QString caption(const Ground& ground, double enlarged, double most, double noise)
{
    // On white, as the cells may reach a little below the ground.
    return QString::fromLatin1(
               "<rect y=\"%9\" width=\"100%\" height=\"100%\" fill=\"white\"/>\n<text x=\"8\" "
               "y=\"%1\">%2 to the right, %3 up, %4 mm wide; noise %5 mm; red: error "
               "of %6 mm</text>\n<text x=\"8\" y=\"%7\">black: reference points; blue: error at "
               "the origin and other places, %8 times enlarged</text>\n")
        .arg(number(ground.height() + 22.0), QLatin1String(axis_names[ground.right]),
             QLatin1String(axis_names[ground.up]),
             number(ground.high[ground.right] - ground.low[ground.right]))
        .arg(noise)
        .arg(QString::number(most, 'f', 2), number(ground.height() + 46.0))
        .arg(enlarged)
        .arg(number(ground.height()));
}

} // namespace

QString error_picture(const Points& reference, const Expectation& expected, double noise)
{
    const Ground ground(reference, expected);
    const std::vector<Cell> found = cells_of(ground, reference, noise);
    double most = 0.0;
    for (const Cell& cell : found)
        most = std::max(most, cell.error);
    const double enlarged = enlargement(ground, expected);
    return QString::fromLatin1("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" "
                               "height=\"%2\" font-family=\"sans-serif\" font-size=\"14\">\n"
                               "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n")
               .arg(number(picture_width), number(ground.height() + caption_height))
           + draw_cells(ground, found, most) + draw_points(ground, reference)
           + draw_places(ground, expected, enlarged) + caption(ground, enlarged, most, noise)
           + QLatin1String("</svg>\n");
}
