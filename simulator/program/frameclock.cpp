#include "simulator/program/frameclock.h"

#include "simulator/model/simulator.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr qint64 ms_per_second = 1000;
/// After a longer pause than this the missed frames are dropped instead of sent in a burst.
constexpr qint64 max_frames_at_once = 6;

} // namespace

FrameClock::FrameClock(Simulator& simulator, QObject* parent)
    : QObject(parent), m_simulator(simulator)
{
    if (m_socket.bind(QHostAddress(QHostAddress::LocalHost)))
        m_simulator.source_port = m_socket.localPort();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &FrameClock::step_due_frames);
    m_clock.start();
    wait_for_next_frame();
}

void FrameClock::step_due_frames()
{
    const qint64 due = m_clock.elapsed() * frame_rate / ms_per_second;
    for (m_frames = std::max(m_frames, due - max_frames_at_once); m_frames < due; ++m_frames)
        step();
    wait_for_next_frame();
}

void FrameClock::step()
{
    for (const QByteArray& datagram : m_simulator.step())
        if (m_simulator.data_port() != 0)
            m_socket.writeDatagram(datagram, QHostAddress::LocalHost,
                                   quint16(m_simulator.data_port()));
}

void FrameClock::wait_for_next_frame()
{
    const qint64 next_ms = ((m_frames + 1) * ms_per_second + frame_rate - 1) / frame_rate;
    m_timer.start(int(std::max<qint64>(0, next_ms - m_clock.elapsed())));
}

} // namespace simulator
