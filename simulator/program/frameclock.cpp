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

FrameClock::FrameClock(Simulator& the_simulator, QObject* parent)
    : QObject(parent), simulator(the_simulator)
{
    if (socket.bind(QHostAddress(QHostAddress::LocalHost)))
        simulator.source_port = socket.localPort();
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &FrameClock::step_due_frames);
    clock.start();
    wait_for_next_frame();
}

void FrameClock::step_due_frames()
{
    const qint64 due = clock.elapsed() * frame_rate / ms_per_second;
    for (frames = std::max(frames, due - max_frames_at_once); frames < due; ++frames)
        step();
    wait_for_next_frame();
}

void FrameClock::step()
{
    for (const QByteArray& datagram : simulator.step())
        if (simulator.data_port() != 0)
            socket.writeDatagram(datagram, QHostAddress::LocalHost, quint16(simulator.data_port()));
}

void FrameClock::wait_for_next_frame()
{
    const qint64 next_ms = ((frames + 1) * ms_per_second + frame_rate - 1) / frame_rate;
    timer.start(int(std::max<qint64>(0, next_ms - clock.elapsed())));
}

} // namespace simulator
