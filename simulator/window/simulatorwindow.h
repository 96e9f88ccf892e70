// The simulator's window: the room, and what a person in it can do.
#ifndef SIMULATOR_WINDOW_SIMULATORWINDOW_H
#define SIMULATOR_WINDOW_SIMULATORWINDOW_H

#include <QTimer>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QHBoxLayout;
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

protected:
    /// Keys 1 to 9 touch points wherever the focus is, unless what has it takes them.
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void refresh();

private:
    QGroupBox* make_tool_box();
    QGroupBox* make_stick_box();
    QGroupBox* make_controller_box();
    QGroupBox* make_points_box();
    void save_points();
    void copy_points();
    QHBoxLayout* make_marks_line();
    QWidget* make_status_lines();
    void keep_in_front(bool in_front);
    /// A button that presses and releases a button of the room, such as "tool 1".
    QPushButton* make_held_button(const QString& text, const QByteArray& what);
    QPushButton* make_button(const QString& text, const QByteArray& request);
    QCheckBox* make_check_box(const QString& text, const QByteArray& on, const QByteArray& off);
    void toggle_calibration();
    void obey(const QByteArray& request);
    /// The outcome of what was done last.
    void say(const QString& text, bool good);
    void refresh_controls();
    void refresh_status_line();

    Simulator& m_simulator;
    QTimer m_refresh_timer;
    QByteArray m_calibration_to_restore;
    RoomView* m_view = nullptr;
    QComboBox* m_tool_choice = nullptr;
    QPushButton* m_measure_button = nullptr;
    QCheckBox* m_lost_box = nullptr;
    QCheckBox* m_locked_box = nullptr;
    QPushButton* m_calibration_button = nullptr;
    QLabel* m_tracking_label = nullptr;
    QLabel* m_tip_label = nullptr;
    QLabel* m_extra_label = nullptr;
    QLabel* m_notice_label = nullptr;
    QPushButton* m_forget_button = nullptr;
    bool m_notice_good = true; ///< what was done last has succeeded
};

} // namespace simulator

#endif
