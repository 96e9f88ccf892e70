// The thread that delivers data lines, as they come from the controller or from a recording.
#ifndef HOST_DATARECEIVER_H
#define HOST_DATARECEIVER_H

#include "host/recording.h"

#include <QList>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

class QUdpSocket;
class Subscriptions;

/// The complete lines of a datagram, without line feeds and empty lines. What stands behind the
/// last line feed was cut off on its way; `torn` counts such remainders.
QList<QByteArray> complete_lines(const QByteArray& datagram, int* torn);

/// Everything public is for the GUI thread. Start it once; the destructor stops it.
class DataReceiver
{
public:
    struct Counters
    {
        quint64 frames; ///< datagrams, or lines played back
        quint64 lines;
        quint64 torn; ///< lines dropped because they were incomplete
    };

    explicit DataReceiver(Subscriptions& subscriptions);
    ~DataReceiver();
    DataReceiver(const DataReceiver&) = delete;
    DataReceiver& operator=(const DataReceiver&) = delete;

    /// Takes an open recorder that gets every line received, subscribed or not. Before starting.
    void record(std::unique_ptr<Recorder> recorder);

    /// Listens on a UDP port of the loopback address, chosen by the system. Returns the port, or 0
    /// if there is none to be had.
    quint16 listen();

    /// Plays an open recording back at its own speed, but only while somebody listens.
    void replay(std::unique_ptr<RecordingReader> reader);

    /// Ends the thread; nothing is delivered after the return.
    void stop();

    Counters counters() const;

    /// What there was to tell since the last call: the end of a replay, faults of a file.
    QStringList takeReports();

private:
    void receiveDatagrams(QUdpSocket& socket);
    void playBack(RecordingReader& reader);
    void takeDatagram(const QByteArray& datagram);
    void takeLine(const QByteArray& line);
    bool waitUntil(std::chrono::steady_clock::time_point time);
    bool pause(std::chrono::milliseconds time);
    void report(const QString& text);

    Subscriptions& subscriptions;
    std::unique_ptr<Recorder> recorder;
    std::chrono::steady_clock::time_point recording_start;
    std::thread thread;
    std::atomic<quint64> frames{0};
    std::atomic<quint64> lines{0};
    std::atomic<quint64> torn_lines{0};
    std::mutex mutex; ///< guards the two below
    bool stopping = false;
    QStringList reports;
    std::condition_variable stop_requested;
};

#endif
