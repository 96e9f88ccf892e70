// A tracking simulator that the host starts for itself and ends with itself.
#ifndef HOST_CONTROLLERPROCESS_H
#define HOST_CONTROLLERPROCESS_H

#include <QProcess>
#include <QString>
#include <QStringList>

/// The process ends with this object. Told so, a simulator also ends when its standard input is
/// closed, which happens if the host dies.
class ControllerProcess : public QProcess
{
    Q_OBJECT

public:
    explicit ControllerProcess(QObject* parent = nullptr);
    ~ControllerProcess() override;

    /// Starts `program` and waits until it says where it listens. False if it does not come to
    /// that; error_text() says why.
    bool launch(const QString& program, const QStringList& arguments);
    /// The same without waiting: `listening` or `lost` tells how it went.
    void begin(const QString& program, const QStringList& arguments);

    QString host() const { return m_listening_host; }
    quint16 port() const { return m_listening_port; }
    QString error_text() const { return m_error; }

    /// Asks it to end, and makes it end if it does not.
    void end();

signals:
    void listening();
    /// The process has ended without having been asked to.
    void lost(const QString& text);

private:
    bool await_first_line();
    void take_output();
    bool read_address(const QByteArray& line);
    bool fail(const QString& text);
    void notice_end(int exit_code, QProcess::ExitStatus status);

    QString m_listening_host;
    quint16 m_listening_port = 0;
    QString m_error;
};

#endif
