// Three number inputs that act as one input of an x, y, z triple.
#ifndef WIDGETS_XYZWIDGET_H
#define WIDGETS_XYZWIDGET_H

#include "widgets/bsDoubleWidget.h"

#include <QGroupBox>
#include <QString>
#include <QWidget>

/// Any change of one child reports all three values. Begin and end of edits are passed on as they
/// come: going from one child to another ends one edit and begins the next.
///
/// The virtual operations keep their order, because other programs are compiled against it.
class xyzWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double xValue READ xValue WRITE setXValue)
    Q_PROPERTY(double yValue READ yValue WRITE setYValue)
    Q_PROPERTY(double zValue READ zValue WRITE setZValue)
    Q_PROPERTY(QString xLabel READ xLabel WRITE setXLabel)
    Q_PROPERTY(QString yLabel READ yLabel WRITE setYLabel)
    Q_PROPERTY(QString zLabel READ zLabel WRITE setZLabel)
    Q_PROPERTY(QString groupTitle READ groupTitle WRITE setGroupTitle)
    Q_PROPERTY(bool horizontal READ getLayoutHorizontal WRITE setLayoutHorizontal)

public:
    /// Mode, range and wrapping hold for each of the three, see bsDoubleWidget.
    /// The defaults are what a form, which passes the parent alone, starts with.
    explicit xyzWidget(QWidget* parent, bsDoubleMode mode = bsDoubleWheelOnly, double minimum = 0.0,
                       double maximum = 100.0, bool wrapping = false);

    virtual double xValue() const;
    virtual double yValue() const;
    virtual double zValue() const;
    virtual QString xLabel() const;
    virtual QString yLabel() const;
    virtual QString zLabel() const;
    virtual bool getLayoutHorizontal() const;
    // These three act on each child.
    virtual void setSuffix(QString suffix);
    virtual void setStep(double step);
    virtual void setMode(bsDoubleMode mode);
    /// Puts a frame with a title around the three, or takes it away.
    virtual void showGroupBox(bool show);
    virtual void setGroupTitle(QString title);
    virtual QString groupTitle() const;

signals:
    void valueChanged(double x, double y, double z);
    void xyzEditingBegin();
    void xyzEditingFinished();

public slots:
    /// Sets all three, which is no edit, and emits valueChanged() once, with the values limited to
    /// the ranges. Ignored if none changes by more than 1e-5.
    virtual void setValues(double x, double y, double z);
    /// setValues() with the present values plus the given ones: not an edit, unlike
    /// bsDoubleWidget::adjustValue().
    virtual void adjustValues(double x, double y, double z);
    virtual void setXValue(double value);
    virtual void setYValue(double value);
    virtual void setZValue(double value);
    virtual void setLabels(QString xLabel, QString yLabel, QString zLabel);
    virtual void setXLabel(QString label);
    virtual void setYLabel(QString label);
    virtual void setZLabel(QString label);
    /// Each child by itself becomes 0: up to three edits and three valueChanged().
    virtual void reset();
    /// Side by side or one below the other. The children leave the group box for this widget's
    /// own layout.
    virtual void setLayoutHorizontal(bool horizontal);
    virtual void setXRange(double minimum, double maximum);
    virtual void setYRange(double minimum, double maximum);
    virtual void setZRange(double minimum, double maximum);
    virtual void setXWrapping(bool wrapping);
    virtual void setYWrapping(bool wrapping);
    virtual void setZWrapping(bool wrapping);

protected slots:
    void xyzChanged(double value);

protected:
    void create(bsDoubleMode mode, double minimum, double maximum, bool wrapping);

    QGroupBox* group_box; ///< optional frame, hidden at start
    bsDoubleWidget* x_widget;
    bsDoubleWidget* y_widget;
    bsDoubleWidget* z_widget;
    bool horizontal;

private:
    void adopt(bsDoubleWidget* child, const QString& label, const QColor& color);
    void removeChildrenFrom(QLayout* layout);
    void addChildrenTo(QLayout* layout);
};

#endif
