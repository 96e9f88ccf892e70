#include "tests/support/fatal_logger.h"
#include "widgets/bsDoubleWidget.h"

#include <QtTest>

#include <cmath>
#include <limits>

#include <qwt_wheel.h>

namespace
{

// Counts the three signals and keeps the order in which they came.
class Recorder : public QObject
{
    Q_OBJECT

public:
    explicit Recorder(bsDoubleWidget& widget)
    {
        connect(&widget, &bsDoubleWidget::editingBegin, this, [this] { events += 'B'; });
        connect(&widget, &bsDoubleWidget::editingFinished, this, [this] { events += 'F'; });
        connect(&widget, &bsDoubleWidget::valueChanged, this, [this](double value) {
            events += 'v';
            values << value;
        });
    }

    QString events;
    QList<double> values;
};

class Widget : public bsDoubleWidget
{
    Q_OBJECT

public:
    explicit Widget(double minimum = -1000, double maximum = 1000, bool wrapping = false,
                    bsDoubleMode mode = bsDoubleSpinAndWheel)
        : bsDoubleWidget(nullptr, mode, minimum, maximum, wrapping)
    {
    }

    QDoubleSpinBox& spin() { return *spin_box; }
    QwtWheel& turner() { return *wheel; }
    bool isEditing() const { return editing; }
    QPoint wheelCentre() const { return wheel->rect().center(); }

    void leave()
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(this, &event);
    }

    void scroll(int notches)
    {
        const QPoint at = wheelCentre();
        QWheelEvent event(at, wheel->mapToGlobal(at), QPoint(), QPoint(0, 120 * notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(wheel, &event);
    }
};

void show_active(QWidget& widget)
{
    widget.show();
    widget.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
}

} // namespace

class TestBsDoubleWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void wheelIsSetUp();
    void modeChoosesWhatIsShown_data();
    void modeChoosesWhatIsShown();
    void placement();
    void wrappingKeepsBelowTheMaximum();
    void setValueIsSilent_data();
    void setValueIsSilent();
    void adjustValueIsAnEdit();
    void wheelTurnsIntoSteps_data();
    void wheelTurnsIntoSteps();
    void resetStepsNothing();
    void typingBracket();
    void dragBracket();
    void scrollBracket();
    void handlerMayResetInsideTheBracket();
    void properties();
};

void TestBsDoubleWidget::wheelIsSetUp()
{
    Widget widget;
    const QwtWheel& wheel = widget.turner();
    QCOMPARE(wheel.minimum(), 0.0);
    QCOMPARE(wheel.maximum(), 360.0);
    QCOMPARE(wheel.singleStep(), 1.0);
    QCOMPARE(wheel.pageStepCount(), 10);
    QCOMPARE(wheel.totalAngle(), 3600.0);
    QCOMPARE(wheel.tickCount(), 15);
    QVERIFY(wheel.wrapping());
}

void TestBsDoubleWidget::modeChoosesWhatIsShown_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("spin");
    QTest::addColumn<bool>("wheel");
    QTest::newRow("spin box") << 0 << true << false;
    QTest::newRow("wheel") << 1 << false << true;
    QTest::newRow("both") << 2 << true << true;
    QTest::newRow("unknown: as before") << 7 << false << true;
}

void TestBsDoubleWidget::modeChoosesWhatIsShown()
{
    QFETCH(int, mode);
    Widget widget(0, 1, false, bsDoubleWheelOnly);
    widget.setMode(static_cast<bsDoubleMode>(mode));
    QTEST(widget.spin().isVisibleTo(&widget), "spin");
    QTEST(widget.turner().isVisibleTo(&widget), "wheel");
}

