// A controller of few words for tests: answers each request line with what the test has written.
#ifndef TESTS_HOST_SCRIPTEDCONTROLLER_H
#define TESTS_HOST_SCRIPTEDCONTROLLER_H

#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

/// Runs on a thread of its own, since those who ask block theirs. Serves one connection at a time.
class ScriptedController
{
public:
    /// A part of an answer.
    struct Piece
    {
        QByteArray bytes;
        int delay = 0;             ///< ms before it is sent
        bool closes_after = false; ///< ends the connection
    };
    using Script = std::function<QList<Piece>(const QByteArray& request)>;

    /// The script runs on the controller's thread.
    explicit ScriptedController(Script script) : script(std::move(script))
    {
        std::promise<quint16> port;
        thread = std::thread([this, &port] { run(port); });
        listening_port = port.get_future().get();
    }
    /// Always the same answer; the line feed is added.
    explicit ScriptedController(const QByteArray& answer)
        : ScriptedController([answer](const QByteArray&) { return QList<Piece>{{answer + '\n'}}; })
    {
    }
    ~ScriptedController()
    {
        stopping = true;
        thread.join();
    }

    quint16 port() const { return listening_port; }
    QList<QByteArray> requests() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return seen;
    }

private:
    static constexpr int poll_time = 10; // ms

    void run(std::promise<quint16>& port)
    {
        QTcpServer server;
        server.listen(QHostAddress(QHostAddress::LocalHost));
        port.set_value(server.serverPort());
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

    bool answer(QTcpSocket& socket, const QByteArray& request)
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

    Script script;
    quint16 listening_port = 0;
    std::atomic<bool> stopping{false};
    mutable std::mutex mutex; ///< guards `seen`
    QList<QByteArray> seen;
    std::thread thread;
};

#endif
