#include "host/connection/datareceiver.h"

#include "host/connection/subscriptions.h"

#include <QNetworkDatagram>
#include <QRegularExpression>
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

constexpr milliseconds silence_limit(1000); // far above what a frame takes

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

// Of a tool only the first group holds four numbers: id, quality, number of buttons, tip radius.
QByteArray with_tools_unseen(const QByteArray& line)
{
    static const QRegularExpression header(QStringLiteral("\\[(\\d+) [^ \\]]+ (\\d+ [^ \\]]+)\\]"));
    if (!line.startsWith("6dmt"))
        return {};
    return QString::fromLatin1(line).replace(header, QStringLiteral("[\\1 -1.000 \\2]")).toLatin1();
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

void DataReceiver::accept_only(const QHostAddress& address, quint16 port)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_source = address;
    m_source_port = port;
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

DataReceiver::Counters DataReceiver::counters() const
{
    return {m_frames, m_lines, m_torn_lines, m_refused};
}

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
            const QNetworkDatagram datagram = socket.receiveDatagram();
            if (datagram.isValid() && comes_from_controller(datagram))
                take_datagram(datagram);
        }
        notice_silence();
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

void DataReceiver::take_datagram(const QNetworkDatagram& datagram)
{
    int torn = 0;
    ++m_frames;
    m_last_datagram = Clock::now();
    for (const QByteArray& line : complete_lines(datagram.data(), &torn)) {
        take_line(line);
        if (line.startsWith("6dmt"))
            m_tool_lines[line.left(line.indexOf(' '))] = line;
    }
    m_torn_lines += static_cast<quint64>(torn);
}

bool DataReceiver::comes_from_controller(const QNetworkDatagram& datagram)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const quint16 port = static_cast<quint16>(datagram.senderPort());
    if (datagram.senderAddress().isEqual(m_source) && (m_source_port == 0 || m_source_port == port))
        return true;
    ++m_refused;
    const QString intruder =
        QStringLiteral("%1:%2").arg(datagram.senderAddress().toString()).arg(port);
    if (std::exchange(m_reported_intruder, intruder) != intruder)
        m_reports.append(
            QStringLiteral("Data from %1 is refused: that is not the controller").arg(intruder));
    return false;
}

void DataReceiver::notice_silence()
{
    if (m_tool_lines.empty() || Clock::now() - m_last_datagram < silence_limit)
        return;
    for (const auto& type_and_line : std::exchange(m_tool_lines, {}))
        m_subscriptions.deliver(with_tools_unseen(type_and_line.second));
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
