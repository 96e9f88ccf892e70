#include "simulator/window/labelplacer.h"
#include "simulator/window/roomprojection.h"
#include "simulator/window/roomview.h"
#include "simulator/window/simulatorwindow.h"
#include "simulator/window/statustexts.h"
#include "tests/simulator/conversation.h"
#include "tests/support/fatal_logger.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

using namespace simulator;

namespace
{

template <typename Button>
Button* button(const QWidget& window, const QString& text)
{
    for (Button* candidate : window.findChildren<Button*>())
        if (candidate->text() == text)
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
        QVERIFY(tracking_text(s).contains("idle"));
        converse(s, "sim lose");
        QCOMPARE(tip_text(s), QString("tip: not seen"));
    }
};

QTEST_MAIN(TestSimulatorWindow)
#include "test_simulator_window.moc"
