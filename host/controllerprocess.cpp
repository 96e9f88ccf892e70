#include "host/controllerprocess.h"

#include <QDeadlineTimer>

namespace
{

constexpr int start_limit = 10000; // ms
constexpr int end_limit = 2000;    // ms

} // namespace

ControllerProcess::ControllerProcess(QObject* parent) : QProcess(parent)
{
    setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(this, &QProcess::readyReadStandardOutput, this, [this] {
        if (listening_port != 0)
            readAllStandardOutput();
    });
    connect(this, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &ControllerProcess::noticeEnd);
}

ControllerProcess::~ControllerProcess() { end(); }

bool ControllerProcess::launch(const QString& program, const QStringList& arguments)
{
    start(program, arguments);
    if (!waitForStarted(start_limit))
        return fail(QStringLiteral("%1: %2").arg(program, errorString()));
    if (!awaitFirstLine())
        return fail(QStringLiteral("%1 does not say where it listens").arg(program));
    const QByteArray line = readLine().trimmed();
    if (!readAddress(line))
        return fail(QStringLiteral("%1 says \"%2\" instead of where it listens")
                        .arg(program, QString::fromLatin1(line)));
    return true;
}

void ControllerProcess::end()
{
    disconnect(this, nullptr, this, nullptr);
    if (state() == QProcess::NotRunning)
        return;
    terminate();
    if (!waitForFinished(end_limit)) {
        kill();
        waitForFinished(end_limit);
    }
}

bool ControllerProcess::awaitFirstLine()
{
    const QDeadlineTimer deadline(start_limit);
    while (!canReadLine())
        if (!waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return canReadLine();
    return true;
}

bool ControllerProcess::readAddress(const QByteArray& line)
{
    const int colon = line.lastIndexOf(':');
    const QByteArray word = "listening ";
    if (!line.startsWith(word) || colon < 0)
        return false;
    listening_host = QString::fromLatin1(line.mid(word.size(), colon - word.size()));
    listening_port = line.mid(colon + 1).toUShort();
    return listening_port != 0;
}

bool ControllerProcess::fail(const QString& text)
{
    error = text;
    end();
    return false;
}

void ControllerProcess::noticeEnd(int exit_code, QProcess::ExitStatus status)
{
    emit lost(status == QProcess::CrashExit
                  ? QStringLiteral("The tracking simulator has crashed")
                  : QStringLiteral("The tracking simulator has ended (%1)").arg(exit_code));
}
