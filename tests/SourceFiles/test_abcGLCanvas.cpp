#include "SourceFiles/abcGLCanvas.h"
#include "module/roomadjustmentdata.h"
#include "tests/support/fatal_logger.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace
{

const double scale = 4.0;

// Opens up what a test has to see, and loads a room at a known scale.
class OpenCanvas : public AbcGLCanvas
{
public:
    OpenCanvas() : AbcGLCanvas(nullptr, nullptr)
    {
        resize(400, 300);
        setRoomScaleFactor(scale);
    }

    using AbcGLCanvas::last_x;
    using AbcGLCanvas::resizeGL;
    using AbcGLCanvas::room;
    using AbcGLCanvas::saved_view;
    using AbcGLCanvas::tip_enabled;
    using AbcGLCanvas::tip_list;
    using AbcGLCanvas::view;
    using AbcGLCanvas::view_height;
    using AbcGLCanvas::view_mode;

    void load(double origin_x)
    {
        RoomAdjustmentData data;
        data.translation[0] = origin_x;
        loadRoom(&data);
    }

    // As the eye sees it.
    bsMatrix originFrame()
    {
        bsMatrix to_origin = room.loaded_inverse * room.cumulated * room.frame.toMatrix();
        return view.toMatrix() * room.frame.toMatrix() * to_origin.fastInvert();
    }

    bsMatrix transformedFrame() { return view.toMatrix() * room.frame.toMatrix(); }
};

void send_wheel(QWidget* widget, int delta, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, delta), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void send_move(QWidget* widget, const QPoint& position)
{
    QMouseEvent event(QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

int count_pixels(const QImage& image, const std::function<bool(QRgb)>& wanted)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += wanted(image.pixel(x, y));
    return count;
}

// In a picture of one loaded room with only the xy grid on, in grey.
struct PixelCounts
{
    int red, green, blue, grid, white;

    explicit PixelCounts(AbcGLCanvas& canvas)
    {
        const QImage image = canvas.grabFrameBuffer();
        const auto only = [](int a, int b, int c) { return a > 150 && b < 60 && c < 60; };
        red = count_pixels(image, [&](QRgb p) { return only(qRed(p), qGreen(p), qBlue(p)); });
        green = count_pixels(image, [&](QRgb p) { return only(qGreen(p), qRed(p), qBlue(p)); });
        blue = count_pixels(image, [&](QRgb p) { return only(qBlue(p), qRed(p), qGreen(p)); });
        grid = count_pixels(image, [](QRgb p) { return p == qRgb(100, 100, 100); });
        white = count_pixels(image, [](QRgb p) { return p == qRgb(255, 255, 255); });
    }
};

} // namespace

class TestCanvas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void drags_move_the_view_data();
    void drags_move_the_view();
    void the_wheel_zooms_by_whole_notches_data();
    void the_wheel_zooms_by_whole_notches();
    void right_button_opens_the_menu();
    void view_movements_start_at_the_saved_view();
    void storing_and_undoing_keep_the_picture();
    void loading_and_storing_tell_the_buttons();
    void placing_the_room_ignores_stored_movements();
    void best_distance_shows_the_origin_frame_data();
    void best_distance_shows_the_origin_frame();
    void paints_frames_grid_and_labels();
    void the_tip_is_drawn_from_a_list();
};

void TestCanvas::drags_move_the_view_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("keys");
    QTest::addColumn<QString>("moved"); // view position, then degrees about x and y
    const int none = Qt::NoModifier, ctrl = Qt::ControlModifier, shift = Qt::ShiftModifier;
    QTest::newRow("no key") << int(Qt::LeftButton) << none << "0 0 0 0 0";
    QTest::newRow("pan") << int(Qt::LeftButton) << ctrl << "40 -20 0 0 0";
    QTest::newRow("ctrl goes before shift")
        << int(Qt::LeftButton) << (ctrl | shift) << "40 -20 0 0 0";
    QTest::newRow("zoom") << int(Qt::LeftButton) << shift << "0 0 20 0 0";
    QTest::newRow("rotate") << int(Qt::RightButton) << ctrl << "0 0 0 5 10";
    QTest::newRow("middle") << int(Qt::MiddleButton) << ctrl << "0 0 0 0 0";
}

