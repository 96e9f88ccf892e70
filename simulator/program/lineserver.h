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

    /// Listens on a port that the system chooses. False if that fails.
    bool listen();
    int port() const { return server.serverPort(); }

private slots:
    void accept_connections();

private:
    void accept(QTcpSocket* socket);

    LineConnection::Handler handler;
    QTcpServer server;
};

} // namespace simulator

#endif
