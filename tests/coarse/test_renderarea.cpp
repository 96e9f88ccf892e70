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
    QRect half_axis; // a length of 60 pixels of it, without centre and arrow head
    QPoint heads[2]; // one on each stroke of the arrow head, clear of the half axis
};

// In the order of the record: left, right, up, down, out, in.
const Direction directions[] = {
    {"left", {33, 98, 60, 10}, {{14, 99}, {14, 107}}},
    {"right", {113, 98, 60, 10}, {{192, 99}, {192, 107}}},
    {"up", {98, 33, 10, 60}, {{99, 14}, {107, 14}}},
    {"down", {98, 113, 10, 60}, {{99, 192}, {107, 192}}},
    {"out", {33, 113, 60, 60}, {{30, 171}, {35, 176}}},
    {"in", {113, 33, 60, 60}, {{176, 35}, {171, 30}}},
};

// How many pixels have the colour of the axis: red, green, blue for x, y, z.
int colored_pixels(const QImage& image, const QRect& part, int axis_code)
{
    int count = 0;
    for (int i = 0; i < part.width() * part.height(); ++i) {
        const QColor color =
            image.pixelColor(part.topLeft() + QPoint(i % part.width(), i / part.width()));
        const int parts[] = {color.red(), color.green(), color.blue()};
        const int axis = axis_code / 2;
        count += parts[axis] - qMax(parts[(axis + 1) % 3], parts[(axis + 2) % 3]) > 100;
    }
    return count;
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
                const bool positive = codes[i] % 2 == 0;
                const int colored = colored_pixels(image, direction.half_axis, codes[i]);
                const int full = i < 4 ? 120 : 170; // two pixels wide, slanted lines a bit more
                QVERIFY2(positive ? colored >= full : colored > full / 2 && colored < 0.78 * full,
                         direction.name);
                for (const QPoint& head : direction.heads) {
                    const QRect nearby(head - QPoint(1, 1), QSize(3, 3));
                    QVERIFY2((colored_pixels(image, nearby, codes[i]) > 0) == positive,
                             direction.name);
                }
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
