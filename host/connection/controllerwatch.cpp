#include "host/connection/controllerwatch.h"

#include <QList>

namespace
{

constexpr int tick_interval = 250; // ms
constexpr int ticks_between_questions = 4;
constexpr int ticks_of_patience = 4;
constexpr int longest_answer = 8 * 1024; // bytes

} // namespace

ControllerState parse_state(const QByteArray& text)
{
    ControllerState state;
    for (const QByteArray& word : text.split(' ')) {
        const int equals = word.indexOf('=');
        if (equals > 0)
            state.insert(word.left(equals), word.mid(equals + 1));
    }
    return state;
}

ControllerWatch::ControllerWatch(QObject* parent) : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &ControllerWatch::tick);
    connect(&m_socket, &QTcpSocket::connected, this, &ControllerWatch::ask);
    connect(&m_socket, &QTcpSocket::readyRead, this, &ControllerWatch::read);
    connect(&m_socket, &QTcpSocket::disconnected, this, &ControllerWatch::give_up);
    connect(&m_socket, &QAbstractSocket::errorOccurred, this, &ControllerWatch::give_up);
}

void ControllerWatch::watch(const QString& host, quint16 port)
{
    m_socket.blockSignals(true);
    m_socket.abort();
    m_socket.blockSignals(false);
    m_host = host;
    m_port = port;
    m_lost_told = false;
    m_timer.start(tick_interval);
    connect_to_controller();
}

// Counts ticks and not time: while a request elsewhere holds the event loop, no tick passes, and an
// answer that waits to be read is not taken for none.
void ControllerWatch::tick()
{
    ++m_ticks;
    const bool connected = m_socket.state() == QAbstractSocket::ConnectedState;
    if (m_waiting && m_ticks >= ticks_of_patience)
        give_up();
    else if (!m_waiting && !connected)
        connect_to_controller();
    else if (!m_waiting && m_ticks >= ticks_between_questions)
        ask();
}

void ControllerWatch::connect_to_controller()
{
    m_waiting = true;
    m_ticks = 0;
    m_socket.connectToHost(m_host, m_port);
}

void ControllerWatch::ask()
{
    m_waiting = true;
    m_ticks = 0;
    m_socket.write(m_tip_wanted ? "sim tip\nsim state\n" : "sim state\n");
}

void ControllerWatch::read()
{
    if (!m_socket.canReadLine()) {
        if (m_socket.bytesAvailable() > longest_answer)
            give_up();
        return;
    }
    while (m_socket.canReadLine())
        take_line(m_socket.readLine().trimmed());
    m_waiting = false;
    m_ticks = 0;
    m_lost_told = false;
    if (!m_answering) {
        m_answering = true;
        emit found();
    }
    emit state_read();
}

void ControllerWatch::take_line(const QByteArray& line)
{
    const QList<QByteArray> words = line.split(' ');
    if (line.contains('='))
        m_state = parse_state(line);
    else if (words.size() == 4)
        emit tip_read(words[1].toDouble(), words[2].toDouble(), words[3].toDouble());
}

void ControllerWatch::give_up()
{
    m_waiting = false;
    m_answering = false;
    m_socket.blockSignals(true);
    m_socket.abort();
    m_socket.blockSignals(false);
    if (!m_lost_told) {
        m_lost_told = true;
        emit lost();
    }
}
