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

LineConnection::LineConnection(QTcpSocket* socket, Handler handler, QObject* parent)
    : QObject(parent), m_socket(socket), m_handler(std::move(handler))
{
    m_socket->setParent(this);
    m_socket->setReadBufferSize(max_line_bytes);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_clock.start();
    m_reply_timer.setSingleShot(true);
    m_reply_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_reply_timer, &QTimer::timeout, this, &LineConnection::send_due_replies);
    connect(m_socket, &QTcpSocket::readyRead, this, &LineConnection::read_requests);
    // Queued: writing a reply must not re-enter the loop that reads requests.
    connect(m_socket, &QTcpSocket::bytesWritten, this, &LineConnection::read_requests,
            Qt::QueuedConnection);
    connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

bool LineConnection::may_read() const
{
    return m_socket->state() == QAbstractSocket::ConnectedState
           && m_waiting.size() < max_waiting_replies && m_socket->bytesToWrite() < max_unsent_bytes;
}

void LineConnection::read_requests()
{
    while (may_read() && m_socket->canReadLine())
        enqueue(m_handler(without_line_end(m_socket->readLine())));
    if (may_read() && m_socket->bytesAvailable() >= max_line_bytes && !m_socket->canReadLine())
        refuse_long_line();
}

void LineConnection::refuse_long_line()
{
    m_socket->write("error line too long\n");
    m_socket->readAll();
    m_socket->disconnectFromHost();
}

void LineConnection::enqueue(const Answer& answer)
{
    m_waiting.push_back({m_clock.elapsed() + answer.delay_ms, answer.text});
    if (!m_reply_timer.isActive())
        send_due_replies();
}

void LineConnection::send_due_replies()
{
    while (!m_waiting.empty() && m_waiting.front().due_ms <= m_clock.elapsed()) {
        m_socket->write(m_waiting.front().text + '\n');
        m_waiting.pop_front();
    }
    if (!m_waiting.empty())
        m_reply_timer.start(int(std::max<qint64>(0, m_waiting.front().due_ms - m_clock.elapsed())));
}

} // namespace simulator
