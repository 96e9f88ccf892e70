// Takes requests over TCP, on the loopback address only.
#ifndef SIMULATOR_PROGRAM_LINESERVER_H
#define SIMULATOR_PROGRAM_LINESERVER_H

#include "simulator/program/lineconnection.h"

#include <QTcpServer>

namespace simulator
{

class LineServer : public QObject
{
    Q_OBJECT

public:
    static constexpr int max_connections = 16;

    explicit LineServer(LineConnection::Handler handler, QObject* parent = nullptr);

    /// Listens on this port, or on one that the system chooses if it is 0. False if that fails.
    bool listen(int port);
    QString error_text() const { return m_server.errorString(); }
    int port() const { return m_server.serverPort(); }

private slots:
    void accept_connections();

private:
    void accept(QTcpSocket* socket);

    LineConnection::Handler m_handler;
    QTcpServer m_server;
};

} // namespace simulator

#endif
