#include "host/connection/controllerprocess.h"

#include <QDeadlineTimer>

namespace
{

constexpr int start_limit = 10000; // ms
constexpr int end_limit = 2000;    // ms

} // namespace

ControllerProcess::ControllerProcess(QObject* parent) : QProcess(parent)
{
    setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(this, &QProcess::readyReadStandardOutput, this, &ControllerProcess::take_output);
    connect(this, &QProcess::errorOccurred, this, [this](QProcess::ProcessError fault) {
        if (fault == QProcess::FailedToStart)
            emit lost(QStringLiteral("%1: %2").arg(program(), errorString()));
    });
    connect(this, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &ControllerProcess::notice_end);
}

ControllerProcess::~ControllerProcess() { end(); }

bool ControllerProcess::launch(const QString& program, const QStringList& arguments)
{
    const QSignalBlocker quiet(this);
    m_listening_port = 0;
    start(program, arguments);
    if (!waitForStarted(start_limit))
        return fail(QStringLiteral("%1: %2").arg(program, errorString()));
    if (!await_first_line())
        return fail(QStringLiteral("%1 does not say where it listens").arg(program));
    const QByteArray line = readLine().trimmed();
    if (!read_address(line))
        return fail(QStringLiteral("%1 says \"%2\" instead of where it listens")
                        .arg(program, QString::fromLatin1(line)));
    return true;
}

void ControllerProcess::begin(const QString& program, const QStringList& arguments)
{
    m_listening_port = 0;
    start(program, arguments);
}

// What comes after the first line is of no interest, but would fill the buffer.
void ControllerProcess::take_output()
{
    if (m_listening_port != 0) {
        readAllStandardOutput();
        return;
    }
    if (!canReadLine())
        return;
    if (read_address(readLine().trimmed()))
        emit listening();
    else
        kill();
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

bool ControllerProcess::await_first_line()
{
    const QDeadlineTimer deadline(start_limit);
    while (!canReadLine())
        if (!waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return canReadLine();
    return true;
}

bool ControllerProcess::read_address(const QByteArray& line)
{
    const int colon = line.lastIndexOf(':');
    const QByteArray word = "listening ";
    if (!line.startsWith(word) || colon < 0)
        return false;
    m_listening_host = QString::fromLatin1(line.mid(word.size(), colon - word.size()));
    m_listening_port = line.mid(colon + 1).toUShort();
    return m_listening_port != 0;
}

bool ControllerProcess::fail(const QString& text)
{
    m_error = text;
    end();
    return false;
}

void ControllerProcess::notice_end(int exit_code, QProcess::ExitStatus status)
{
    emit lost(status == QProcess::CrashExit
                  ? QStringLiteral("The tracking simulator has crashed")
                  : QStringLiteral("The tracking simulator has ended (%1)").arg(exit_code));
}
