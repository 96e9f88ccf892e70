#include "host/controllerlink.h"

#include <QElapsedTimer>

#include <algorithm>

namespace
{

constexpr int short_limit = 250;         // ms, while the controller is distrusted
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
    return {Reply::no_answer, "malformed reply"};
}

} // namespace

ControllerLink::ControllerLink(const QString& host, quint16 port, int limit_ms, QObject* parent)
    : QObject(parent), host_name(host), port_number(port), limit(limit_ms)
{
}

QString ControllerLink::address() const
{
    return QStringLiteral("%1:%2").arg(host_name).arg(port_number);
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
    emit exchanged(result);
    return result.reply;
}

Reply ControllerLink::exchange(const QByteArray& line)
{
    if (line.contains('\n'))
        return {Reply::refused, "a request is one line"};
    const QDeadlineTimer deadline(currentLimit());
    if (!ensureConnected(deadline))
        return giveUp(socket.errorString().toUtf8());
    socket.write(line + '\n');
    if (!awaitLine(deadline))
        return giveUp(deadline.hasExpired() ? QByteArray("no answer in time")
                                            : socket.errorString().toUtf8());
    QByteArray answer = socket.readLine();
    answer.chop(1);
    const Reply reply = parse_reply(answer);
    if (reply.outcome == Reply::no_answer || socket.bytesAvailable() > 0)
        socket.abort();
    distrust = QDeadlineTimer();
    return reply;
}

bool ControllerLink::ensureConnected(const QDeadlineTimer& deadline)
{
    if (socket.state() == QAbstractSocket::ConnectedState && socket.bytesAvailable() == 0)
        return true;
    socket.abort();
    socket.connectToHost(host_name, port_number);
    if (!socket.waitForConnected(static_cast<int>(deadline.remainingTime())))
        return false;
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return true;
}

bool ControllerLink::awaitLine(const QDeadlineTimer& deadline)
{
    while (!socket.canReadLine()) {
        if (deadline.hasExpired() || socket.bytesAvailable() > longest_reply)
            return false;
        const bool more = socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        if (!more && !socket.canReadLine())
            return false;
    }
    return true;
}

Reply ControllerLink::giveUp(const QByteArray& reason)
{
    socket.abort();
    distrust = QDeadlineTimer(distrust_time);
    return {Reply::no_answer, reason};
}

int ControllerLink::currentLimit() const
{
    return distrust.hasExpired() ? limit : std::min(limit, short_limit);
}
