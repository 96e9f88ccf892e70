// One labelled number input: a spin box that holds the value and a wheel that turns it.
#ifndef WIDGETS_BSDOUBLEWIDGET_H
#define WIDGETS_BSDOUBLEWIDGET_H

#include <QBoxLayout>
#include <QColor>
#include <QDoubleSpinBox>
#include <QFont>
#include <QLabel>
#include <QString>
#include <QWidget>

class QwtWheel;

/// What is shown.
enum bsDoubleMode
{
    bsDoubleSpinOnly = 0,
    bsDoubleWheelOnly = 1,
    bsDoubleSpinAndWheel = 2
};

enum bsDoublePosition
{
    bsDoubleTop = 0,
    bsDoubleBottom = 1,
    bsDoubleLeft = 2,
    bsDoubleRight = 3
};

enum bsDoubleOrientation
{
    bsDoubleHorizontal = 0,
    bsDoubleVertical = 1
};

/// The spin box holds the value. The wheel only makes steps: each degree it turns is one single
/// step of the spin box, and setting the value does not turn the wheel.
///
/// Each edit is enclosed by one editingBegin() and one editingFinished(), so that a caller can take
/// one undo record per edit. It begins at the first change that comes from the spin box or at a
/// press on the wheel.
///
/// The virtual operations keep their order, because other programs are compiled against it.
class bsDoubleWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue)
    Q_PROPERTY(QString label READ label WRITE setLabel)

public:
    /// With `wrapping` the largest value is `maximum` - 1: a spin box that wraps must not hold
    /// both ends of its range.
    bsDoubleWidget(QWidget* parent, bsDoubleMode mode, double minimum, double maximum,
                   bool wrapping);

    virtual double value() const;
    virtual QString label() const;
    /// While wrapping, moves the maximum by the difference of the steps, so that it stays one
    /// step below the limit, given that the step was 1 at first.
    virtual void setStep(double step);
    /// Lowers the maximum by 1 when wrapping goes on, raises it by 1 when it goes off. No effect
    /// if the state is there already.
    virtual void setWrapping(bool on);
    virtual void setLabelColor(const QColor& color);

signals:
    /// By an edit, or by setValue().
    void valueChanged(double value);
    void editingFinished();
    void editingBegin();

public slots:
    /// While wrapping, the largest value becomes `maximum` - 1, whatever the step.
    virtual void setRange(double minimum, double maximum);
    virtual void showLabel(bool show);
    virtual void setLabel(QString label);
    virtual void setLabelFont(QFont font);
    /// A unit behind the number.
    virtual void setSuffix(QString suffix);
    /// 2 unless set.
    virtual void setDecimals(int decimals);
    /// Sets the value, which is no edit. A change of at most 1e-5 is ignored.
    /// Emits valueChanged() with the value given, not with what the spin box made of it.
    virtual void setValue(double value);
    /// Adds to the value, which is an edit. An increment of at most 1e-5 is ignored.
    virtual void adjustValue(double inc);
    /// An unknown mode changes nothing.
    virtual void setMode(bsDoubleMode mode);
    /// Where the label stands, seen from the input.
    virtual void setLabelPosition(bsDoublePosition position);
    /// Where the wheel stands, seen from the spin box.
    virtual void setWheelPosition(bsDoublePosition position);
    virtual void setWheelOrientation(bsDoubleOrientation orientation);
    /// Value and wheel to 0, as an edit.
    virtual void reset();

protected slots:
    /// Nothing to translate here.
    void languageChange();
    /// Wheel to 0 without a step.
    virtual void resetWheel();
    virtual void spinChanged(double value);
    /// Steps by the degrees since the last call, cut to whole ones. `wheel_angle` is 0 to 360.
    virtual void wheelChanged(double wheel_angle);
    /// Both do nothing while an edit is, or is not, under way.
    virtual void setEditingBegin();
    virtual void setEditingFinished();
    virtual void setMouseEditingBegin();
    virtual void setMouseEditingFinished();

protected:
    void leaveEvent(QEvent* event);

    double wheel_value; ///< last wheel value seen, in degrees
    QBoxLayout* main_layout;
    QLabel* label_widget;
    QBoxLayout* input_layout; ///< spin box, then wheel
    QDoubleSpinBox* spin_box;
    QwtWheel* wheel;
    bool editing;       ///< an edit is under way
    bool mouse_editing; ///< the wheel is held down with the mouse
    bool wheel_editing; ///< the wheel moved without being held down

private:
    void createLabel();
    void createSpinBox(double minimum, double maximum, bool wrapping);
    void createWheel();
};

#endif
