#include "tests/host/scriptedcontroller.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

#include <chrono>
#include <future>
#include <memory>

namespace
{

constexpr int poll_time = 10; // ms

} // namespace

ScriptedController::ScriptedController(Script script) : script(std::move(script))
{
    std::promise<quint16> port;
    thread =
        std::thread([this, &port] { run([&port](quint16 number) { port.set_value(number); }); });
    listening_port = port.get_future().get();
}

ScriptedController::ScriptedController(const QByteArray& answer)
    : ScriptedController([answer](const QByteArray&) { return QList<Piece>{{answer + '\n'}}; })
{
}

ScriptedController::~ScriptedController()
{
    stopping = true;
    thread.join();
}

QList<QByteArray> ScriptedController::requests() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return seen;
}

void ScriptedController::run(std::function<void(quint16)> tell_port)
{
    QTcpServer server;
    server.listen(QHostAddress(QHostAddress::LocalHost));
    tell_port(server.serverPort());
    while (!stopping) {
        if (!server.waitForNewConnection(poll_time))
            continue;
        const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
        bool serving = true;
        while (serving && !stopping && socket->state() == QAbstractSocket::ConnectedState)
            if (socket->canReadLine() || socket->waitForReadyRead(poll_time))
                while (serving && socket->canReadLine())
                    serving = answer(*socket, socket->readLine().trimmed());
    }
}

bool ScriptedController::answer(QTcpSocket& socket, const QByteArray& request)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        seen.append(request);
    }
    for (const Piece& piece : script(request)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(piece.delay));
        socket.write(piece.bytes);
        while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(poll_time)) {
        }
        if (piece.closes_after)
            return false;
    }
    return true;
}