void TestBsDoubleWidget::placement()
{
    Widget widget;
    widget.setLabel("angle");
    show_active(widget);
    QLabel* label = widget.findChild<QLabel*>();
    QVERIFY(label->geometry().right() < widget.spin().x());
    QVERIFY(widget.spin().geometry().bottom() < widget.turner().y());
    QVERIFY(widget.turner().width() > widget.turner().height());

    widget.setLabelPosition(bsDoubleTop);
    widget.setWheelPosition(bsDoubleLeft);
    widget.setWheelOrientation(bsDoubleVertical);
    widget.resize(200, 150);
    QCoreApplication::processEvents();
    QVERIFY(label->geometry().bottom() < widget.spin().y());
    QVERIFY(widget.turner().geometry().right() < widget.spin().x());
    QVERIFY(widget.turner().height() > widget.turner().width());
    QCOMPARE(widget.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
}

void TestBsDoubleWidget::wrappingKeepsBelowTheMaximum()
{
    Widget widget(-180, 180, true);
    QCOMPARE(widget.spin().maximum(), 179.0);
    widget.setWrapping(true);
    QCOMPARE(widget.spin().maximum(), 179.0);
    widget.setStep(0.5);
    QCOMPARE(widget.spin().maximum(), 179.5);
    widget.setStep(10);
    QCOMPARE(widget.spin().maximum(), 170.0);
    widget.setWrapping(false); // by 1, not by the step
    QCOMPARE(widget.spin().maximum(), 171.0);
    widget.setStep(3);
    QCOMPARE(widget.spin().maximum(), 171.0);
    widget.setWrapping(true);
    QCOMPARE(widget.spin().maximum(), 170.0);
    widget.setRange(0, 360); // by 1, whatever the step
    QCOMPARE(widget.spin().maximum(), 359.0);
    QCOMPARE(widget.spin().minimum(), 0.0);
}

void TestBsDoubleWidget::setValueIsSilent_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("events");
    QTest::addColumn<double>("held");
    QTest::newRow("new value") << 12.5 << "v" << 12.5;
    QTest::newRow("within the smallest change") << 5.000009 << "" << 5.0;
    QTest::newRow("just beyond it, lost in rounding") << 5.00002 << "v" << 5.0;
    QTest::newRow("above the range: clipped, but told as given") << 2000.0 << "v" << 1000.0;
    QTest::newRow("infinite") << -std::numeric_limits<double>::infinity() << "v" << -1000.0;
}

void TestBsDoubleWidget::setValueIsSilent()
{
    QFETCH(double, value);
    Widget widget;
    widget.setValue(5);
    Recorder recorder(widget);
    widget.setValue(value);
    QTEST(recorder.events, "events");
    QTEST(widget.value(), "held");
    if (!recorder.values.isEmpty())
        QCOMPARE(recorder.values.first(), value);
    QVERIFY(!widget.isEditing());
}

void TestBsDoubleWidget::adjustValueIsAnEdit()
{
    Widget widget;
    widget.setDecimals(6);
    Recorder recorder(widget);
    widget.adjustValue(0.00001);
    QCOMPARE(recorder.events, QString());
    widget.adjustValue(2);
    widget.adjustValue(-3);
    QCOMPARE(recorder.events, QString("Bvv"));
    QCOMPARE(widget.value(), -1.0);
}

void TestBsDoubleWidget::wheelTurnsIntoSteps_data()
{
    QTest::addColumn<QList<double>>("angles");
    QTest::addColumn<double>("value");
    QTest::newRow("forward and back") << QList<double>{30, 12} << 12.0;
    QTest::newRow("exactly half a turn is no jump") << QList<double>{180} << 180.0;
    QTest::newRow("down over the end: one step more") << QList<double>{359} << -2.0;
    QTest::newRow("up over the end: one step more") << QList<double>{120, 240, 359, 1} << 362.0;
    QTest::newRow("fractions are dropped, toward zero") << QList<double>{1.9, 0.2} << 0.0;
}

void TestBsDoubleWidget::wheelTurnsIntoSteps()
{
    QFETCH(QList<double>, angles);
    Widget widget;
    for (double angle : angles)
        widget.turner().setValue(angle);
    QTEST(widget.value(), "value");
    QCOMPARE(widget.turner().value(), angles.last());
    widget.setValue(77);
    QCOMPARE(widget.turner().value(), angles.last());
}

