#include "simulator/program/lineserver.h"

#include "simulator/model/simulator.h"

namespace simulator
{

LineServer::LineServer(LineConnection::Handler handler, QObject* parent)
    : QObject(parent), m_handler(std::move(handler))
{
    connect(&m_server, &QTcpServer::newConnection, this, &LineServer::accept_connections);
}

bool LineServer::listen(int port)
{
    return m_server.listen(QHostAddress::LocalHost, quint16(port));
}

void LineServer::accept_connections()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection())
        accept(socket);
}

void LineServer::accept(QTcpSocket* socket)
{
    if (findChildren<LineConnection*>().size() < max_connections) {
        new LineConnection(socket, m_handler, this);
        return;
    }
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    socket->write("error too many connections\n");
    socket->disconnectFromHost();
}

} // namespace simulator
