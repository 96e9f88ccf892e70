#include "simulator/window/simulatorwindow.h"

#include "simulator/model/referencepoints.h"
#include "simulator/model/simulator.h"
#include "simulator/window/roomview.h"
#include "simulator/window/statustexts.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace simulator
{

namespace
{

constexpr int refresh_interval = 33; ///< ms
constexpr int panel_width = 232;
constexpr int buttons_in_row = 3;

void add_in_rows(QGridLayout* layout, int first_row, const QList<QPushButton*>& buttons)
{
    for (int i = 0; i < buttons.size(); ++i)
        layout->addWidget(buttons[i], first_row + i / buttons_in_row, i % buttons_in_row);
}

void show_checked(QCheckBox* box, bool checked)
{
    const QSignalBlocker blocker(box);
    box->setChecked(checked);
}

} // namespace

SimulatorWindow::SimulatorWindow(Simulator& simulator, QWidget* parent)
    : QWidget(parent), m_simulator(simulator), m_calibration_to_restore("normal")
{
    m_view = new RoomView(m_simulator);
    connect(m_view, &RoomView::touch_wanted, this,
            [this](int number) { obey("sim touch " + QByteArray::number(number)); });
    connect(m_view, &RoomView::measure_wanted, this, [this] { obey("sim measure"); });

    auto* in_front = new QCheckBox("Keep in &front");
    in_front->setToolTip("The window stays above others, such as the matching dialog.");
    connect(in_front, &QCheckBox::toggled, this, &SimulatorWindow::keep_in_front);
    auto* panel = new QVBoxLayout;
    panel->setContentsMargins(0, 0, 0, 0);
    panel->setSpacing(4);
    panel->addWidget(make_tool_box());
    panel->addWidget(make_stick_box());
    panel->addWidget(make_controller_box());
    panel->addWidget(make_points_box());
    panel->addWidget(in_front);
    panel->addStretch();
    auto* panel_widget = new QWidget;
    panel_widget->setFixedWidth(panel_width);
    panel_widget->setLayout(panel);

    auto* upper = new QHBoxLayout;
    upper->addWidget(m_view, 1);
    upper->addWidget(panel_widget);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(upper, 1);
    layout->addWidget(make_status_lines());
    connect(&m_refresh_timer, &QTimer::timeout, this, &SimulatorWindow::refresh);
    m_refresh_timer.start(refresh_interval);
    m_view->setFocus();
    refresh();
}

QGroupBox* SimulatorWindow::make_tool_box()
{
    m_tool_choice = new QComboBox;
    for (int i = 0; i < m_simulator.controller.tool_count(); ++i)
        m_tool_choice->addItem(QString("M%1").arg(i + 1));
    connect(m_tool_choice, QOverload<int>::of(&QComboBox::activated), this,
            [this](int index) { obey("sim tool " + QByteArray::number(index + 1)); });
    m_tool_choice->setAccessibleName("Measurement Tool in the hand");
    m_measure_button = make_button("&Measure", "sim measure");
    m_measure_button->setToolTip("Measures where the tip is (Alt+M, or Space in the room).");
    m_lost_box = make_check_box("&Lose the tool", "sim lose", "sim find");
    m_lost_box->setToolTip("Hides the tool from the cameras.");

    auto* hint = new QLabel("Click or key 1-9: touch\nDouble click, Space: measure");
    auto* box = new QGroupBox("Measurement Tool in the hand");
    auto* layout = new QGridLayout(box);
    layout->addWidget(m_tool_choice, 0, 0, 1, buttons_in_row);
    layout->addWidget(hint, 1, 0, 1, buttons_in_row);
    layout->addWidget(m_measure_button, 2, 0, 1, buttons_in_row);
    layout->addWidget(new QLabel("Buttons of the tool:"), 3, 0, 1, buttons_in_row);
    add_in_rows(layout, 4,
                {make_held_button("1", "tool 1"), make_held_button("2", "tool 2"),
                 make_held_button("3", "tool 3")});
    layout->addWidget(m_lost_box, 5, 0, 1, buttons_in_row);
    box->setEnabled(m_simulator.controller.tool_count() > 0);
    return box;
}

QGroupBox* SimulatorWindow::make_stick_box()
{
    QList<QPushButton*> buttons;
    for (size_t i = 0; i < m_simulator.world.stick.pressed.size(); ++i) {
        const QByteArray number = QByteArray::number(int(i));
        buttons << make_held_button(number, "stick " + number);
    }
    auto* box = new QGroupBox("Buttons of the Wandstick");
    add_in_rows(new QGridLayout(box), 0, buttons);
    return box;
}

QGroupBox* SimulatorWindow::make_controller_box()
{
    m_locked_box = make_check_box("Loc&k the configuration", "sim lock", "sim unlock");
    m_calibration_button = new QPushButton;
    connect(m_calibration_button, &QPushButton::clicked, this,
            &SimulatorWindow::toggle_calibration);
    auto* box = new QGroupBox("Controller");
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(m_locked_box);
    layout->addWidget(m_calibration_button);
    return box;
}

QGroupBox* SimulatorWindow::make_points_box()
{
    auto* save = new QPushButton("&Save as a file...");
    save->setToolTip("A file of reference points, as Load in the matching dialog takes it.");
    connect(save, &QPushButton::clicked, this, &SimulatorWindow::save_points);
    auto* copy = new QPushButton("&Copy");
    copy->setToolTip("The points as rows of a table: x, y and z parted by tabs.");
    connect(copy, &QPushButton::clicked, this, &SimulatorWindow::copy_points);
    auto* box = new QGroupBox("Reference points of the object");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(save, 1);
    buttons->addWidget(copy);
    auto* layout = new QVBoxLayout(box);
    layout->addLayout(buttons);
    layout->addLayout(make_marks_line());
    return box;
}

QHBoxLayout* SimulatorWindow::make_marks_line()
{
    m_forget_button = make_button("Clea&r the marks", "sim forget");
    m_forget_button->setToolTip("#1, #2 ... beside a point say in which order it was measured.");
    auto* line = new QHBoxLayout;
    line->addWidget(m_forget_button);
    return line;
}

void SimulatorWindow::keep_in_front(bool in_front)
{
    const QPoint place = pos();
    setWindowFlag(Qt::WindowStaysOnTopHint, in_front); // hides the window
    move(place);
    show();
}

void SimulatorWindow::keyPressEvent(QKeyEvent* event)
{
    const int number = event->key() - Qt::Key_0;
    if (number >= 1 && number <= 9 && !event->isAutoRepeat())
        obey("sim touch " + QByteArray::number(number));
    else
        QWidget::keyPressEvent(event);
}

QWidget* SimulatorWindow::make_status_lines()
{
    m_tracking_label = new QLabel;
    m_tip_label = new QLabel;
    m_extra_label = new QLabel;
    m_notice_label = new QLabel;
    // The window may be narrower than what they say.
    for (QLabel* label : {m_tip_label, m_extra_label, m_notice_label}) {
        label->setWordWrap(true);
        label->setMinimumWidth(1);
    }
    m_notice_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* state = new QHBoxLayout;
    state->setSpacing(24);
    state->addWidget(m_tracking_label);
    state->addWidget(m_tip_label, 3);
    state->addWidget(m_notice_label, 2);
    auto* lines = new QWidget;
    auto* layout = new QVBoxLayout(lines);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addLayout(state);
    layout->addWidget(m_extra_label);
    return lines;
}

QPushButton* SimulatorWindow::make_held_button(const QString& text, const QByteArray& what)
{
    auto* button = new QPushButton(text);
    button->setMinimumWidth(40);
    button->setToolTip("Holds the button down as long as it is pressed here.");
    button->setAccessibleName("Button of the " + what);
    connect(button, &QPushButton::pressed, this, [this, what] { obey("sim press " + what); });
    connect(button, &QPushButton::released, this, [this, what] { obey("sim release " + what); });
    return button;
}

QPushButton* SimulatorWindow::make_button(const QString& text, const QByteArray& request)
{
    auto* button = new QPushButton(text);
    connect(button, &QPushButton::clicked, this, [this, request] { obey(request); });
    return button;
}

QCheckBox* SimulatorWindow::make_check_box(const QString& text, const QByteArray& on,
                                           const QByteArray& off)
{
    auto* box = new QCheckBox(text);
    connect(box, &QCheckBox::clicked, this,
            [this, on, off](bool checked) { obey(checked ? on : off); });
    return box;
}

void SimulatorWindow::save_points()
{
    QFileDialog dialog(this, "Save reference points", QDir::homePath(), "Text files (*.txt)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("txt");
    dialog.selectFile("reference-points.txt");
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString name = dialog.selectedFiles().first();
    const QString problem = m_simulator.save_points(name);
    say(problem.isEmpty() ? "saved " + name : "not saved: " + problem, problem.isEmpty());
}

void SimulatorWindow::copy_points()
{
    QGuiApplication::clipboard()->setText(reference_point_table(m_simulator.world.points));
    say(QString("%1 points copied").arg(m_simulator.world.points.size()), true);
}

void SimulatorWindow::toggle_calibration()
{
    const bool take_away = m_simulator.controller.is_calibrated();
    if (take_away)
        m_calibration_to_restore = m_simulator.controller.coordinate_type();
    obey("sim roomcal " + (take_away ? QByteArray("none") : m_calibration_to_restore));
}

void SimulatorWindow::obey(const QByteArray& request)
{
    const QByteArray reply = m_simulator.answer(request).text;
    say(reply.startsWith("error ") ? reply.mid(6) : QByteArray(), false);
    refresh();
}

void SimulatorWindow::say(const QString& text, bool good)
{
    m_notice_good = good;
    m_notice_label->setText(text);
}

void SimulatorWindow::refresh()
{
    refresh_controls();
    refresh_status_line();
    m_view->update();
}

void SimulatorWindow::refresh_controls()
{
    const Tool* tool = m_simulator.world.held_tool();
    m_tool_choice->setCurrentIndex(tool ? m_simulator.world.held : -1);
    m_measure_button->setEnabled(tool && m_simulator.controller.is_tracking());
    m_forget_button->setEnabled(!m_simulator.world.measured.empty());
    show_checked(m_lost_box, tool && tool->hidden);
    show_checked(m_locked_box, m_simulator.controller.is_locked());
    m_calibration_button->setText(
        m_simulator.controller.is_calibrated() ? "Take the calibration away" : "Calibrate again");
}

void SimulatorWindow::refresh_status_line()
{
    const RoomColors colors(palette());
    QPalette notice = palette();
    notice.setColor(QPalette::WindowText, m_notice_good ? colors.good : colors.bad);
    m_notice_label->setPalette(notice);
    m_tracking_label->setText(tracking_text(m_simulator, colors));
    m_tip_label->setText(tip_text(m_simulator));
    m_extra_label->setText(extra_text(m_simulator.controller.extra()));
}

} // namespace simulator
