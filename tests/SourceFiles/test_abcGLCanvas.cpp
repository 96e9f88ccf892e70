#include "SourceFiles/abcGLCanvas.h"
#include "controller/roomadjustmentdata.h"
#include "tests/support/fatal_logger.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>
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

    using AbcGLCanvas::resizeGL;
    using AbcGLCanvas::room;
    using AbcGLCanvas::saved_view;
    using AbcGLCanvas::view;
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

/// Whether the widget kept the event to itself.
bool send_wheel(QWidget* widget, int delta, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, delta), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    event.ignore();
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

void send_move(QWidget* widget, const QPoint& position)
{
    QMouseEvent event(QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

// In a picture of one loaded room with only the xy grid on, in grey.
struct PixelCounts
{
    explicit PixelCounts(AbcGLCanvas& canvas)
    {
        const QImage image = canvas.grabFrameBuffer();
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y) {
                const QRgb p = image.pixel(x, y);
                const int r = qRed(p), g = qGreen(p), b = qBlue(p);
                if (r > 150 && g < 60 && b < 60) {
                    ++red;
                    last_red_column = x;
                }
                green += g > 150 && r < 60 && b < 60;
                blue += b > 150 && r < 60 && g < 60;
                grid += p == qRgb(100, 100, 100);
                white += p == qRgb(255, 255, 255);
                lit += (p & RGB_MASK) != 0;
            }
    }

    int red = 0, green = 0, blue = 0, grid = 0, white = 0, lit = 0;
    int last_red_column = -1;
};

} // namespace

