#include "widgets/bsDoubleWidget.h"

#include "platform/qwtwheel.h"
#include "widgets/numberbox.h"

#include <QEvent>
#include <QPalette>

#include <cmath>

namespace
{

constexpr double smallest_change = 1e-05;
constexpr double wrapping_gap = 1.0;
constexpr int minimum_input_width = 56; // pixels
constexpr int input_spacing = 5;        // pixels

constexpr double wheel_range = 360.0;        // degrees
constexpr double wheel_total_angle = 3600.0; // degrees
constexpr double wheel_step = 1.0;           // degrees
constexpr int wheel_page_steps = 10;
constexpr int wheel_ticks = 15;
constexpr double wheel_half_range = 180.0; // a larger jump means that the wheel went over its end
constexpr double wheel_end_correction = 361.0; // one step more than the range, by requirement

} // namespace

bsDoubleWidget::bsDoubleWidget(QWidget* parent, bsDoubleMode mode, double minimum, double maximum,
                               bool wrapping)
    : QWidget(parent), wheel_value(0.0), main_layout(new QBoxLayout(QBoxLayout::LeftToRight, this)),
      label_widget(new QLabel(this)), input_layout(new QBoxLayout(QBoxLayout::TopToBottom)),
      spin_box(new NumberBox(this)), wheel(new QwtWheel(this)), editing(false),
      mouse_editing(false), wheel_editing(false)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    main_layout->setContentsMargins(0, 0, 0, 0);
    createLabel();
    input_layout->setSpacing(input_spacing);
    main_layout->addLayout(input_layout);
    createSpinBox(minimum, maximum, wrapping);
    createWheel();
    setMode(mode);
    setWheelOrientation(bsDoubleHorizontal);
}

void bsDoubleWidget::createLabel()
{
    label_widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    main_layout->addWidget(label_widget);
}

void bsDoubleWidget::createSpinBox(double minimum, double maximum, bool wrapping)
{
    spin_box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    spin_box->setAlignment(Qt::AlignRight);
    spin_box->setMinimum(minimum);
    spin_box->setWrapping(wrapping);
    spin_box->setMaximum(wrapping ? maximum - wrapping_gap : maximum);
    spin_box->setMinimumWidth(minimum_input_width);
    connect(spin_box, SIGNAL(valueChanged(double)), this, SLOT(spinChanged(double)));
    connect(spin_box, SIGNAL(editingFinished()), this, SLOT(setEditingFinished()));
    input_layout->addWidget(spin_box);
}

void bsDoubleWidget::createWheel()
{
    wheel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    set_up_endless_wheel(wheel, wheel_range, wheel_step, wheel_page_steps, wheel_ticks);
    wheel->setTotalAngle(wheel_total_angle);
    connect(wheel, SIGNAL(valueChanged(double)), this, SLOT(wheelChanged(double)));
    connect(wheel, WHEEL_PRESSED, this, SLOT(setMouseEditingBegin()));
    connect(wheel, WHEEL_RELEASED, this, SLOT(setMouseEditingFinished()));
    input_layout->addWidget(wheel);
}

double bsDoubleWidget::value() const { return spin_box->value(); }

QString bsDoubleWidget::label() const { return label_widget->text(); }

void bsDoubleWidget::setStep(double step)
{
    if (spin_box->wrapping())
        spin_box->setMaximum(spin_box->maximum() + spin_box->singleStep() - step);
    spin_box->setSingleStep(step);
}

void bsDoubleWidget::setWrapping(bool on)
{
    if (on == spin_box->wrapping())
        return;
    spin_box->setWrapping(on);
    spin_box->setMaximum(spin_box->maximum() + (on ? -wrapping_gap : wrapping_gap));
}

void bsDoubleWidget::setLabelColor(const QColor& color)
{
    QPalette palette = label_widget->palette();
    palette.setBrush(QPalette::WindowText, QBrush(color, Qt::SolidPattern));
    label_widget->setPalette(palette);
}

void bsDoubleWidget::setRange(double minimum, double maximum)
{
    spin_box->setRange(minimum, spin_box->wrapping() ? maximum - wrapping_gap : maximum);
}

void bsDoubleWidget::showLabel(bool show) { label_widget->setVisible(show); }

void bsDoubleWidget::setLabel(QString label) { label_widget->setText(label); }

void bsDoubleWidget::setLabelFont(QFont font) { label_widget->setFont(font); }

void bsDoubleWidget::setSuffix(QString suffix) { spin_box->setSuffix(suffix); }

void bsDoubleWidget::setDecimals(int decimals) { spin_box->setDecimals(decimals); }

