#include "tests/support/fatal_logger.h"
#include "widgets/xyzWidget.h"

#include <QtTest>

#include <qwt_wheel.h>

namespace
{

class Widget : public xyzWidget
{
    Q_OBJECT

public:
    Widget() : xyzWidget(nullptr, bsDoubleWheelOnly, -100, 100, false) {}

    bsDoubleWidget& child(int index)
    {
        return *QList<bsDoubleWidget*>{x_widget, y_widget, z_widget}[index];
    }
    QGroupBox& box() { return *group_box; }
    void turn(int index, double angle) { child(index).findChild<QwtWheel*>()->setValue(angle); }
    void leave(int index)
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&child(index), &event);
    }

    QList<double> values() const { return {xValue(), yValue(), zValue()}; }
    QRect area(int index) { return QRect(child(index).mapTo(this, QPoint()), child(index).size()); }
};

} // namespace

class TestXyzWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void startsAsALabelledRow();
    void setValuesTellsOnce_data();
    void setValuesTellsOnce();
    void adjustValuesOpensNoBracket();
    void oneChildTellsAllThree();
    void bracketsComePerChild();
    void resetTellsPerChild();
    void groupBoxTakesTheChildrenAndGivesThemBack();
    void columnLayout();
    void eachAxisIsSetByItself();
};

void TestXyzWidget::startsAsALabelledRow()
{
    Widget widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCOMPARE(widget.xLabel() + widget.yLabel() + widget.zLabel(), QString("X :Y :Z :"));
    QVERIFY(widget.area(0).right() < widget.area(1).left());
    QVERIFY(widget.area(1).right() < widget.area(2).left());
    QCOMPARE(widget.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QVERIFY(!widget.box().isVisible());
    const QColor colors[] = {QColor(200, 0, 0), QColor(0, 200, 0), QColor(0, 0, 200)};
    for (int i = 0; i < 3; ++i) {
        const QPalette palette = widget.child(i).findChild<QLabel*>()->palette();
        QCOMPARE(palette.color(QPalette::WindowText), colors[i]);
    }
}

void TestXyzWidget::setValuesTellsOnce_data()
{
    QTest::addColumn<QList<double>>("given");
    QTest::addColumn<int>("times");
    QTest::addColumn<QList<double>>("held");
    QTest::newRow("too small a change")
        << QList<double>{1.000001, 2, 3} << 0 << QList<double>{1, 2, 3};
    QTest::newRow("one of three") << QList<double>{1, 2, 8} << 1 << QList<double>{1, 2, 8};
    QTest::newRow("all") << QList<double>{4, 5, 6} << 1 << QList<double>{4, 5, 6};
    QTest::newRow("clipped") << QList<double>{1, -500, 3} << 1 << QList<double>{1, -100, 3};
}

void TestXyzWidget::setValuesTellsOnce()
{
    QFETCH(QList<double>, given);
    QFETCH(QList<double>, held);
    Widget widget;
    widget.setValues(1, 2, 3);
    QSignalSpy changed(&widget, &xyzWidget::valueChanged);
    widget.setValues(given[0], given[1], given[2]);
    QTEST(changed.count(), "times");
    QCOMPARE(widget.values(), held);
    if (!changed.isEmpty())
        QCOMPARE(changed[0], (QVariantList{held[0], held[1], held[2]}));
}

void TestXyzWidget::adjustValuesOpensNoBracket()
{
    Widget widget;
    widget.setValues(1, 2, 3);
    QSignalSpy begin(&widget, &xyzWidget::xyzEditingBegin);
    QSignalSpy changed(&widget, &xyzWidget::valueChanged);
    widget.adjustValues(10, 0, -1);
    QCOMPARE(widget.values(), (QList<double>{11, 2, 2}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(begin.count(), 0);
}

void TestXyzWidget::oneChildTellsAllThree()
{
    Widget widget;
    widget.setValues(1, 2, 3);
    QSignalSpy changed(&widget, &xyzWidget::valueChanged);
    widget.setXValue(7);
    widget.turn(2, 4);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed[0], (QVariantList{7.0, 2.0, 3.0}));
    QCOMPARE(changed[1], (QVariantList{7.0, 2.0, 7.0}));
}

void TestXyzWidget::bracketsComePerChild()
{
    Widget widget;
    QString events;
    connect(&widget, &xyzWidget::xyzEditingBegin, [&] { events += 'B'; });
    connect(&widget, &xyzWidget::xyzEditingFinished, [&] { events += 'F'; });
    widget.turn(0, 5);
    widget.turn(0, 6);
    widget.leave(0);
    widget.turn(1, 5);
    widget.leave(1);
    widget.leave(1);
    QCOMPARE(events, QString("BFBF"));
}

void TestXyzWidget::resetTellsPerChild()
{
    Widget widget;
    widget.setValues(1, 0, 3);
    QSignalSpy changed(&widget, &xyzWidget::valueChanged);
    QSignalSpy begin(&widget, &xyzWidget::xyzEditingBegin);
    widget.reset();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed[0], (QVariantList{0.0, 0.0, 3.0}));
    QCOMPARE(begin.count(), 2);
    QCOMPARE(widget.values(), (QList<double>{0, 0, 0}));
}

void TestXyzWidget::groupBoxTakesTheChildrenAndGivesThemBack()
{
    Widget widget;
    widget.setProperty("groupTitle", "position");
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    for (int round = 0; round < 2; ++round) {
        widget.showGroupBox(true);
        QVERIFY(widget.box().isVisible());
        QCOMPARE(widget.box().title(), QString("position"));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(widget.child(i).parentWidget(), &widget.box());
            QTRY_VERIFY(widget.child(i).isVisible());
        }
        widget.showGroupBox(false);
        QVERIFY(!widget.box().isVisible());
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(widget.child(i).parentWidget(), &widget);
            QTRY_VERIFY(widget.child(i).isVisible());
            QCOMPARE(widget.layout()->indexOf(&widget.child(i)), i);
        }
    }
}

