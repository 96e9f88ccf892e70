// The simulator's window: the room, and what a person in it can do.
#ifndef SIMULATOR_WINDOW_SIMULATORWINDOW_H
#define SIMULATOR_WINDOW_SIMULATORWINDOW_H

#include <QTimer>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace simulator
{

class RoomView;
class Simulator;

/// Follows the simulator at 30 pictures a second. Does everything by the same requests that come
/// over the line, so that both do the same.
class SimulatorWindow : public QWidget
{
    Q_OBJECT

public:
    /// `simulator` must outlive the window.
    explicit SimulatorWindow(Simulator& simulator, QWidget* parent = nullptr);

private slots:
    void refresh();

private:
    QGroupBox* make_tool_box();
    QGroupBox* make_stick_box();
    QGroupBox* make_controller_box();
    QGroupBox* make_points_box();
    void save_points();
    void copy_points();
    QWidget* make_status_lines();
    /// A button that presses and releases a button of the room, such as "tool 1".
    QPushButton* make_held_button(const QString& text, const QByteArray& what);
    QPushButton* make_button(const QString& text, const QByteArray& request);
    QCheckBox* make_check_box(const QString& text, const QByteArray& on, const QByteArray& off);
    void toggle_calibration();
    void obey(const QByteArray& request);
    /// The outcome of what was done last; red if it failed.
    void say(const QString& text, bool good);
    void refresh_controls();
    void refresh_status_line();

    Simulator& simulator;
    QTimer refresh_timer;
    QByteArray calibration_to_restore;
    RoomView* view = nullptr;
    QComboBox* tool_choice = nullptr;
    QPushButton* measure_button = nullptr;
    QCheckBox* lost_box = nullptr;
    QCheckBox* locked_box = nullptr;
    QPushButton* calibration_button = nullptr;
    QLabel* tracking_label = nullptr;
    QLabel* tip_label = nullptr;
    QLabel* extra_label = nullptr;
    QLabel* notice_label = nullptr;
};

} // namespace simulator

#endif