void TestCanvas::drags_move_the_view()
{
    QFETCH(int, button);
    QFETCH(int, keys);
    QFETCH(QString, moved);
    QVector<double> m;
    for (const QString& number : moved.split(' '))
        m << number.toDouble();

    OpenCanvas canvas;
    QTest::mousePress(&canvas, Qt::LeftButton, Qt::ControlModifier, {10, 10});
    send_move(&canvas, QPoint(50, 60));
    QTest::mouseRelease(&canvas, Qt::LeftButton, Qt::ControlModifier, {50, 60});
    QVERIFY2(canvas.getViewPosition() == bsVector(0, 0, -300), "no room, no movement");

    canvas.load(0);
    connect(&canvas, SIGNAL(storeViewRequest()), &canvas, SLOT(saveCurrentView()));
    QSignalSpy stored(&canvas, SIGNAL(storeViewRequest()));
    const bool drags = moved != "0 0 0 0 0";
    QTest::mousePress(&canvas, Qt::MouseButton(button), Qt::KeyboardModifiers(keys), {50, 60});
    send_move(&canvas, QPoint(60, 65));
    QVERIFY(canvas.getViewPosition() == bsVector(0, 0, -300) + bsVector(m[0], m[1], m[2]));
    QVERIFY(canvas.view.orientation.toMatrix()
            == bsMatrix().rotationX(m[3]) * bsMatrix().rotationY(m[4]));
    QCOMPARE(stored.count(), drags ? 1 : 0);
    QCOMPARE(canvas.last_x, 60);
    QTest::mouseRelease(&canvas, Qt::MouseButton(button), Qt::KeyboardModifiers(), {60, 65});
    QCOMPARE(stored.count(), drags ? 2 : 0);
    QCOMPARE(int(canvas.view_mode), int(abcViewNone));
}

void TestCanvas::the_wheel_zooms_by_whole_notches_data()
{
    QTest::addColumn<int>("delta");
    QTest::addColumn<double>("notches");
    QTest::newRow("one") << 120 << 1.0;
    QTest::newRow("nearly one") << 119 << 0.0;
    QTest::newRow("nearly one back") << -119 << 0.0;
    QTest::newRow("two back") << -250 << -2.0;
}

void TestCanvas::the_wheel_zooms_by_whole_notches()
{
    QFETCH(int, delta);
    QFETCH(double, notches);
    OpenCanvas canvas;
    QSignalSpy stored(&canvas, SIGNAL(storeViewRequest()));
    send_wheel(&canvas, delta, Qt::NoModifier);
    QCOMPARE(stored.count(), 0);
    send_wheel(&canvas, delta, Qt::ControlModifier);
    QCOMPARE(stored.count(), 1);
    QVERIFY(canvas.getViewPosition() == bsVector(0, 0, -300 + notches * scale));
}

void TestCanvas::right_button_opens_the_menu()
{
    OpenCanvas canvas;
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    QMenu menu(&canvas);
    menu.addAction("Long axes");
    canvas.set_menu(&menu);
    QSignalSpy shown(&menu, SIGNAL(aboutToShow()));
    QTimer::singleShot(0, &menu, SLOT(close()));
    QTest::mousePress(&canvas, Qt::RightButton, Qt::NoModifier, {7, 8});
    QCOMPARE(shown.count(), 1);
    QCOMPARE(canvas.last_x, 7);
    QCOMPARE(int(canvas.view_mode), int(abcViewNone));
}

void TestCanvas::view_movements_start_at_the_saved_view()
{
    OpenCanvas canvas;
    canvas.setViewPosition(bsVector(1, 2, -50));
    canvas.translateView(10, 0, 0);
    canvas.translateView(0, 5, 0);
    QVERIFY(canvas.getViewPosition() == bsVector(1, 7, -50));

    const bsMatrix saved = bsMatrix().rotationZ(30);
    canvas.setViewOrientation(saved);
    canvas.rotateView(0, 0, 77);
    canvas.rotateView(10, 20, 40);
    const bsMatrix turn =
        bsMatrix().rotationX(10) * bsMatrix().rotationY(20) * bsMatrix().rotationZ(40);
    QVERIFY(canvas.view.orientation.toMatrix() == turn * saved);
    QVERIFY(canvas.saved_view.orientation.toMatrix() == saved);
    canvas.saveCurrentView();
    QVERIFY(canvas.saved_view.orientation.toMatrix() == turn * saved);
}

void TestCanvas::storing_and_undoing_keep_the_picture()
{
    OpenCanvas canvas;
    canvas.load(250);
    canvas.rotateView(20, 30, 0);
    canvas.saveCurrentView();
    std::mt19937 random(5);
    const auto angle = [&random] { return random() % 60 - 30.0; };
    double worst = 0.0;
    int longest_list = 0;
    for (int step = 0; step < 200; ++step) {
        const bsMatrix origin = canvas.originFrame();
        const bsMatrix transformed = canvas.transformedFrame();
        switch (random() % 4) {
        case 0:
            canvas.saveCurrentRoom();
            QVERIFY(canvas.transformedFrame() == transformed);
            break;
        case 1:
            canvas.undo();
            break;
        case 2:
            canvas.redo();
            break;
        default:
            canvas.rotateRoom(angle(), angle(), angle());
            canvas.translateRoom(angle(), angle(), angle());
        }
        longest_list = std::max(longest_list, canvas.room.undo_list.size());
        const bsMatrix now = canvas.originFrame();
        for (int i = 0; i < 16; ++i)
            worst = std::max(worst, std::fabs(now[i] - origin[i]));
    }
    qInfo("the origin frame moved by at most %g", worst);
    QVERIFY(worst < 1e-9);
    QVERIFY(longest_list > 3);
}

