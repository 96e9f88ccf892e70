#include "host/datareceiver.h"

#include "host/subscriptions.h"

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

DataReceiver::DataReceiver(Subscriptions& subscriptions) : subscriptions(subscriptions) {}

DataReceiver::~DataReceiver() { stop(); }

void DataReceiver::record(std::unique_ptr<Recorder> new_recorder)
{
    recorder = std::move(new_recorder);
    recording_start = Clock::now();
}

quint16 DataReceiver::listen()
{
    std::promise<quint16> bound_port;
    std::future<quint16> port = bound_port.get_future();
    thread = std::thread([this, promise = std::move(bound_port)]() mutable {
        QUdpSocket socket;
        const bool bound = socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
        promise.set_value(bound ? socket.localPort() : 0);
        if (bound)
            receiveDatagrams(socket);
    });
    return port.get();
}

void DataReceiver::replay(std::unique_ptr<RecordingReader> reader)
{
    thread = std::thread([this, reader = std::move(reader)] { playBack(*reader); });
}

void DataReceiver::stop()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        stopping = true;
    }
    stop_requested.notify_all();
    if (thread.joinable())
        thread.join();
}

DataReceiver::Counters DataReceiver::counters() const { return {frames, lines, torn_lines}; }

QStringList DataReceiver::takeReports()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(reports, QStringList());
}

void DataReceiver::receiveDatagrams(QUdpSocket& socket)
{
    while (!pause(milliseconds(0))) {
        socket.waitForReadyRead(receive_wait);
        while (socket.hasPendingDatagrams() && !pause(milliseconds(0))) {
            QByteArray datagram(static_cast<int>(socket.pendingDatagramSize()), Qt::Uninitialized);
            const qint64 size = socket.readDatagram(datagram.data(), datagram.size());
            if (size >= 0)
                takeDatagram(datagram.left(static_cast<int>(size)));
        }
    }
}

void DataReceiver::playBack(RecordingReader& reader)
{
    double time = 0.0;
    QByteArray line;
    Clock::time_point start = Clock::now();
    RecordingReader::Result result = reader.next(&time, &line);
    start -= to_duration(time);
    while (result == RecordingReader::line_read) {
        while (subscriptions.empty()) {
            if (pause(listener_wait))
                return;
            start = Clock::now() - to_duration(time);
        }
        if (waitUntil(start + to_duration(time)))
            return;
        ++frames;
        takeLine(line);
        result = reader.next(&time, &line);
    }
    report(result == RecordingReader::at_end ? QStringLiteral("The replay has come to its end")
                                             : reader.errorText());
}

void DataReceiver::takeDatagram(const QByteArray& datagram)
{
    int torn = 0;
    ++frames;
    for (const QByteArray& line : complete_lines(datagram, &torn))
        takeLine(line);
    torn_lines += static_cast<quint64>(torn);
}

void DataReceiver::takeLine(const QByteArray& line)
{
    ++lines;
    const std::chrono::duration<double> elapsed = Clock::now() - recording_start;
    if (recorder && !recorder->write(elapsed.count(), line)) {
        report(QStringLiteral("The recording has ended: %1").arg(recorder->errorText()));
        recorder.reset();
    }
    subscriptions.deliver(line);
}

// Both return true if the thread shall end.
bool DataReceiver::waitUntil(Clock::time_point time)
{
    std::unique_lock<std::mutex> lock(mutex);
    return stop_requested.wait_until(lock, time, [this] { return stopping; });
}

bool DataReceiver::pause(milliseconds time) { return waitUntil(Clock::now() + time); }

void DataReceiver::report(const QString& text)
{
    const std::lock_guard<std::mutex> lock(mutex);
    reports.append(text);
}
