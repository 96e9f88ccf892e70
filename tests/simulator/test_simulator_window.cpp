#include "simulator/window/labelplacer.h"
#include "simulator/window/roomprojection.h"
#include "simulator/window/roomview.h"
#include "simulator/window/simulatorwindow.h"
#include "simulator/window/statustexts.h"
#include "simulator/window/windowplace.h"
#include "tests/simulator/conversation.h"
#include "tests/support/fatal_logger.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <set>

using namespace simulator;

namespace
{

template <typename Button>
Button* button(const QWidget& window, const QString& text)
{
    for (Button* candidate : window.findChildren<Button*>())
        if (candidate->text().remove('&') == text)
            return candidate;
    return nullptr;
}

/// A simulator and its window on the screen.
struct Shown
{
    Shown()
    {
        window.resize(900, 700);
        window.show();
    }
    QPushButton* push(const char* text) const { return button<QPushButton>(window, text); }
    bool checked(const char* text) const { return button<QCheckBox>(window, text)->isChecked(); }
    QPointF place(size_t point) const
    {
        return RoomProjection(view->rect())(s.world.object_point(int(point)));
    }

    Simulator s{Setup()};
    SimulatorWindow window{s};
    RoomView* view = window.findChild<RoomView*>();
};

} // namespace

class TestSimulatorWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void a_click_on_a_point_puts_the_tip_there()
    {
        Shown w;
        for (const QSize& size : {QSize(700, 520), QSize(1400, 900)}) {
            w.window.resize(size);
            for (size_t i = 0; i < w.s.world.points.size(); ++i) {
                QCOMPARE(w.view->point_at(w.place(i)), int(i));
                QTest::mouseClick(w.view, Qt::LeftButton, {}, w.place(i).toPoint());
                const Vec3 off = w.s.world.tools[0].tip - w.s.world.object_point(int(i));
                QVERIFY(dot(off, off) < 1e-12);
            }
            QCOMPARE(w.view->point_at({5, 5}), -1);
        }
    }

    void one_gesture_or_key_touches_and_measures()
    {
        Shown w;
        converse(w.s, "do tracking start; sim duration 0.001");
        const auto measured = [&](const char* numbers) {
            for (int i = 0; i < 5; ++i)
                w.s.step();
            return w.s.answer("sim measured").text == numbers;
        };
        QTest::mouseDClick(w.view, Qt::LeftButton, {}, QPoint(5, 5));
        QVERIFY(measured("ok"));
        QTest::mouseClick(w.view, Qt::LeftButton, {}, w.place(2).toPoint());
        QTest::mouseDClick(w.view, Qt::LeftButton, {}, w.place(2).toPoint());
        QVERIFY(measured("ok 3"));
        QTest::keyClick(w.push("Measure"), Qt::Key_6);
        QTest::keyClick(w.view, Qt::Key_Space);
        QVERIFY(measured("ok 3 6"));
        QTest::mouseMove(w.view, w.place(0).toPoint());
        QTest::keyClick(w.view, Qt::Key_Space);
        QVERIFY(measured("ok 3 6 1"));
        converse(w.s, "sim move 0 0 0; sim measure");
        QVERIFY(measured("ok 3 6 1 0"));
        w.push("Clear the marks")->click();
        QVERIFY(measured("ok"));
    }

    void arrows_reach_every_point()
    {
        Shown w;
        converse(w.s, "sim touch 1");
        std::set<int> reached;
        for (int i = 0; i < 16; ++i) {
            QTest::keyClick(w.view, i < 8 ? Qt::Key_Left : Qt::Key_Right);
            reached.insert(w.s.world.touched_point(w.s.world.tools[0]));
        }
        QCOMPARE(reached.size(), w.s.world.points.size());
    }

    void colors_can_be_read_on_every_palette()
    {
        for (const auto& [window, base, text] : {std::tuple("#efefef", "#ffffff", "#000000"),
                                                 std::tuple("#2d2d30", "#1e1e1e", "#ebebeb"),
                                                 std::tuple("#000000", "#000000", "#ffff00"),
                                                 std::tuple("#d4d0c8", "#e0e0d8", "#202020")}) {
            QPalette palette;
            palette.setColor(QPalette::Window, window);
            palette.setColor(QPalette::Base, base);
            palette.setColor(QPalette::Text, text);
            const RoomColors c(palette);
            for (const QColor& color :
                 {c.wall, c.text, c.quiet, c.camera, c.blind_camera, c.calibrated, c.adjusted,
                  c.object, c.measured, c.held, c.stick, c.good, c.bad})
                QVERIFY2(contrast(color, c.floor) >= 4.5 && contrast(color, c.background) >= 4.5,
                         qPrintable(color.name() + " on " + window));
        }
        QVERIFY(std::abs(contrast("#777777", "#ffffff") - 4.48) < 0.01); // as WCAG gives it
    }

    void the_window_stands_where_it_was()
    {
        QStandardPaths::setTestModeEnabled(true);
        QCoreApplication::setOrganizationName("room-adjustment-test");
        QSettings().clear();
        for (const auto& [fresh, kept] : {std::pair(false, false), {false, true}, {true, false}}) {
            QWidget window;
            WindowPlace place(window, fresh);
            window.show();
            QCOMPARE(window.size() == QSize(411, 333), kept);
            QVERIFY(window.screen()->geometry().contains(window.geometry()));
            window.resize(411, 333);
            QTRY_VERIFY(QSettings().contains("window/geometry"));
        }
    }

    void buttons_do_what_they_say_and_follow_the_line()
    {
        Shown w;
        QVERIFY(!w.push("Measure")->isEnabled());
        w.s.answer("do tracking start");
        QTRY_VERIFY(w.push("Measure")->isEnabled());
        w.push("Measure")->click();
        QVERIFY(w.s.controller.is_measuring(0));
        w.push("Copy")->click();
        const QStringList rows = QGuiApplication::clipboard()->text().split('\n');
        QCOMPARE(rows.size(), int(w.s.world.points.size()) + 1);
        QCOMPARE(rows[1], QString("480.40\t-62.25\t35.50"));
        for (const auto& [name, pressed] :
             {std::pair("3", &w.s.world.tools[0].pressed[2]), {"5", &w.s.world.stick.pressed[5]}}) {
            QTest::mousePress(w.push(name), Qt::LeftButton);
            QVERIFY(*pressed);
            QTest::mouseRelease(w.push(name), Qt::LeftButton);
            QVERIFY(!*pressed);
        }
        button<QCheckBox>(w.window, "Lose the tool")->click();
        QVERIFY(w.s.world.tools[0].hidden);
        button<QCheckBox>(w.window, "Lock the configuration")->click();
        QVERIFY(w.s.controller.is_locked());
        w.s.answer("sim roomcal powerwall");
        w.push("Take the calibration away")->click();
        QVERIFY(!w.s.controller.is_calibrated());
        w.push("Calibrate again")->click();
        QCOMPARE(w.s.controller.coordinate_type(), QByteArray("powerwall"));
        converse(w.s, "sim find; sim unlock");
        QTRY_VERIFY(!w.checked("Lose the tool") && !w.checked("Lock the configuration"));
        converse(w.s, "sim tool 2; sim lose; sim lock; sim roomcal none");
        QTRY_COMPARE(w.window.findChild<QComboBox*>()->currentText(), QString("M2"));
        QVERIFY(w.checked("Lose the tool") && w.checked("Lock the configuration"));
        QVERIFY(w.push("Calibrate again"));
    }

    void labels_do_not_cover_each_other()
    {
        const QRectF bounds(0, 0, 300, 200);
        LabelPlacer placer(bounds);
        std::vector<QRectF> placed;
        for (int i = 0; i < 24; ++i) { // a narrow heap
            const QPointF anchor(150.0 + 7 * (i % 5), 100.0 + 5 * (i / 5));
            const QRectF label = placer.place(anchor, {16, 12}, 4.0);
            QVERIFY(bounds.contains(label));
            for (const QRectF& other : placed) {
                const QRectF common = label.intersected(other);
                QVERIFY(common.width() * common.height() < 1.0);
            }
            placed.push_back(label);
        }
    }

    void status_texts()
    {
        Simulator s({});
        const std::pair<const char*, const char*> table[] = {
            {"1 0 0 0 1 0 0 0 1", "no rotation"},
            {"0 1 0 -1 0 0 0 0 1", "90.00\u00b0 about (0.00 0.00 1.00)"},
            {"0 -1 0 1 0 0 0 0 1", "90.00\u00b0 about (0.00 0.00 -1.00)"},
            {"-1 0 0 0 1 0 0 0 -1", "180.00\u00b0 about (0.00 1.00 0.00)"},
            {"0 1 0 0 0 1 1 0 0", "120.00\u00b0 about (0.58 0.58 0.58)"}};
        for (const auto& [rotation, text] : table) {
            converse(s, rotation, "set tracking extra_rotation ");
            QVERIFY2(extra_text(s.controller.extra()).contains(text), text);
        }
        QVERIFY(tracking_text(s, RoomColors(QPalette())).contains("idle"));
        converse(s, "sim lose");
        QCOMPARE(tip_text(s), QString("tip: not seen"));
    }
};

QTEST_MAIN(TestSimulatorWindow)
#include "test_simulator_window.moc"
