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
    /// that; errorText() says why.
    bool launch(const QString& program, const QStringList& arguments);

    QString host() const { return listening_host; }
    quint16 port() const { return listening_port; }
    QString errorText() const { return error; }

    /// Asks it to end, and makes it end if it does not.
    void end();

signals:
    /// The process has ended without having been asked to.
    void lost(const QString& text);

private:
    bool awaitFirstLine();
    bool readAddress(const QByteArray& line);
    bool fail(const QString& text);
    void noticeEnd(int exit_code, QProcess::ExitStatus status);

    QString listening_host;
    quint16 listening_port = 0;
    QString error;
};

#endif
