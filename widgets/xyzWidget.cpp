#include "widgets/xyzWidget.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <cmath>

namespace
{

constexpr double smallest_change = 1e-05;

bool differs(double a, double b)
{
    return !(std::fabs(a - b) <= smallest_change); // so that NaN differs
}

QBoxLayout* new_layout(bool horizontal)
{
    if (horizontal)
        return new QHBoxLayout;
    return new QVBoxLayout;
}

void replace_layout(QWidget* widget, bool horizontal)
{
    delete widget->layout();
    widget->setLayout(new_layout(horizontal));
}

} // namespace

xyzWidget::xyzWidget(QWidget* parent, bsDoubleMode mode, double minimum, double maximum,
                     bool wrapping)
    : QWidget(parent), group_box(nullptr), x_widget(nullptr), y_widget(nullptr), z_widget(nullptr),
      horizontal(true)
{
    create(mode, minimum, maximum, wrapping);
}

void xyzWidget::create(bsDoubleMode mode, double minimum, double maximum, bool wrapping)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setLayout(new_layout(true));
    layout()->setContentsMargins(0, 0, 0, 0);

    group_box = new QGroupBox(this);
    group_box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    group_box->setLayout(new_layout(true));
    group_box->hide();

    x_widget = new bsDoubleWidget(this, mode, minimum, maximum, wrapping);
    adopt(x_widget, tr("X :"), QColor(200, 0, 0, 255));
    y_widget = new bsDoubleWidget(this, mode, minimum, maximum, wrapping);
    adopt(y_widget, tr("Y :"), QColor(0, 200, 0, 255));
    z_widget = new bsDoubleWidget(this, mode, minimum, maximum, wrapping);
    adopt(z_widget, tr("Z :"), QColor(0, 0, 200, 255));
}

void xyzWidget::adopt(bsDoubleWidget* child, const QString& label, const QColor& color)
{
    child->setLabel(label);
    child->setLabelColor(color);
    connect(child, SIGNAL(valueChanged(double)), this, SLOT(xyzChanged(double)));
    connect(child, SIGNAL(editingBegin()), this, SIGNAL(xyzEditingBegin()));
    connect(child, SIGNAL(editingFinished()), this, SIGNAL(xyzEditingFinished()));
    layout()->addWidget(child);
}

double xyzWidget::xValue() const { return x_widget->value(); }

double xyzWidget::yValue() const { return y_widget->value(); }

double xyzWidget::zValue() const { return z_widget->value(); }

QString xyzWidget::xLabel() const { return x_widget->label(); }

QString xyzWidget::yLabel() const { return y_widget->label(); }

QString xyzWidget::zLabel() const { return z_widget->label(); }

bool xyzWidget::getLayoutHorizontal() const { return horizontal; }

void xyzWidget::setSuffix(QString suffix)
{
    x_widget->setSuffix(suffix);
    y_widget->setSuffix(suffix);
    z_widget->setSuffix(suffix);
}

void xyzWidget::setStep(double step)
{
    x_widget->setStep(step);
    y_widget->setStep(step);
    z_widget->setStep(step);
}

void xyzWidget::setMode(bsDoubleMode mode)
{
    x_widget->setMode(mode);
    y_widget->setMode(mode);
    z_widget->setMode(mode);
}

void xyzWidget::showGroupBox(bool show)
{
    if (show) {
        removeChildrenFrom(layout());
        layout()->addWidget(group_box);
        addChildrenTo(group_box->layout());
        group_box->show();
    } else {
        group_box->hide();
        removeChildrenFrom(group_box->layout());
        layout()->removeWidget(group_box);
        addChildrenTo(layout());
    }
}

void xyzWidget::removeChildrenFrom(QLayout* layout)
{
    layout->removeWidget(x_widget);
    layout->removeWidget(y_widget);
    layout->removeWidget(z_widget);
}

void xyzWidget::addChildrenTo(QLayout* layout)
{
    bsDoubleWidget* const children[] = {x_widget, y_widget, z_widget};
    for (bsDoubleWidget* child : children)
        child->setParent(layout->parentWidget());
    for (bsDoubleWidget* child : children)
        layout->addWidget(child);
}

void xyzWidget::setGroupTitle(QString title) { group_box->setTitle(title); }

QString xyzWidget::groupTitle() const { return group_box->title(); }

void xyzWidget::setValues(double x, double y, double z)
{
    if (!differs(x, xValue()) && !differs(y, yValue()) && !differs(z, zValue()))
        return;
    const bool x_blocked = x_widget->blockSignals(true);
    const bool y_blocked = y_widget->blockSignals(true);
    const bool z_blocked = z_widget->blockSignals(true);
    x_widget->setValue(x);
    y_widget->setValue(y);
    z_widget->setValue(z);
    x_widget->blockSignals(x_blocked);
    y_widget->blockSignals(y_blocked);
    z_widget->blockSignals(z_blocked);
    emit valueChanged(xValue(), yValue(), zValue());
}

void xyzWidget::adjustValues(double x, double y, double z)
{
    setValues(xValue() + x, yValue() + y, zValue() + z);
}

void xyzWidget::setXValue(double value) { x_widget->setValue(value); }

void xyzWidget::setYValue(double value) { y_widget->setValue(value); }

void xyzWidget::setZValue(double value) { z_widget->setValue(value); }

void xyzWidget::setLabels(QString xLabel, QString yLabel, QString zLabel)
{
    x_widget->setLabel(xLabel);
    y_widget->setLabel(yLabel);
    z_widget->setLabel(zLabel);
}

void xyzWidget::setXLabel(QString label) { x_widget->setLabel(label); }

void xyzWidget::setYLabel(QString label) { y_widget->setLabel(label); }

void xyzWidget::setZLabel(QString label) { z_widget->setLabel(label); }

void xyzWidget::reset()
{
    x_widget->reset();
    y_widget->reset();
    z_widget->reset();
}

void xyzWidget::setLayoutHorizontal(bool horizontal)
{
    this->horizontal = horizontal;
    removeChildrenFrom(layout());
    replace_layout(this, horizontal);
    replace_layout(group_box, horizontal);
    layout()->addWidget(x_widget);
    layout()->addWidget(y_widget);
    layout()->addWidget(z_widget);
}

void xyzWidget::setXRange(double minimum, double maximum) { x_widget->setRange(minimum, maximum); }

void xyzWidget::setYRange(double minimum, double maximum) { y_widget->setRange(minimum, maximum); }

void xyzWidget::setZRange(double minimum, double maximum) { z_widget->setRange(minimum, maximum); }

void xyzWidget::setXWrapping(bool wrapping) { x_widget->setWrapping(wrapping); }

void xyzWidget::setYWrapping(bool wrapping) { y_widget->setWrapping(wrapping); }

void xyzWidget::setZWrapping(bool wrapping) { z_widget->setWrapping(wrapping); }

void xyzWidget::xyzChanged(double) { emit valueChanged(xValue(), yValue(), zValue()); }
