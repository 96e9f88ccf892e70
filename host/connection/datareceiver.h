// The thread that delivers data lines, as they come from the controller or from a recording.
#ifndef HOST_DATARECEIVER_H
#define HOST_DATARECEIVER_H

#include "host/connection/recording.h"

#include <QHostAddress>
#include <QList>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

class QNetworkDatagram;
class QUdpSocket;
class Subscriptions;

/// The complete lines of a datagram, without line feeds and empty lines. What stands behind the
/// last line feed was cut off on its way; `torn` counts such remainders.
QList<QByteArray> complete_lines(const QByteArray& datagram, int* torn);

/// The same line as it would be if no tool in it were seen; empty for lines of other types.
QByteArray with_tools_unseen(const QByteArray& line);

/// When the data stops while a tool is seen, the last line of the tools is delivered once more with
/// all of them unseen: otherwise a measurement under way would wait for ever.
///
/// Everything public is for the GUI thread. Start it once; the destructor stops it.
class DataReceiver
{
public:
    struct Counters
    {
        quint64 frames; ///< datagrams, or lines played back
        quint64 lines;
        quint64 torn;    ///< lines dropped because they were incomplete
        quint64 refused; ///< datagrams that came from somebody else
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

    /// From now on takes datagrams only from this address and, unless it is 0, this port. Until the
    /// first call none is taken.
    void accept_only(const QHostAddress& address, quint16 port);

    /// Plays an open recording back at its own speed, but only while somebody listens.
    void replay(std::unique_ptr<RecordingReader> reader);

    /// Ends the thread; nothing is delivered after the return.
    void stop();

    Counters counters() const;

    /// What there was to tell since the last call: the end of a replay, faults of a file.
    QStringList take_reports();

private:
    void receive_datagrams(QUdpSocket& socket);
    void play_back(RecordingReader& reader);
    void take_datagram(const QNetworkDatagram& datagram);
    bool comes_from_controller(const QNetworkDatagram& datagram);
    void notice_silence();
    void take_line(const QByteArray& line);
    bool wait_until(std::chrono::steady_clock::time_point time);
    bool pause(std::chrono::milliseconds time);
    void report(const QString& text);

    Subscriptions& m_subscriptions;
    std::unique_ptr<Recorder> m_recorder;
    std::chrono::steady_clock::time_point m_recording_start;
    std::thread m_thread;
    std::atomic<quint64> m_frames{0};
    std::atomic<quint64> m_lines{0};
    std::atomic<quint64> m_torn_lines{0};
    std::atomic<quint64> m_refused{0};
    std::map<QByteArray, QByteArray> m_tool_lines; ///< the last one of each type, data thread only
    std::chrono::steady_clock::time_point m_last_datagram;
    std::mutex m_mutex; ///< guards what follows
    bool m_stopping = false;
    QStringList m_reports;
    QHostAddress m_source;
    quint16 m_source_port = 0;
    QString m_reported_intruder;
    std::condition_variable m_stop_requested;
};

#endif
