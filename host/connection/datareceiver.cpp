#include "host/connection/datareceiver.h"

#include "host/connection/subscriptions.h"

#include <QUdpSocket>

#include <future>
#include <utility>

namespace
{

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// How long the thread may take to notice that it shall end.
constexpr int receive_wait = 100;         // ms
constexpr milliseconds listener_wait(20); // between looks whether anybody listens

Clock::duration to_duration(double seconds)
{
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

} // namespace

QList<QByteArray> complete_lines(const QByteArray& datagram, int* torn)
{
    QList<QByteArray> lines = datagram.split('\n');
    const QByteArray remainder = lines.takeLast();
    if (!remainder.isEmpty())
        ++*torn;
    lines.removeAll(QByteArray());
    return lines;
}

DataReceiver::DataReceiver(Subscriptions& subscriptions) : m_subscriptions(subscriptions) {}

DataReceiver::~DataReceiver() { stop(); }

void DataReceiver::record(std::unique_ptr<Recorder> new_recorder)
{
    m_recorder = std::move(new_recorder);
    m_recording_start = Clock::now();
}

quint16 DataReceiver::listen()
{
    std::promise<quint16> bound_port;
    std::future<quint16> port = bound_port.get_future();
    m_thread = std::thread([this, promise = std::move(bound_port)]() mutable {
        QUdpSocket socket;
        const bool bound = socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
        promise.set_value(bound ? socket.localPort() : 0);
        if (bound)
            receive_datagrams(socket);
    });
    return port.get();
}

void DataReceiver::replay(std::unique_ptr<RecordingReader> reader)
{
    m_thread = std::thread([this, reader = std::move(reader)] { play_back(*reader); });
}

void DataReceiver::stop()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_stop_requested.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

DataReceiver::Counters DataReceiver::counters() const { return {m_frames, m_lines, m_torn_lines}; }

QStringList DataReceiver::take_reports()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_reports, QStringList());
}

void DataReceiver::receive_datagrams(QUdpSocket& socket)
{
    while (!pause(milliseconds(0))) {
        socket.waitForReadyRead(receive_wait);
        while (socket.hasPendingDatagrams() && !pause(milliseconds(0))) {
            QByteArray datagram(static_cast<int>(socket.pendingDatagramSize()), Qt::Uninitialized);
            const qint64 size = socket.readDatagram(datagram.data(), datagram.size());
            if (size >= 0)
                take_datagram(datagram.left(static_cast<int>(size)));
        }
    }
}

void DataReceiver::play_back(RecordingReader& reader)
{
    double time = 0.0;
    QByteArray line;
    Clock::time_point start = Clock::now();
    RecordingReader::Result result = reader.next(&time, &line);
    start -= to_duration(time);
    while (result == RecordingReader::line_read) {
        while (m_subscriptions.empty()) {
            if (pause(listener_wait))
                return;
            start = Clock::now() - to_duration(time);
        }
        if (wait_until(start + to_duration(time)))
            return;
        ++m_frames;
        take_line(line);
        result = reader.next(&time, &line);
    }
    report(result == RecordingReader::at_end ? QStringLiteral("The replay has come to its end")
                                             : reader.error_text());
}

void DataReceiver::take_datagram(const QByteArray& datagram)
{
    int torn = 0;
    ++m_frames;
    for (const QByteArray& line : complete_lines(datagram, &torn))
        take_line(line);
    m_torn_lines += static_cast<quint64>(torn);
}

void DataReceiver::take_line(const QByteArray& line)
{
    ++m_lines;
    const std::chrono::duration<double> elapsed = Clock::now() - m_recording_start;
    if (m_recorder && !m_recorder->write(elapsed.count(), line)) {
        report(QStringLiteral("The recording has ended: %1").arg(m_recorder->error_text()));
        m_recorder.reset();
    }
    m_subscriptions.deliver(line);
}

// Both return true if the thread shall end.
bool DataReceiver::wait_until(Clock::time_point time)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_stop_requested.wait_until(lock, time, [this] { return m_stopping; });
}

bool DataReceiver::pause(milliseconds time) { return wait_until(Clock::now() + time); }

void DataReceiver::report(const QString& text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_reports.append(text);
}
