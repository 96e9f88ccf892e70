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

} // namespace

class TestSimulatorWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void a_click_on_a_point_puts_the_tip_there()
    {
        Simulator s({});
        SimulatorWindow window(s);
        for (const QSize& size : {QSize(700, 520), QSize(1400, 900)}) {
            window.resize(size);
            window.show();
            auto* view = window.findChild<RoomView*>();
            const RoomProjection projection(view->rect());
            for (size_t i = 0; i < s.world.points.size(); ++i) {
                const QPointF place = projection(s.world.object_point(int(i)));
                QCOMPARE(view->point_at(place), int(i));
                QTest::mouseClick(view, Qt::LeftButton, {}, place.toPoint());
                const Vec3 off = s.world.tools[0].tip - s.world.object_point(int(i));
                QVERIFY(dot(off, off) < 1e-12);
            }
            QCOMPARE(view->point_at({5, 5}), -1);
        }
    }

    void one_gesture_or_key_touches_and_measures()
    {
        Simulator s({});
        SimulatorWindow window(s);
        window.resize(900, 700);
        window.show();
        converse(s, "do tracking start; sim duration 0.001");
        auto* view = window.findChild<RoomView*>();
        const auto at = [&](int i) {
            return RoomProjection(view->rect())(s.world.object_point(i)).toPoint();
        };
        const auto measured = [&](const char* numbers) {
            for (int i = 0; i < 5; ++i)
                s.step();
            return s.answer("sim measured").text == numbers;
        };
        QTest::mouseDClick(view, Qt::LeftButton, {}, QPoint(5, 5));
        QVERIFY(measured("ok"));
        QTest::mouseClick(view, Qt::LeftButton, {}, at(2));
        QTest::mouseDClick(view, Qt::LeftButton, {}, at(2));
        QVERIFY(measured("ok 3"));
        QTest::keyClick(button<QPushButton>(window, "Measure"), Qt::Key_6);
        QTest::keyClick(view, Qt::Key_Space);
        QVERIFY(measured("ok 3 6"));
        QTest::mouseMove(view, at(0));
        QTest::keyClick(view, Qt::Key_Space);
        QVERIFY(measured("ok 3 6 1"));
        converse(s, "sim move 0 0 0; sim measure");
        QVERIFY(measured("ok 3 6 1 0"));
        button<QPushButton>(window, "Clear the marks")->click();
        QVERIFY(measured("ok"));
    }

    void arrows_reach_every_point()
    {
        Simulator s({});
        SimulatorWindow window(s);
        window.show();
        auto* view = window.findChild<RoomView*>();
        converse(s, "sim touch 1");
        std::set<int> reached;
        for (int i = 0; i < 16; ++i) {
            QTest::keyClick(view, i < 8 ? Qt::Key_Left : Qt::Key_Right);
            reached.insert(s.world.touched_point(s.world.tools[0]));
        }
        QCOMPARE(reached.size(), s.world.points.size());
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

    void the_points_can_be_pasted()
    {
        Simulator s({});
        SimulatorWindow window(s);
        button<QPushButton>(window, "Copy")->click();
        const QStringList rows = QGuiApplication::clipboard()->text().split('\n');
        QCOMPARE(rows.size(), int(s.world.points.size()) + 1);
        QCOMPARE(rows[1], QString("480.40\t-62.25\t35.50"));
    }

    void buttons_do_what_they_say()
    {
        Simulator s({});
        SimulatorWindow window(s);
        auto* measure = button<QPushButton>(window, "Measure");
        QVERIFY(!measure->isEnabled());
        s.answer("do tracking start");
        QTRY_VERIFY(measure->isEnabled());
        measure->click();
        QVERIFY(s.controller.is_measuring(0));

        const auto hold = [&](const char* name, const bool& pressed) {
            QTest::mousePress(button<QPushButton>(window, name), Qt::LeftButton);
            QVERIFY(pressed);
            QTest::mouseRelease(button<QPushButton>(window, name), Qt::LeftButton);
            QVERIFY(!pressed);
        };
        hold("3", s.world.tools[0].pressed[2]);
        hold("5", s.world.stick.pressed[5]);
        button<QCheckBox>(window, "Lose the tool")->click();
        QVERIFY(s.world.tools[0].hidden);
        button<QCheckBox>(window, "Lock the configuration")->click();
        QVERIFY(s.controller.is_locked());
        s.answer("sim roomcal powerwall");
        button<QPushButton>(window, "Take the calibration away")->click();
        QVERIFY(!s.controller.is_calibrated());
        button<QPushButton>(window, "Calibrate again")->click();
        QCOMPARE(s.controller.coordinate_type(), QByteArray("powerwall"));
    }

    void the_window_follows_what_comes_over_the_line()
    {
        Simulator s({});
        SimulatorWindow window(s);
        converse(s, "sim tool 2; sim lose; sim lock; sim roomcal none");
        QTRY_COMPARE(window.findChild<QComboBox*>()->currentText(), QString("M2"));
        QVERIFY(button<QCheckBox>(window, "Lose the tool")->isChecked());
        QVERIFY(button<QCheckBox>(window, "Lock the configuration")->isChecked());
        QVERIFY(button<QPushButton>(window, "Calibrate again"));
    }

    void labels_do_not_cover_each_other()
    {
        const QRectF bounds(0, 0, 300, 200);
        LabelPlacer placer(bounds);
        std::vector<QRectF> placed;
        for (int i = 0; i < 24; ++i) { // a narrow heap
            placed.push_back(
                placer.place({150.0 + 7 * (i % 5), 100.0 + 5 * (i / 5)}, {16, 12}, 4.0));
        }
        for (size_t i = 0; i < placed.size(); ++i) {
            QVERIFY(bounds.contains(placed[i]));
            for (size_t k = i + 1; k < placed.size(); ++k) {
                const QRectF common = placed[i].intersected(placed[k]);
                QVERIFY(common.width() * common.height() < 1.0);
            }
        }
    }

    void status_texts()
    {
        Simulator s({});
        for (const auto& [rotation, text] :
             {std::pair("1 0 0 0 1 0 0 0 1", "no rotation"),
              std::pair("0 1 0 -1 0 0 0 0 1", "90.00\u00b0 about (0.00 0.00 1.00)"),
              std::pair("0 -1 0 1 0 0 0 0 1", "90.00\u00b0 about (0.00 0.00 -1.00)"),
              std::pair("-1 0 0 0 1 0 0 0 -1", "180.00\u00b0 about (0.00 1.00 0.00)"),
              std::pair("0 1 0 0 0 1 1 0 0", "120.00\u00b0 about (0.58 0.58 0.58)")}) {
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