void TestBsDoubleWidget::resetStepsNothing()
{
    Widget widget(10, 90);
    widget.turner().setValue(50);
    QCOMPARE(widget.value(), 60.0);
    Recorder recorder(widget);
    widget.reset();
    QCOMPARE(widget.turner().value(), 0.0);
    QCOMPARE(recorder.values, QList<double>{10});
}

void TestBsDoubleWidget::typingBracket()
{
    Widget widget;
    show_active(widget);
    Recorder recorder(widget);
    widget.spin().setFocus();
    widget.spin().selectAll();
    QTest::keyClicks(&widget.spin(), "42");
    QCOMPARE(recorder.events, QString("Bvv"));
    QTest::keyClick(&widget.spin(), Qt::Key_Return);
    // The end is told once, although the spin box reports a second one as it loses the focus.
    QCOMPARE(recorder.events, QString("BvvvF"));
    QVERIFY(!widget.spin().hasFocus());
    QVERIFY(!widget.isEditing());
}

void TestBsDoubleWidget::dragBracket()
{
    Widget widget;
    show_active(widget);
    Recorder recorder(widget);
    const QPoint from = widget.wheelCentre();
    QTest::mousePress(&widget.turner(), Qt::LeftButton, {}, from);
    QCOMPARE(recorder.events, QString("B"));
    QVERIFY(widget.spin().hasFocus());
    QMouseEvent move(QEvent::MouseMove, from + QPoint(10, 0), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&widget.turner(), &move);
    QVERIFY(widget.value() != 0.0);
    widget.leave(); // the pointer may leave while the button is down
    QCOMPARE(recorder.events, QString("Bv"));
    const double dragged = widget.value();
    QTest::mouseRelease(&widget.turner(), Qt::LeftButton, {}, from + QPoint(10, 0));
    QCOMPARE(recorder.events, QString("BvF"));
    QCOMPARE(widget.value(), dragged);
    QCOMPARE(widget.turner().value(), 0.0);
}

void TestBsDoubleWidget::scrollBracket()
{
    Widget widget(-1000, 1000, false, bsDoubleWheelOnly);
    show_active(widget);
    Recorder recorder(widget);
    widget.scroll(1);
    widget.scroll(1);
    QCOMPARE(widget.value(), 2.0);
    QCOMPARE(recorder.events, QString("Bvv"));
    widget.leave();
    widget.leave();
    QCOMPARE(recorder.events, QString("BvvF"));
}

void TestBsDoubleWidget::handlerMayResetInsideTheBracket()
{
    Widget widget(-1000, 1000, false, bsDoubleWheelOnly);
    show_active(widget);
    connect(&widget, &bsDoubleWidget::editingFinished, &widget, &bsDoubleWidget::reset);
    Recorder recorder(widget);
    widget.scroll(1);
    widget.leave();
    QCOMPARE(recorder.events, QString("BvvF"));
    QCOMPARE(recorder.values, (QList<double>{1, 0}));
    QVERIFY(!widget.isEditing());
}

void TestBsDoubleWidget::properties()
{
    Widget widget;
    QVERIFY(widget.setProperty("value", 3.5));
    QVERIFY(widget.setProperty("label", "rx"));
    QCOMPARE(widget.property("value").toDouble(), 3.5);
    QCOMPARE(widget.findChild<QLabel*>()->text(), QString("rx"));
    widget.setLabelColor(Qt::green);
    const QPalette palette = widget.findChild<QLabel*>()->palette();
    QCOMPARE(palette.color(QPalette::Disabled, QPalette::WindowText), QColor(Qt::green));
    QCOMPARE(palette.color(QPalette::Active, QPalette::WindowText), QColor(Qt::green));
}

QTEST_MAIN(TestBsDoubleWidget)
#include "test_bsDoubleWidget.moc"