class TestCanvas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void drags_move_the_view()
    {
        const bsVector start(0, 0, -300);
        const auto left = Qt::LeftButton, right = Qt::RightButton, middle = Qt::MiddleButton;
        const Qt::KeyboardModifiers none, ctrl = Qt::ControlModifier, shift = Qt::ShiftModifier;
        const struct
        {
            Qt::MouseButton button;
            Qt::KeyboardModifiers keys;
            bsVector moved;
            double about_x, about_y; // degrees
            int stored;
        } rows[] = {
            {left, none, {0, 0, 0}, 0, 0, 0},   {left, ctrl, {40, -20, 0}, 0, 0, 1},
            {left, shift, {0, 0, 20}, 0, 0, 1}, {left, ctrl | shift, {40, -20, 0}, 0, 0, 1},
            {right, ctrl, {0, 0, 0}, 5, 10, 1}, {middle, ctrl, {0, 0, 0}, 0, 0, 0},
        };
        for (const auto& row : rows) {
            OpenCanvas canvas;
            QTest::mousePress(&canvas, left, ctrl, {10, 10});
            send_move(&canvas, QPoint(50, 60));
            QTest::mouseRelease(&canvas, left, ctrl, {50, 60});
            QVERIFY2(canvas.getViewPosition() == start, "no room, no movement");

            canvas.load(0);
            connect(&canvas, SIGNAL(storeViewRequest()), &canvas, SLOT(saveCurrentView()));
            QSignalSpy stored(&canvas, SIGNAL(storeViewRequest()));
            QTest::mousePress(&canvas, row.button, row.keys, {50, 60});
            send_move(&canvas, QPoint(60, 65));
            QVERIFY(canvas.getViewPosition() == start + row.moved);
            QVERIFY(canvas.view.orientation.toMatrix()
                    == bsMatrix().rotationX(row.about_x) * bsMatrix().rotationY(row.about_y));
            QCOMPARE(stored.count(), row.stored);
            QTest::mouseRelease(&canvas, row.button, none, {60, 65});
            QCOMPARE(stored.count(), 2 * row.stored);
            QCOMPARE(int(canvas.view_mode), int(abcViewNone));
        }
    }

    void the_wheel_zooms_by_whole_notches()
    {
        const int deltas_and_notches[][2] = {{120, 1}, {119, 0}, {-119, 0}, {-250, -2}};
        for (const auto& row : deltas_and_notches) {
            OpenCanvas canvas;
            QSignalSpy stored(&canvas, SIGNAL(storeViewRequest()));
            QVERIFY(send_wheel(&canvas, row[0], Qt::NoModifier));
            QCOMPARE(stored.count(), 0);
            QVERIFY(send_wheel(&canvas, row[0], Qt::ControlModifier));
            QCOMPARE(stored.count(), 1);
            QVERIFY(canvas.getViewPosition() == bsVector(0, 0, -300 + row[1] * scale));
        }
    }

    void right_button_opens_a_menu_that_may_outlive_the_view()
    {
        for (bool delete_meanwhile : {false, true}) {
            std::unique_ptr<OpenCanvas> canvas(new OpenCanvas);
            canvas->show();
            QMenu menu;
            menu.addAction("Long axes");
            canvas->set_menu(&menu);
            bool shown = false;
            QTimer::singleShot(0, [&] {
                shown = menu.isVisible();
                if (delete_meanwhile)
                    canvas.reset();
                menu.close();
            });
            QMouseEvent press(QEvent::MouseButtonPress, {7, 8}, Qt::RightButton, Qt::RightButton,
                              {});
            QApplication::sendEvent(canvas.get(), &press);
            QVERIFY(shown);
        }
    }

    void view_movements_start_at_the_saved_view()
    {
        OpenCanvas canvas;
        canvas.setViewPosition(bsVector(1, 2, -50));
        canvas.translateView(10, 0, 0);
        canvas.translateView(0, 5, 0);
        QVERIFY(canvas.getViewPosition() == bsVector(1, 7, -50));

        canvas.setViewOrientation(bsMatrix().rotationZ(30));
        canvas.rotateView(0, 0, 77);
        canvas.rotateView(10, 20, 40);
        const bsMatrix turn =
            bsMatrix().rotationX(10) * bsMatrix().rotationY(20) * bsMatrix().rotationZ(40 + 30);
        QVERIFY(canvas.view.orientation.toMatrix() == turn);
        canvas.saveCurrentView();
        QVERIFY(canvas.saved_view.orientation.toMatrix() == turn);
    }

    void storing_and_undoing_keep_the_picture()
    {
        OpenCanvas canvas;
        canvas.load(250);
        canvas.rotateView(20, 30, 0);
        canvas.saveCurrentView();
        std::mt19937 random(5);
        const auto angle = [&random] { return random() % 60 - 30.0; };
        double worst = 0.0;
        for (int step = 0; step < 200; ++step) {
            const bsMatrix origin = canvas.originFrame();
            const bsMatrix transformed = canvas.transformedFrame();
            const unsigned int what = random() % 4;
            if (what == 0) {
                canvas.saveCurrentRoom();
                QVERIFY(canvas.transformedFrame() == transformed);
            } else if (what == 1) {
                canvas.undo();
            } else if (what == 2) {
                canvas.redo();
            } else {
                canvas.rotateRoom(angle(), angle(), angle());
                canvas.translateRoom(angle(), angle(), angle());
            }
            worst = std::max(worst, (canvas.originFrame() - origin).getNorm());
        }
        qInfo("the origin frame moved by at most %g", worst);
        QVERIFY(worst < 1e-9);
    }

    void loading_and_storing_tell_the_buttons()
    {
        OpenCanvas canvas;
        QString told;
        connect(&canvas, &AbcGLCanvas::canUndo, [&](bool can) { told += can ? "U" : "-"; });
        connect(&canvas, &AbcGLCanvas::canRedo, [&](bool can) { told += can ? "R " : "- "; });
        QSignalSpy modified(&canvas, SIGNAL(roomModified(bool)));
        canvas.load(0);
        canvas.saveCurrentRoom(); // nothing to store, nothing to tell
        canvas.translateRoom(1, 2, 3);
        canvas.saveCurrentRoom();
        canvas.undo();
        canvas.undo();
        canvas.unloadRoom();
        QCOMPARE(told, QString("-- U- -R -R -- "));
        QCOMPARE(modified.count(), 4);
    }

    void placing_the_room_ignores_stored_movements()
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

    void best_distance_shows_the_origin_frame()
    {
        const struct
        {
            double origin;
            QSize size; // an invalid one is none given yet
            double distance;
        } rows[] = {{0, {400, 300}, 900},        {300, {400, 300}, 900},
                    {1000, {400, 300}, 2874.44}, {1000, {200, 400}, 2 * 2874.44},
                    {1000, {400, 0}, 2874.44},   {1000, {}, 900}};
        for (const auto& row : rows) {
            OpenCanvas canvas;
            QCOMPARE(canvas.getBestZValue(), 900.0);
            canvas.load(row.origin);
            canvas.makeCurrent();
            if (row.size.isValid())
                canvas.resizeGL(row.size.width(), row.size.height());
            QVERIFY(std::fabs(canvas.getBestZValue() - row.distance) < 0.02);
        }
    }

    void paints_frames_grid_and_labels()
    {
        OpenCanvas canvas;
        canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas));
        canvas.load(0);
        canvas.setRoomScaleFactor(3);
        // The arrow along x ends at 108 mm, the half picture at 300 mm tan(22.5 deg) 4 / 3.
        const double arrow_end = 200 + 200 * 108 / (300 * 0.41421 * 4 / 3);
        QVERIFY(std::fabs(PixelCounts(canvas).last_red_column - arrow_end) < 3);
        canvas.rotateView(20, -30, 0);
        canvas.translateView(0, 0, -100);
        const PixelCounts bare(canvas);
        QVERIFY(bare.red > 50 && bare.green > 50 && bare.blue > 50);
        QVERIFY(bare.white > 5 && bare.grid == 0); // the label

        QColor grey(100, 100, 100);
        canvas.setXYGridColor(grey);
        canvas.showXYGrid(true);
        QVERIFY(PixelCounts(canvas).grid > 1000);
        canvas.showXYGrid(false);
        canvas.showLongAxes(true);
        const PixelCounts with_axes(canvas);
        QVERIFY(with_axes.red > bare.red + 50 && with_axes.blue > bare.blue + 50);
        canvas.unloadRoom();
        QCOMPARE(PixelCounts(canvas).lit, 0);
    }
};

QTEST_MAIN(TestCanvas)
#include "test_abcGLCanvas.moc"
