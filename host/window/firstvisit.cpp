#include "host/window/firstvisit.h"

#include "host/connection/controllerlink.h"
#include "host/window/colors.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int fewest_points = 3;   // a fit needs them
constexpr double zero_range = 2.0; // mm, above noise and rounding

// Null if there is no such window or it is not shown.
QWidget* shown_window(const char* name)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == QLatin1String(name))
            return widget;
    return nullptr;
}

int rows_of(const QWidget& window, const char* table)
{
    const auto* widget = window.findChild<QTableWidget*>(QLatin1String(table));
    return widget ? widget->rowCount() : 0;
}

} // namespace

FirstVisit::FirstVisit(QWidget* parent)
    : QFrame(parent), m_points_button(new QPushButton(tr("Save the &points for me"), this))
{
    setObjectName(QStringLiteral("firstVisit"));
    setFrameShape(QFrame::StyledPanel);
    auto* title = new QLabel(QStringLiteral("<b>%1</b>").arg(tr("Your first visit")), this);
    auto* close = new QToolButton(this);
    close->setText(QStringLiteral("\u00d7"));
    close->setAutoRaise(true);
    close->setAccessibleName(tr("Close the first visit"));
    close->setToolTip(tr("Close; the menu Help brings it back"));
    connect(close, &QToolButton::clicked, this, &FirstVisit::dismissed);
    connect(m_points_button, &QPushButton::clicked, this, &FirstVisit::points_wanted);
    auto* top = new QHBoxLayout;
    top->addWidget(title, 1);
    top->addWidget(m_points_button);
    top->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2);
    layout->addLayout(top);
    for (int i = 0; i < step_count; ++i) {
        m_labels.append(new QLabel(this));
        m_labels.last()->setWordWrap(true);
        m_labels.last()->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(m_labels.last());
    }
    show_steps();
}

void FirstVisit::set_points_file(const QString& file)
{
    m_points_file = file;
    tick(points);
}

void FirstVisit::tick(Step step)
{
    if (std::exchange(m_done[step], true))
        return;
    show_steps();
    emit advanced();
}

void FirstVisit::look()
{
    if (shown_window("RoomAdjustmentDlgClass"))
        tick(opened);
    const QWidget* matching = shown_window("AbcMatchingDialogClass");
    if (!matching)
        return;
    const int references = rows_of(*matching, "tableWidget_referencePoints");
    const int measured_points = rows_of(*matching, "tableWidget_measuredPoints");
    if (references == m_references && measured_points == m_measured)
        return;
    m_references = references;
    m_measured = measured_points;
    if (references >= fewest_points)
        tick(loaded);
    if (references >= fewest_points && measured_points == references)
        tick(measured);
    show_steps();
}

void FirstVisit::notice_exchange(const Exchange& exchange)
{
    if (is_done(measured) && exchange.reply.ok()
        && exchange.request.startsWith("set tracking extra_translation")
        && !shown_window("AbcMatchingDialogClass"))
        tick(applied);
}

void FirstVisit::notice_tip(double x, double y, double z)
{
    if (wants_tip() && std::hypot(x, y, z) < zero_range)
        tick(seen);
}

QString FirstVisit::hint() const
{
    const auto* next = std::find(std::begin(m_done), std::end(m_done), false);
    return next == std::end(m_done) ? QString() : text(Step(next - std::begin(m_done)));
}

QString FirstVisit::text(Step step) const
{
    switch (step) {
    case points:
        return m_points_file.isEmpty()
                   ? tr("1. Save the object's reference points in the simulator's window.")
                   : tr("1. The object's reference points are in %1.").arg(m_points_file);
    case opened:
        return tr("2. Open Calibration / Room adjustment (Shift+F5), tab \"Fine\".");
    case loaded:
        return tr("3. Press Start, then load the file of the reference points.");
    case measured:
        return m_references > 0
                   ? tr("4. Touch each point of the object in the simulator's window and measure "
                        "it there: %1 of %2.")
                         .arg(m_measured)
                         .arg(m_references)
                   : tr("4. Touch each point of the object in the simulator's window and measure "
                        "it there.");
    case applied:
        return tr("5. Accept the result with OK, then press Apply.");
    default:
        return tr("6. Touch point 1 again: the simulator shows the tip at 0.0 0.0 0.0, because the "
                  "room now begins there.");
    }
}

void FirstVisit::show_steps()
{
    const auto* next = std::find(std::begin(m_done), std::end(m_done), false);
    for (int i = 0; i < step_count; ++i) {
        const QString mark = m_done[i] ? QStringLiteral("\u2713 ") : QStringLiteral("\u2022 ");
        QFont font = this->font();
        font.setBold(m_done + i == next);
        m_labels[i]->setFont(font);
        m_labels[i]->setText(mark + text(Step(i)));
        m_labels[i]->setAccessibleName((m_done[i] ? tr("Done: ") : QString()) + text(Step(i)));
    }
    m_points_button->setVisible(m_points_file.isEmpty());
}
