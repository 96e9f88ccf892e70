#include "coarse/renderarea.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>

namespace
{

const int side = 206;
const char* const pictures[] = {":/background.png", ":/normal.png", ":/powerwall_standing.png",
                                ":/mid_camera.png"};

struct Direction
{
    const char* name;
    QPoint step;     // pixels along the half axis
    QPoint heads[2]; // one on each stroke of the arrow head, clear of the half axis
};

// In the order of the record: left, right, up, down, out, in.
const Direction directions[] = {
    {"left", {-1, 0}, {{14, 99}, {14, 107}}}, {"right", {1, 0}, {{192, 99}, {192, 107}}},
    {"up", {0, -1}, {{99, 14}, {107, 14}}},   {"down", {0, 1}, {{99, 192}, {107, 192}}},
    {"out", {-1, 1}, {{30, 171}, {35, 176}}}, {"in", {1, -1}, {{176, 35}, {171, 30}}},
};

// Whether the pixel has the colour of the axis: red, green, blue for x, y, z.
bool has_colour(const QImage& image, QPoint point, int axis_code)
{
    const QColor colour = image.pixelColor(point);
    const int parts[] = {colour.red(), colour.green(), colour.blue()};
    const int axis = axis_code / 2;
    return parts[axis] - qMax(parts[(axis + 1) % 3], parts[(axis + 2) % 3]) > 100;
}

bool has_colour_nearby(const QImage& image, QPoint centre, int axis_code)
{
    bool found = false;
    for (int i = 0; i < 9; ++i)
        found |= has_colour(image, centre + QPoint(i / 3 - 1, i % 3 - 1), axis_code);
    return found;
}

// The part of the half axis that has its colour, 0 to 1.
double covered_part(const QImage& image, QPoint step, int axis_code)
{
    const int first = 10, last = 70;
    int covered = 0;
    for (int i = first; i < last; ++i) {
        const QPoint corner = QPoint(side / 2, side / 2) + i * step;
        covered += has_colour(image, corner - QPoint(step.x() * step.y() != 0, 0), axis_code);
    }
    return double(covered) / (last - first);
}

QImage sketch(int type, const CoordinateAxix& axis)
{
    RenderArea area(side, nullptr);
    area.resize(side, side);
    area.set_coord_type(type);
    area.set_current_axis(axis);
    return area.grab().toImage();
}

int differing_pixels(const QImage& image, const char* picture)
{
    const QImage other = QImage(picture).convertToFormat(image.format());
    int count = 0;
    for (int x = 0; x < side; ++x)
        for (int y = 0; y < side; ++y)
            count += image.pixel(x, y) != other.pixel(x, y);
    return count;
}

} // namespace

class TestRenderArea : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        install_fatal_logger();
        Q_INIT_RESOURCE(roomadjustment);
        for (const char* picture : pictures)
            QCOMPARE(QImage(picture).size(), QSize(side, side));
    }

    void half_axes_carry_colour_style_and_head()
    {
        for (const CoordinateAxix& axis :
             {CoordinateAxix{0, 1, 2, 3, 4, 5}, {1, 0, 3, 2, 5, 4}, {2, 3, 5, 4, 1, 0}}) {
            const int codes[] = {axis.left, axis.right, axis.up, axis.down, axis.out, axis.in};
            const QImage image = sketch(2, axis);
            for (int i = 0; i < 6; ++i) {
                const Direction& direction = directions[i];
                const double covered = covered_part(image, direction.step, codes[i]);
                const bool positive = codes[i] % 2 == 0;
                QVERIFY2(positive ? covered == 1.0 : covered > 0.5 && covered < 0.78,
                         direction.name);
                for (const QPoint& head : direction.heads)
                    QVERIFY2(has_colour_nearby(image, head, codes[i]) == positive, direction.name);
            }
        }
    }

    void type_chooses_picture_and_axes()
    {
        const QMap<int, int> picture_of_type = {{-1, 0}, {0, 1}, {1, 1}, {2, 2}, {3, 3}, {5, 0}};
        for (int type : picture_of_type.keys()) {
            const char* const picture = pictures[picture_of_type[type]];
            const QImage image = sketch(type, {1, 0, 2, 3, 4, 5});
            const int difference = differing_pixels(image, picture);
            for (const char* other : pictures)
                QVERIFY2(other == picture || differing_pixels(image, other) > difference, other);
            QCOMPARE(difference > 0, type >= 0 && type <= 3);
        }
    }
};

QTEST_MAIN(TestRenderArea)
#include "test_renderarea.moc"
