#include "tests/support/fatal_logger.h"
#include "widgets/xyzWidget.h"

#include <QtTest>

#include <functional>

#include <qwt_wheel.h>

namespace
{

class Widget : public xyzWidget
{
public:
    Widget() : xyzWidget(nullptr, bsDoubleWheelOnly, -100, 100, false)
    {
        setValues(1, 2, 3);
        connect(this, &xyzWidget::xyzEditingBegin, [this] { events += 'B'; });
        connect(this, &xyzWidget::xyzEditingFinished, [this] { events += 'F'; });
        connect(this, &xyzWidget::valueChanged, [this](double x, double y, double z) {
            events += QString("(%1 %2 %3)").arg(x).arg(y).arg(z);
        });
        show();
    }

    using xyzWidget::group_box;

    bsDoubleWidget& child(int index)
    {
        return *QList<bsDoubleWidget*>{x_widget, y_widget, z_widget}[index];
    }
    void turn(int index, double angle) { child(index).findChild<QwtWheel*>()->setValue(angle); }
    void leave(int index)
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&child(index), &event);
    }
    QRect area(int index) { return QRect(child(index).mapTo(this, QPoint()), child(index).size()); }

    QString events; // the signals, in the order in which they came
};

} // namespace

class TestXyzWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void changesAreTold()
    {
        const struct
        {
            const char* oddity;
            std::function<void(Widget&)> change;
            const char* events;
        } rows[] = {
            {"too small", [](Widget& w) { w.setValues(1.000001, 2, 3); }, ""},
            {"all at once", [](Widget& w) { w.setValues(4, 5, 6); }, "(4 5 6)"},
            {"clipped", [](Widget& w) { w.setValues(1, -500, 3); }, "(1 -100 3)"},
            {"no bracket", [](Widget& w) { w.adjustValues(10, 0, -1); }, "(11 2 2)"},
            {"one axis", [](Widget& w) { w.setXValue(7); }, "(7 2 3)"},
            {"one wheel", [](Widget& w) { w.turn(2, 4); }, "B(1 2 7)"},
            {"per axis", [](Widget& w) { w.reset(); }, "B(0 2 3)B(0 0 3)B(0 0 0)"},
        };
        for (const auto& row : rows) {
            Widget widget;
            row.change(widget);
            QCOMPARE(row.oddity + widget.events, row.oddity + QString(row.events));
        }
    }

    void bracketsComePerChild()
    {
        Widget widget;
        widget.turn(0, 5);
        widget.turn(0, 6);
        widget.leave(0);
        widget.turn(1, 5);
        widget.leave(1);
        widget.leave(1);
        QCOMPARE(widget.events, QString("B(6 2 3)(7 2 3)FB(7 7 3)F"));
    }

    void groupBoxTakesTheChildrenAndGivesThemBack()
    {
        Widget widget;
        widget.setProperty("groupTitle", "position");
        for (bool boxed : {true, false, true, false}) {
            widget.showGroupBox(boxed);
            QCOMPARE(widget.group_box->isVisible(), boxed);
            QCOMPARE(widget.group_box->title(), QString("position"));
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(widget.child(i).parentWidget() == widget.group_box, boxed);
                QTRY_VERIFY(widget.child(i).isVisible());
                QCOMPARE(widget.layout()->indexOf(&widget.child(i)), boxed ? -1 : i);
            }
        }
    }

    void rowAndColumn()
    {
        Widget widget;
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QVERIFY(widget.area(0).right() < widget.area(1).left());
        widget.setProperty("horizontal", false);
        QVERIFY(qobject_cast<QVBoxLayout*>(widget.group_box->layout()));
        widget.resize(200, 300);
        QTRY_VERIFY(widget.area(0).bottom() < widget.area(1).top());
        QVERIFY(widget.area(1).bottom() < widget.area(2).top());
        // The children go to the widget's own layout, even from the group box.
        widget.showGroupBox(true);
        widget.setLayoutHorizontal(true);
        QTRY_VERIFY(widget.area(0).right() < widget.area(1).left());
    }

    void eachAxisIsSetByItself()
    {
        Widget widget;
        QCOMPARE(widget.xLabel() + widget.yLabel() + widget.zLabel(), QString("X :Y :Z :"));
        widget.setXRange(0, 10);
        widget.setYRange(0, 20);
        widget.setZRange(0, 360);
        widget.setZWrapping(true);
        widget.setLabels("a", "b", "c");
        widget.setYLabel("B");
        widget.setStep(0.5);
        widget.setMode(bsDoubleSpinOnly);
        QCOMPARE(widget.xLabel() + widget.yLabel() + widget.zLabel(), QString("aBc"));
        const double maxima[] = {10, 20, 359.5};
        const QColor colors[] = {{200, 0, 0}, {0, 200, 0}, {0, 0, 200}};
        for (int i = 0; i < 3; ++i) {
            const QDoubleSpinBox* spin = widget.child(i).findChild<QDoubleSpinBox*>();
            QCOMPARE(spin->maximum(), maxima[i]);
            QCOMPARE(spin->wrapping(), i == 2);
            QVERIFY(spin->isVisibleTo(&widget));
            const QPalette label = widget.child(i).findChild<QLabel*>()->palette();
            QCOMPARE(label.color(QPalette::WindowText), colors[i]);
        }
    }
};

QTEST_MAIN(TestXyzWidget)
#include "test_xyzWidget.moc"
