#include "simulator/program/lineconnection.h"

#include "simulator/model/simulator.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr size_t max_waiting_replies = 64;
constexpr qint64 max_unsent_bytes = 1 << 16;
/// The longest line with its carriage return and line feed.
constexpr qint64 max_line_bytes = Simulator::max_request_length + 2;

QByteArray without_line_end(QByteArray line)
{
    line.chop(1);
    if (line.endsWith('\r'))
        line.chop(1);
    return line;
}

} // namespace

LineConnection::LineConnection(QTcpSocket* the_socket, Handler the_handler, QObject* parent)
    : QObject(parent), socket(the_socket), handler(std::move(the_handler))
{
    socket->setParent(this);
    socket->setReadBufferSize(max_line_bytes);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    clock.start();
    reply_timer.setSingleShot(true);
    reply_timer.setTimerType(Qt::PreciseTimer);
    connect(&reply_timer, &QTimer::timeout, this, &LineConnection::send_due_replies);
    connect(socket, &QTcpSocket::readyRead, this, &LineConnection::read_requests);
    // Queued: writing a reply must not re-enter the loop that reads requests.
    connect(socket, &QTcpSocket::bytesWritten, this, &LineConnection::read_requests,
            Qt::QueuedConnection);
    connect(socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

bool LineConnection::may_read() const
{
    return socket->state() == QAbstractSocket::ConnectedState
           && waiting.size() < max_waiting_replies && socket->bytesToWrite() < max_unsent_bytes;
}

void LineConnection::read_requests()
{
    while (may_read() && socket->canReadLine())
        enqueue(handler(without_line_end(socket->readLine())));
    if (may_read() && socket->bytesAvailable() >= max_line_bytes && !socket->canReadLine())
        refuse_long_line();
}

void LineConnection::refuse_long_line()
{
    socket->write("error line too long\n");
    socket->readAll();
    socket->disconnectFromHost();
}

void LineConnection::enqueue(const Answer& answer)
{
    waiting.push_back({clock.elapsed() + answer.delay_ms, answer.text});
    if (!reply_timer.isActive())
        send_due_replies();
}

void LineConnection::send_due_replies()
{
    while (!waiting.empty() && waiting.front().due_ms <= clock.elapsed()) {
        socket->write(waiting.front().text + '\n');
        waiting.pop_front();
    }
    if (!waiting.empty())
        reply_timer.start(int(std::max<qint64>(0, waiting.front().due_ms - clock.elapsed())));
}

} // namespace simulator
