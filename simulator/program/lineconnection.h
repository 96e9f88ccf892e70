// One client of the line server: requests come in, replies go out in order.
#ifndef SIMULATOR_PROGRAM_LINECONNECTION_H
#define SIMULATOR_PROGRAM_LINECONNECTION_H

#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>
#include <deque>
#include <functional>

namespace simulator
{

struct Answer;

/// Takes over the socket and deletes itself when the client is gone. Memory is bounded: too long
/// a line ends the connection, and nothing is read while replies wait to be sent.
class LineConnection : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<Answer(const QByteArray& request)>;

    LineConnection(QTcpSocket* socket, Handler handler, QObject* parent);

private slots:
    void read_requests();
    void send_due_replies();

private:
    struct Waiting
    {
        qint64 due_ms;
        QByteArray text;
    };

    bool may_read() const;
    void refuse_long_line();
    void enqueue(const Answer& answer);

    QTcpSocket* m_socket;
    Handler m_handler;
    QElapsedTimer m_clock;
    QTimer m_reply_timer;
    std::deque<Waiting> m_waiting;
};

} // namespace simulator

#endif
