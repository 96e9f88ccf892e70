// A connection to the tracking controller: one line out, one line back, within a time limit.
#ifndef HOST_CONTROLLERLINK_H
#define HOST_CONTROLLERLINK_H

#include <QByteArray>
#include <QDeadlineTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTime>
#include <QTimer>

/// What came back for a request.
struct Reply
{
    enum Outcome
    {
        done,     ///< `text` holds the value, often empty
        refused,  ///< the controller said no; `text` holds its reason
        not_sent, ///< the controller never saw the request; `text` says why
        unknown   ///< sent, but nothing usable came in time: it may still be carried out
    };

    Outcome outcome = not_sent;
    QByteArray text;

    bool ok() const { return outcome == done; }
    bool is_answer() const { return outcome == done || outcome == refused; }
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
    static constexpr int default_limit = 2000; ///< ms, for all requests of one gesture together

    ControllerLink(const QString& host, quint16 port, int limit_ms = default_limit,
                   QObject* parent = nullptr);

    /// Speaks to another place from the next request on.
    void set_address(const QString& host, quint16 port);

    /// Sends `line` (without line feed) and waits for the reply. What a person starts with one
    /// click may be thirty requests, during which the windows stand still. All requests up to the
    /// next rest of the event loop therefore share one time limit; when slow answers have used it
    /// up, the others are not sent at all. After a request without an answer the next ones wait
    /// only briefly for some seconds.
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
    Reply give_up(Reply::Outcome outcome, const QByteArray& reason);
    int current_limit() const;
    void count_time(const Exchange& exchange);

    QString m_host_name;
    quint16 m_port_number;
    int m_limit;
    qint64 m_spent = 0;        ///< ms of slow answers since the event loop had a rest
    QTimer m_rest;             ///< runs out when it has had one
    QDeadlineTimer m_distrust; ///< runs for a while after a request without an answer
    QTcpSocket m_socket;
};

#endif
