// Knows at any time whether the controller answers, and how it is.
#ifndef HOST_CONNECTION_CONTROLLERWATCH_H
#define HOST_CONNECTION_CONTROLLERWATCH_H

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

/// What the controller says of itself, as "key=value" words.
using ControllerState = QHash<QByteArray, QByteArray>;
ControllerState parse_state(const QByteArray& text);

/// Asks once a second over a connection of its own and never blocks. A connection that breaks is
/// noticed at once, a controller that stands still within two seconds. GUI thread only.
class ControllerWatch : public QObject
{
    Q_OBJECT

public:
    explicit ControllerWatch(QObject* parent = nullptr);

    /// Begins to watch there, and to watch at all.
    void watch(const QString& host, quint16 port);

    bool is_answering() const { return m_answering; }
    /// Whether the tip's position is asked for as well.
    void want_tip(bool wanted) { m_tip_wanted = wanted; }
    /// As of the last answer.
    const ControllerState& state() const { return m_state; }

signals:
    /// The first answer after the start or after a silence.
    void found();
    /// The controller has gone, or there has not been one since the start.
    void lost();
    void state_read();
    /// Where the controller reports the tip, mm.
    void tip_read(double x, double y, double z);

private:
    void tick();
    void connect_to_controller();
    void ask();
    void read();
    void take_line(const QByteArray& line);
    void give_up();

    QString m_host;
    quint16 m_port = 0;
    QTcpSocket m_socket;
    QTimer m_timer;
    bool m_waiting = false; ///< an answer or a connection is due
    int m_ticks = 0;        ///< since the last question or answer
    bool m_tip_wanted = false;
    bool m_answering = false;
    bool m_lost_told = false;
    ControllerState m_state;
};

#endif