void bsDoubleWidget::setValue(double value)
{
    if (std::fabs(value - this->value()) <= smallest_change)
        return;
    const bool blocked = spin_box->blockSignals(true);
    spin_box->setValue(value);
    spin_box->blockSignals(blocked);
    emit valueChanged(value);
}

void bsDoubleWidget::adjustValue(double inc)
{
    if (std::fabs(inc) > smallest_change)
        spin_box->setValue(value() + inc);
}

void bsDoubleWidget::setMode(bsDoubleMode mode)
{
    switch (mode) {
    case bsDoubleSpinOnly:
    case bsDoubleWheelOnly:
    case bsDoubleSpinAndWheel:
        spin_box->setVisible(mode != bsDoubleWheelOnly);
        wheel->setVisible(mode != bsDoubleSpinOnly);
        break;
    }
}

void bsDoubleWidget::setLabelPosition(bsDoublePosition position)
{
    switch (position) {
    case bsDoubleTop:
        main_layout->setDirection(QBoxLayout::TopToBottom);
        main_layout->setAlignment(label_widget, Qt::AlignCenter);
        break;
    case bsDoubleBottom:
        main_layout->setDirection(QBoxLayout::BottomToTop);
        main_layout->setAlignment(label_widget, Qt::AlignCenter);
        break;
    case bsDoubleLeft:
        main_layout->setDirection(QBoxLayout::LeftToRight);
        main_layout->setAlignment(label_widget, Qt::AlignLeft);
        break;
    case bsDoubleRight:
        main_layout->setDirection(QBoxLayout::RightToLeft);
        main_layout->setAlignment(label_widget, Qt::AlignLeft);
        break;
    }
}

void bsDoubleWidget::setWheelPosition(bsDoublePosition position)
{
    switch (position) {
    case bsDoubleTop:
        input_layout->setDirection(QBoxLayout::BottomToTop);
        break;
    case bsDoubleBottom:
        input_layout->setDirection(QBoxLayout::TopToBottom);
        break;
    case bsDoubleLeft:
        input_layout->setDirection(QBoxLayout::RightToLeft);
        break;
    case bsDoubleRight:
        input_layout->setDirection(QBoxLayout::LeftToRight);
        break;
    }
}

void bsDoubleWidget::setWheelOrientation(bsDoubleOrientation orientation)
{
    switch (orientation) {
    case bsDoubleHorizontal:
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        wheel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        wheel->setMinimumWidth(minimum_input_width);
        wheel->setOrientation(Qt::Horizontal);
        break;
    case bsDoubleVertical:
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
        wheel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        wheel->setMinimumWidth(0);
        wheel->setOrientation(Qt::Vertical);
        input_layout->setAlignment(wheel, Qt::AlignHCenter);
        break;
    }
}

void bsDoubleWidget::reset()
{
    wheel_value = 0.0; // before the wheel moves, so that wheelChanged() sees no difference
    wheel->setValue(0.0);
    spin_box->setValue(0.0);
}

void bsDoubleWidget::languageChange() {}

void bsDoubleWidget::resetWheel()
{
    wheel_value = 0.0; // before the wheel moves, so that wheelChanged() sees no difference
    wheel->setValue(0.0);
}

void bsDoubleWidget::spinChanged(double value)
{
    setEditingBegin();
    emit valueChanged(value);
}

void bsDoubleWidget::wheelChanged(double wheel_angle)
{
    const double delta = wheel_angle - wheel_value;
    if (delta > wheel_half_range)
        wheel_value += wheel_end_correction;
    if (delta < -wheel_half_range)
        wheel_value -= wheel_end_correction;
    if (!mouse_editing)
        wheel_editing = true;
    spin_box->stepBy(static_cast<int>(wheel_angle - wheel_value));
    wheel_value = wheel_angle;
}

void bsDoubleWidget::setEditingBegin()
{
    if (editing)
        return;
    editing = true;
    spin_box->setFocus(Qt::OtherFocusReason);
    emit editingBegin();
}

void bsDoubleWidget::setEditingFinished()
{
    if (!editing)
        return;
    resetWheel();
    spin_box->clearFocus();
    // A spin box that had the focus reports its own end of editing while it loses it, which has
    // run this function to its end already.
    if (!editing)
        return;
    emit editingFinished();
    editing = false;
}

void bsDoubleWidget::setMouseEditingBegin()
{
    wheel_editing = false;
    mouse_editing = true;
    setEditingBegin();
}

void bsDoubleWidget::setMouseEditingFinished()
{
    setEditingFinished();
    mouse_editing = false;
}

void bsDoubleWidget::leaveEvent(QEvent* event)
{
    if (wheel_editing) {
        setEditingFinished();
        wheel_editing = false;
    }
    event->accept();
}
