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
    for (int x = -1; x <= 1; ++x)
        for (int y = -1; y <= 1; ++y)
            if (has_colour(image, centre + QPoint(x, y), axis_code))
                return true;
    return false;
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
    void initTestCase();
    void half_axes_carry_colour_style_and_head_data();
    void half_axes_carry_colour_style_and_head();
    void type_chooses_picture_and_axes_data();
    void type_chooses_picture_and_axes();
    void setters_leave_repainting_to_the_owner();
};

void TestRenderArea::initTestCase()
{
    install_fatal_logger();
    Q_INIT_RESOURCE(roomadjustment);
    for (const char* picture : pictures)
        QCOMPARE(QImage(picture).size(), QSize(side, side));
}

void TestRenderArea::half_axes_carry_colour_style_and_head_data()
{
    QTest::addColumn<QVector<int>>("codes");
    QTest::newRow("x left, y up, z out") << QVector<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("x right, y down, z in") << QVector<int>{1, 0, 3, 2, 5, 4};
    QTest::newRow("y left, z down, x in") << QVector<int>{2, 3, 5, 4, 1, 0};
}

void TestRenderArea::half_axes_carry_colour_style_and_head()
{
    QFETCH(QVector<int>, codes);
    const QImage image = sketch(2, {codes[0], codes[1], codes[2], codes[3], codes[4], codes[5]});
    for (int i = 0; i < codes.size(); ++i) {
        const Direction& direction = directions[i];
        const double covered = covered_part(image, direction.step, codes[i]);
        const bool positive = codes[i] % 2 == 0;
        QVERIFY2(positive ? covered == 1.0 : covered > 0.5 && covered < 0.78, direction.name);
        for (const QPoint& head : direction.heads)
            QVERIFY2(has_colour_nearby(image, head, codes[i]) == positive, direction.name);
    }
}

void TestRenderArea::type_chooses_picture_and_axes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("picture");
    QTest::newRow("not asked yet") << -1 << ":/background.png";
    QTest::newRow("normal") << 0 << ":/normal.png";
    QTest::newRow("powerwall shares the picture") << 1 << ":/normal.png";
    QTest::newRow("powerwall standing") << 2 << ":/powerwall_standing.png";
    QTest::newRow("mid camera") << 3 << ":/mid_camera.png";
    QTest::newRow("none") << 5 << ":/background.png";
}

void TestRenderArea::type_chooses_picture_and_axes()
{
    QFETCH(int, type);
    QFETCH(QString, picture);
    const QImage image = sketch(type, {1, 0, 2, 3, 4, 5});
    const int difference = differing_pixels(image, qPrintable(picture));
    for (const char* other : pictures)
        QVERIFY2(other == picture || differing_pixels(image, other) > difference, other);
    QCOMPARE(difference > 0, type >= 0 && type <= 3);
}

void TestRenderArea::setters_leave_repainting_to_the_owner()
{
    struct CountingArea : RenderArea
    {
        CountingArea() : RenderArea(side, nullptr) {}
        void paintEvent(QPaintEvent* event) override
        {
            ++paints;
            RenderArea::paintEvent(event);
        }
        int paints = 0;
    } area;
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QTRY_VERIFY(area.paints > 0);
    QCoreApplication::processEvents();
    area.paints = 0;
    area.set_coord_type(2);
    area.set_current_axis({1, 0, 2, 3, 4, 5});
    QCoreApplication::processEvents();
    QCOMPARE(area.paints, 0);
    area.update();
    QTRY_COMPARE(area.paints, 1);
}

QTEST_MAIN(TestRenderArea)
#include "test_renderarea.moc"
