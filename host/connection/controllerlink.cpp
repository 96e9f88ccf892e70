#include "host/connection/controllerlink.h"

#include <QElapsedTimer>

#include <algorithm>

namespace
{

constexpr int short_limit = 250;         // ms, while the controller is distrusted
constexpr int rest_time = 100;           // ms without a request, after which a new gesture begins
constexpr int fast_answer = 20;          // ms; answers like this are not counted against the limit
constexpr int distrust_time = 5000;      // ms
constexpr int longest_reply = 64 * 1024; // bytes

Reply parse_reply(const QByteArray& line)
{
    if (line == "ok")
        return {Reply::done, {}};
    if (line.startsWith("ok "))
        return {Reply::done, line.mid(3)};
    if (line == "error" || line.startsWith("error "))
        return {Reply::refused, line.mid(6)};
    return {Reply::unknown, "malformed reply"};
}

} // namespace

ControllerLink::ControllerLink(const QString& host, quint16 port, int limit_ms, QObject* parent)
    : QObject(parent), m_host_name(host), m_port_number(port), m_limit(limit_ms)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(rest_time);
    connect(&m_rest, &QTimer::timeout, this, [this] { m_spent = 0; });
}

void ControllerLink::set_address(const QString& host, quint16 port)
{
    m_socket.abort();
    m_host_name = host;
    m_port_number = port;
    m_distrust = QDeadlineTimer();
}

QString ControllerLink::address() const
{
    return QStringLiteral("%1:%2").arg(m_host_name).arg(m_port_number);
}

Reply ControllerLink::request(const QByteArray& line)
{
    Exchange result;
    result.time = QTime::currentTime();
    result.request = line;
    QElapsedTimer clock;
    clock.start();
    result.reply = exchange(line);
    result.milliseconds = clock.elapsed();
    count_time(result);
    emit exchanged(result);
    return result.reply;
}

Reply ControllerLink::exchange(const QByteArray& line)
{
    if (line.contains('\n'))
        return {Reply::not_sent, "a request is one line"};
    if (current_limit() <= 0)
        return {Reply::not_sent, "earlier answers have taken all the time"};
    const QDeadlineTimer deadline(current_limit());
    if (!ensure_connected(deadline))
        return give_up(Reply::not_sent, m_socket.errorString().toUtf8());
    m_socket.write(line + '\n');
    if (!await_line(deadline))
        return give_up(Reply::unknown, deadline.hasExpired() ? QByteArray("no answer in time")
                                                             : m_socket.errorString().toUtf8());
    QByteArray answer = m_socket.readLine();
    answer.chop(1);
    const Reply reply = parse_reply(answer);
    if (!reply.is_answer() || m_socket.bytesAvailable() > 0)
        m_socket.abort();
    m_distrust = QDeadlineTimer();
    return reply;
}

bool ControllerLink::ensure_connected(const QDeadlineTimer& deadline)
{
    if (m_socket.state() == QAbstractSocket::ConnectedState && m_socket.bytesAvailable() == 0)
        return true;
    m_socket.abort();
    m_socket.connectToHost(m_host_name, m_port_number);
    if (!m_socket.waitForConnected(static_cast<int>(deadline.remainingTime())))
        return false;
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return true;
}

bool ControllerLink::await_line(const QDeadlineTimer& deadline)
{
    while (!m_socket.canReadLine()) {
        if (deadline.hasExpired() || m_socket.bytesAvailable() > longest_reply)
            return false;
        const bool more = m_socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        if (!more && !m_socket.canReadLine())
            return false;
    }
    return true;
}

Reply ControllerLink::give_up(Reply::Outcome outcome, const QByteArray& reason)
{
    m_socket.abort();
    m_distrust = QDeadlineTimer(distrust_time);
    return {outcome, reason};
}

int ControllerLink::current_limit() const
{
    const int left = std::max(0, m_limit - static_cast<int>(m_spent));
    return m_distrust.hasExpired() ? left : std::min(left, short_limit);
}

void ControllerLink::count_time(const Exchange& exchange)
{
    if (exchange.milliseconds > fast_answer || !exchange.reply.is_answer())
        m_spent += exchange.milliseconds;
    m_rest.start();
}
