#include "tests/support/fatal_logger.h"
#include "widgets/bsDoubleWidget.h"

#include <QtTest>

#include <cmath>
#include <functional>

#include <qwt_wheel.h>

namespace
{

class Widget : public bsDoubleWidget
{
public:
    explicit Widget(double minimum = -1000, double maximum = 1000, bool wrapping = false,
                    bsDoubleMode mode = bsDoubleSpinAndWheel)
        : bsDoubleWidget(nullptr, mode, minimum, maximum, wrapping)
    {
        connect(this, &bsDoubleWidget::editingBegin, [this] { events += 'B'; });
        connect(this, &bsDoubleWidget::editingFinished, [this] { events += 'F'; });
        connect(this, &bsDoubleWidget::valueChanged, [this](double value) {
            events += 'v';
            told << value;
        });
    }

    using bsDoubleWidget::editing;
    using bsDoubleWidget::spin_box;
    using bsDoubleWidget::wheel;

    void activate()
    {
        show();
        activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }

    void leave()
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(this, &event);
    }

    void scroll()
    {
        const QPoint at = wheel->rect().center();
        QWheelEvent event(at, wheel->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(wheel, &event);
    }

    QString events; // the three signals, in the order in which they came
    QList<double> told;
};

} // namespace

class TestBsDoubleWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void modeChoosesWhatIsShown()
    {
        Widget widget(0, 1, false, bsDoubleWheelOnly);
        // The last one is unknown and changes nothing.
        const int rows[][3] = {
            {0, true, false}, {2, true, true}, {1, false, true}, {7, false, true}};
        for (const auto& row : rows) {
            widget.setMode(static_cast<bsDoubleMode>(row[0]));
            QCOMPARE(int(widget.spin_box->isVisibleTo(&widget)), row[1]);
            QCOMPARE(int(widget.wheel->isVisibleTo(&widget)), row[2]);
        }
    }

    void labelAndWheelGoWhereTold()
    {
        Widget widget;
        widget.setProperty("label", "angle");
        widget.setLabelColor(Qt::green);
        const QLabel* label = widget.findChild<QLabel*>();
        QCOMPARE(label->text(), QString("angle"));
        QCOMPARE(label->palette().color(QPalette::Disabled, QPalette::WindowText),
                 QColor(Qt::green));
        widget.setLabelPosition(bsDoubleTop);
        widget.setWheelPosition(bsDoubleLeft);
        widget.setWheelOrientation(bsDoubleVertical);
        widget.activate();
        QVERIFY(label->geometry().bottom() < widget.spin_box->y());
        QVERIFY(widget.wheel->geometry().right() < widget.spin_box->x());
        QVERIFY(widget.wheel->height() > widget.wheel->width());
    }

    void wrappingKeepsBelowTheMaximum()
    {
        Widget widget(-180, 180, true);
        const struct
        {
            std::function<void()> change;
            double maximum, step;
        } rows[] = {
            {[&] { widget.setWrapping(true); }, 179, 1},
            {[&] { widget.setStep(10); }, 170, 10},
            {[&] { widget.setWrapping(false); }, 171, 10}, // by 1, not by the step
            {[&] { widget.setStep(3); }, 171, 3},
            {[&] { widget.setRange(0, 360); }, 360, 3},
            {[&] { widget.setWrapping(true); }, 359, 3}, // by 1, whatever the step
        };
        for (const auto& row : rows) {
            row.change();
            QCOMPARE(widget.spin_box->maximum(), row.maximum);
            QCOMPARE(widget.spin_box->singleStep(), row.step);
        }
    }

    void setValueOpensNoBracket()
    {
        const struct
        {
            const char* oddity;
            double value;
            QString events;
            double held;
        } rows[] = {
            {"within the smallest change", 5.000009, "", 5.0},
            {"just beyond it, lost in rounding", 5.00002, "v", 5.0},
            {"above the range: clipped, but told as given", 2000.0, "v", 1000.0},
            {"infinite", -HUGE_VAL, "v", -1000.0},
        };
        for (const auto& row : rows) {
            Widget widget;
            widget.setValue(5);
            widget.events.clear();
            widget.setValue(row.value);
            QVERIFY2(widget.events == row.events && widget.value() == row.held, row.oddity);
            QVERIFY2(row.events.isEmpty() || widget.told.last() == row.value, row.oddity);
            QVERIFY(!widget.editing);
        }
    }

    void adjustValueIsAnEditAndResetStepsNothing()
    {
        Widget widget;
        widget.setDecimals(6);
        widget.adjustValue(0.00001);
        QCOMPARE(widget.events, QString());
        widget.adjustValue(2);
        widget.adjustValue(-3);
        QCOMPARE(widget.events, QString("Bvv"));
        widget.wheel->setValue(50);
        widget.reset();
        QCOMPARE(widget.wheel->value(), 0.0);
        QCOMPARE(widget.told, (QList<double>{2, -1, 49, 0}));
    }

    void wheelTurnsIntoSteps()
    {
        const struct
        {
            const char* oddity;
            QList<double> angles;
            double value;
        } rows[] = {
            {"forward and back", {30, 12}, 12},
            {"exactly half a turn is no jump", {180}, 180},
            {"down over the end: one step more", {359}, -2},
            {"up over the end: one step more", {120, 240, 359, 1}, 362},
            {"fractions are dropped, toward zero", {1.9, 0.2}, 0},
        };
        for (const auto& row : rows) {
            Widget widget;
            for (double angle : row.angles)
                widget.wheel->setValue(angle);
            QVERIFY2(widget.value() == row.value, row.oddity);
            widget.setValue(77);
            QCOMPARE(widget.wheel->value(), row.angles.last());
        }
    }

    void typingBracket()
    {
        Widget widget;
        widget.activate();
        widget.spin_box->setFocus();
        widget.spin_box->selectAll();
        QTest::keyClicks(widget.spin_box, "42");
        QCOMPARE(widget.events, QString("Bvv"));
        QTest::keyClick(widget.spin_box, Qt::Key_Return);
        // The end is told once, although the spin box reports a second one as it loses the focus.
        QCOMPARE(widget.events, QString("BvvvF"));
        QVERIFY(!widget.spin_box->hasFocus());
    }

    void dragBracket()
    {
        Widget widget;
        widget.activate();
        const QPoint from = widget.wheel->rect().center(), to = from + QPoint(10, 0);
        QTest::mousePress(widget.wheel, Qt::LeftButton, {}, from);
        QCOMPARE(widget.events, QString("B"));
        QVERIFY(widget.spin_box->hasFocus());
        QMouseEvent move(QEvent::MouseMove, to, Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(widget.wheel, &move);
        widget.leave(); // the pointer may leave while the button is down
        QCOMPARE(widget.events, QString("Bv"));
        QTest::mouseRelease(widget.wheel, Qt::LeftButton, {}, to);
        QCOMPARE(widget.events, QString("BvF"));
        QCOMPARE(widget.value(), widget.told.first());
        QCOMPARE(widget.wheel->value(), 0.0);
    }

    void scrollBracketSurvivesAHandlerThatResets()
    {
        Widget widget(-1000, 1000, false, bsDoubleWheelOnly);
        widget.activate();
        widget.scroll();
        widget.scroll();
        QCOMPARE(widget.value(), 2.0);
        connect(&widget, &bsDoubleWidget::editingFinished, &widget, &bsDoubleWidget::reset);
        widget.leave();
        widget.leave();
        QCOMPARE(widget.events, QString("BvvFv"));
        QVERIFY(!widget.editing);
    }
};

QTEST_MAIN(TestBsDoubleWidget)
#include "test_bsDoubleWidget.moc"