void TestXyzWidget::columnLayout()
{
    Widget widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    widget.setProperty("horizontal", false);
    QVERIFY(!widget.getLayoutHorizontal());
    QVERIFY(qobject_cast<QVBoxLayout*>(widget.box().layout()));
    widget.resize(200, 300);
    QTRY_VERIFY(widget.area(0).bottom() < widget.area(1).top());
    QVERIFY(widget.area(1).bottom() < widget.area(2).top());

    // The children go to the widget's own layout, even from the group box.
    widget.showGroupBox(true);
    widget.setLayoutHorizontal(true);
    QCOMPARE(widget.child(0).parentWidget(), &widget);
    QTRY_VERIFY(widget.child(0).isVisible());
    QTRY_VERIFY(widget.area(0).right() < widget.area(1).left());
}

void TestXyzWidget::eachAxisIsSetByItself()
{
    Widget widget;
    widget.setXRange(0, 10);
    widget.setYRange(0, 20);
    widget.setZRange(0, 360);
    widget.setZWrapping(true);
    widget.setLabels("a", "b", "c");
    widget.setYLabel("B");
    widget.setSuffix(" mm");
    widget.setStep(0.5);
    widget.setMode(bsDoubleSpinOnly);
    QCOMPARE(widget.xLabel() + widget.yLabel() + widget.zLabel(), QString("aBc"));
    const double maxima[] = {10, 20, 359.5};
    for (int i = 0; i < 3; ++i) {
        const QDoubleSpinBox* spin = widget.child(i).findChild<QDoubleSpinBox*>();
        QCOMPARE(spin->maximum(), maxima[i]);
        QCOMPARE(spin->wrapping(), i == 2);
        QCOMPARE(spin->suffix(), QString(" mm"));
        QCOMPARE(spin->singleStep(), 0.5);
        QVERIFY(spin->isVisibleTo(&widget));
    }
}

QTEST_MAIN(TestXyzWidget)
#include "test_xyzWidget.moc"