void TestCanvas::loading_and_storing_tell_the_buttons()
{
    OpenCanvas canvas;
    QSignalSpy undo(&canvas, SIGNAL(canUndo(bool)));
    QSignalSpy redo(&canvas, SIGNAL(canRedo(bool)));
    QSignalSpy modified(&canvas, SIGNAL(roomModified(bool)));
    canvas.load(0);
    canvas.saveCurrentRoom(); // nothing to store, nothing to tell
    canvas.translateRoom(1, 2, 3);
    canvas.saveCurrentRoom();
    canvas.undo();
    canvas.undo();
    canvas.unloadRoom();
    QString told;
    for (int i = 0; i < undo.count(); ++i)
        told += QString("%1%2 ").arg(undo[i][0].toInt()).arg(redo[i][0].toInt());
    QCOMPARE(told, QString("00 10 01 01 00 "));
    QCOMPARE(undo.count(), redo.count());
    QCOMPARE(modified.count(), 4);
}

void TestCanvas::placing_the_room_ignores_stored_movements()
{
    OpenCanvas canvas;
    canvas.load(0);
    canvas.rotateRoom(bsMatrix().rotationY(40));
    canvas.translateRoom(10, 20, 30);
    canvas.saveCurrentRoom();
    canvas.setRoomOrientation(bsMatrix().rotationX(25));
    canvas.setRoomPosition(bsVector(5, 6, 7));
    const bsMatrix placed = canvas.getRoomTransformation() * canvas.room.frame.toMatrix();
    QVERIFY(placed == bsMatrix().translation(5, 6, 7) * bsMatrix().rotationX(25));
}

void TestCanvas::best_distance_shows_the_origin_frame_data()
{
    QTest::addColumn<double>("origin");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("distance");
    QTest::newRow("coincident") << 0.0 << QSize(400, 300) << 900.0;
    QTest::newRow("near") << 300.0 << QSize(400, 300) << 900.0;
    QTest::newRow("wide") << 1000.0 << QSize(400, 300) << 2874.44;
    QTest::newRow("high") << 1000.0 << QSize(200, 400) << 2 * 2874.44;
    QTest::newRow("no height") << 1000.0 << QSize(400, 0) << 2874.44;
    QTest::newRow("never resized") << 1000.0 << QSize() << 900.0;
}

void TestCanvas::best_distance_shows_the_origin_frame()
{
    QFETCH(double, origin);
    QFETCH(QSize, size);
    QFETCH(double, distance);
    OpenCanvas canvas;
    QCOMPARE(canvas.getBestZValue(), 900.0);
    canvas.load(origin);
    canvas.makeCurrent();
    if (size.isValid())
        canvas.resizeGL(size.width(), size.height());
    QVERIFY(std::fabs(canvas.getBestZValue() - distance) < 0.02);
    QVERIFY(!size.isValid() || canvas.view_height >= 1);
}

void TestCanvas::paints_frames_grid_and_labels()
{
    OpenCanvas canvas;
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    canvas.load(0);
    canvas.setRoomScaleFactor(3);
    canvas.rotateView(20, -30, 0);
    canvas.translateView(0, 0, -100);
    const PixelCounts bare(canvas);
    QVERIFY(bare.red > 50 && bare.green > 50 && bare.blue > 50);
    QVERIFY(bare.white > 5); // the label
    QCOMPARE(bare.grid, 0);

    QColor grey(100, 100, 100);
    canvas.setXYGridColor(grey);
    canvas.showXYGrid(true);
    const PixelCounts with_grid(canvas);
    QVERIFY(with_grid.grid > 1000);
    QVERIFY(with_grid.red > 50);

    canvas.showXYGrid(false);
    canvas.showLongAxes(true);
    const PixelCounts with_axes(canvas);
    QVERIFY(with_axes.red > bare.red + 50);
    QVERIFY(with_axes.green > bare.green + 50);
    QVERIFY(with_axes.blue > bare.blue + 50);

    canvas.unloadRoom();
    const auto is_lit = [](QRgb p) { return (p & RGB_MASK) != 0; };
    QCOMPARE(count_pixels(canvas.grabFrameBuffer(), is_lit), 0);
}

void TestCanvas::the_tip_is_drawn_from_a_list()
{
    OpenCanvas canvas;
    canvas.makeCurrent();
    canvas.setTipSeen(true);
    canvas.drawTip();
    QCOMPARE(canvas.tip_list, 0u);
    canvas.tip_enabled = true;
    canvas.drawTip();
    const unsigned int list = canvas.tip_list;
    QVERIFY(glIsList(list));
    canvas.drawTip();
    QCOMPARE(canvas.tip_list, list);
    QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
}

QTEST_MAIN(TestCanvas)
#include "test_abcGLCanvas.moc"
