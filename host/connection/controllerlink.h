// A connection to the tracking controller: one line out, one line back, within a time limit.
#ifndef HOST_CONTROLLERLINK_H
#define HOST_CONTROLLERLINK_H

#include <QByteArray>
#include <QDeadlineTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTime>

/// What came back for a request.
struct Reply
{
    enum Outcome
    {
        done,     ///< `text` holds the value, often empty
        refused,  ///< the controller said no; `text` holds its reason
        no_answer ///< nothing usable came in time; `text` says why
    };

    Outcome outcome = no_answer;
    QByteArray text;

    bool ok() const { return outcome == done; }
};

/// A request with its reply, for those who show or record the traffic.
struct Exchange
{
    QTime time; ///< local time of the request
    QByteArray request;
    Reply reply;
    qint64 milliseconds = 0; ///< from request to reply
};

/// Connects at the first request and again after any failure. Whatever goes wrong ends the
/// connection, so that an answer that comes too late cannot be taken for the answer to the next
/// request. Calls block the caller without running the event loop. GUI thread only.
class ControllerLink : public QObject
{
    Q_OBJECT

public:
    static constexpr int default_limit = 2000; ///< ms

    ControllerLink(const QString& host, quint16 port, int limit_ms = default_limit,
                   QObject* parent = nullptr);

    /// Sends `line` (without line feed) and waits for the reply. After a request without an answer
    /// the next ones wait only briefly for some seconds: a dialog that asks thirty questions must
    /// not stand still for a minute because the controller has gone.
    Reply request(const QByteArray& line);

    QString host() const { return m_host_name; }
    quint16 port() const { return m_port_number; }
    /// "HOST:PORT".
    QString address() const;

signals:
    void exchanged(const Exchange& exchange);

private:
    Reply exchange(const QByteArray& line);
    bool ensure_connected(const QDeadlineTimer& deadline);
    bool await_line(const QDeadlineTimer& deadline);
    Reply give_up(const QByteArray& reason);
    int current_limit() const;

    QString m_host_name;
    quint16 m_port_number;
    int m_limit;
    QDeadlineTimer m_distrust; ///< runs for a while after a request without an answer
    QTcpSocket m_socket;
};

#endif
