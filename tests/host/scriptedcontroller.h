// A controller of few words for tests: answers each request line with what the test has written.
#ifndef TESTS_HOST_SCRIPTEDCONTROLLER_H
#define TESTS_HOST_SCRIPTEDCONTROLLER_H

#include <QByteArray>
#include <QList>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

class QTcpSocket;

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
    explicit ScriptedController(Script script);
    /// Always the same answer; the line feed is added.
    explicit ScriptedController(const QByteArray& answer);
    ~ScriptedController();

    quint16 port() const { return listening_port; }
    QList<QByteArray> requests() const;

private:
    void run(std::function<void(quint16)> tell_port);
    bool answer(QTcpSocket& socket, const QByteArray& request);

    Script script;
    quint16 listening_port = 0;
    std::atomic<bool> stopping{false};
    mutable std::mutex mutex; ///< guards `seen`
    QList<QByteArray> seen;
    std::thread thread;
};

#endif
