// Lets the simulator's time pass, and sends its data over UDP.
#ifndef SIMULATOR_PROGRAM_FRAMECLOCK_H
#define SIMULATOR_PROGRAM_FRAMECLOCK_H

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QUdpSocket>

namespace simulator
{

class Simulator;

/// Steps the simulator frame_rate times a second on the average, from its construction on.
class FrameClock : public QObject
{
    Q_OBJECT

public:
    /// `simulator` must outlive the clock.
    explicit FrameClock(Simulator& simulator, QObject* parent = nullptr);

private slots:
    void step_due_frames();

private:
    void step();
    void wait_for_next_frame();

    Simulator& m_simulator;
    QUdpSocket m_socket;
    QElapsedTimer m_clock;
    QTimer m_timer;
    qint64 m_frames = 0; ///< stepped since `m_clock` started
};

} // namespace simulator

#endif
