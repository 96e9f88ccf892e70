#include "matching/referencepointfile.h"
#include "simulator/model/numbers.h"
#include "simulator/program/commandline.h"
#include "simulator/program/requestlabels.h"
#include "tests/simulator/frames.h"
#include "tests/support/fatal_logger.h"

#include <QElapsedTimer>
#include <QFile>
#include <QNetworkDatagram>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QtTest>
#include <csignal>
#include <sstream>

using namespace simulator;

namespace
{

constexpr int patience = 10000; ///< ms

/// The real program without its window, and one connection to it.
struct RunningSimulator
{
    explicit RunningSimulator(const QStringList& options = {})
    {
        process.start(SIMULATOR_PROGRAM, QStringList(options) << "--headless");
        if (process.waitForReadyRead(patience))
            first_line = process.readLine();
        port = first_line.mid(first_line.lastIndexOf(':') + 1).trimmed().toUShort();
        connect_to(socket);
        data.bind(QHostAddress(QHostAddress::LocalHost), 0);
    }

    ~RunningSimulator()
    {
        process.kill();
        process.waitForFinished(patience);
    }

    void connect_to(QTcpSocket& client) const
    {
        client.connectToHost(QHostAddress::LocalHost, port);
        client.waitForConnected(patience);
    }

    static QByteArray ask(QTcpSocket& client, const QByteArray& request)
    {
        client.write(request + '\n');
        return read_line(client);
    }
    QByteArray ask(const QByteArray& request) { return ask(socket, request); }

    /// Rows "request > reply" parted by semicolons.
    void converse(const QByteArray& rows)
    {
        for (const QByteArray& row : rows.split(';')) {
            const int arrow = row.indexOf(" > ");
            QCOMPARE(ask(row.left(arrow)), row.mid(arrow + 3));
        }
    }

    static QByteArray read_line(QTcpSocket& client)
    {
        while (!client.canReadLine() && client.waitForReadyRead(patience)) {
        }
        return client.readLine().trimmed();
    }

    QByteArray start_data()
    {
        ask("do data stream " + QByteArray::number(data.localPort()));
        return ask("do tracking start");
    }

    QByteArray next_datagram()
    {
        if (!data.hasPendingDatagrams() && !data.waitForReadyRead(patience))
            return {};
        return data.receiveDatagram().data();
    }

    QProcess process;
    QByteArray first_line;
    quint16 port = 0;
    QTcpSocket socket;
    QUdpSocket data;
};

} // namespace

class TestSimulatorProgram : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void it_says_where_it_listens_and_ends_with_its_parent()
    {
        RunningSimulator s({"--cameras", "7", "--tools", "3", "--backend", "0.16.2",
                            "--coordinate-type", "powerwall", "--exit-with-parent"});
        QVERIFY(s.first_line.startsWith("listening 127.0.0.1:") && s.first_line.endsWith('\n'));
        s.converse("get camera number_of_cameras > ok 7;get roomcal coordinate_type > ok powerwall;"
                   "get measurementtool number_of_tools\r > ok 3;sim version > ok 0 16 2");
        s.process.closeWriteChannel();
        QVERIFY(s.process.waitForFinished(patience));
        QCOMPARE(s.process.exitCode(), 0);
    }

    void data_arrive_at_the_frame_rate()
    {
        RunningSimulator s;
        QCOMPARE(s.start_data(), QByteArray("ok"));
        const double first = read_frame(s.next_datagram()).getTimeStamp();
        QElapsedTimer clock;
        clock.start();
        for (double last = first; last < first + 1.0;) {
            const ZetrakParser frame = read_frame(s.next_datagram());
            QVERIFY(frame.getFrameCounter() > 0);
            last = frame.getTimeStamp();
        }
        QVERIFY2(clock.elapsed() > 700, "a second of frames took too little time");
        s.ask("do tracking stop");
        while (s.data.hasPendingDatagrams())
            s.next_datagram();
        QVERIFY(!s.data.waitForReadyRead(100));
    }

    void requests_are_answered_in_order()
    {
        RunningSimulator s;
        QByteArray burst;
        for (int i = 1000; i < 1500; ++i)
            burst += "set tracking extra_scaling 1." + QByteArray::number(i)
                     + "\nget tracking extra_scaling\n";
        s.socket.write(burst);
        for (int i = 1000; i < 1500; ++i) {
            QCOMPARE(s.read_line(s.socket), QByteArray("ok"));
            QCOMPARE(s.read_line(s.socket), "ok 1." + QByteArray::number(i) + '0');
        }
        s.socket.write("get status");
        QVERIFY(s.socket.waitForBytesWritten(patience));
        QTest::qWait(50);
        QCOMPARE(s.ask(" active"), QByteArray("ok idle"));
    }

    void a_delay_keeps_the_order_and_the_time()
    {
        RunningSimulator s;
        QTcpSocket other;
        s.connect_to(other);
        s.ask("sim delay 800");
        QElapsedTimer clock;
        clock.start();
        s.socket.write("get status active\nsim version\n");
        QCOMPARE(s.ask(other, "sim version"), QByteArray("ok 1 20 0"));
        QVERIFY2(clock.elapsed() < 700, "the other client had to wait");
        QCOMPARE(s.read_line(s.socket), QByteArray("ok idle"));
        QVERIFY(clock.elapsed() >= 790);
        QCOMPARE(s.read_line(s.socket), QByteArray("ok 1 20 0"));
    }

    void a_stop_ends_it_in_the_middle()
    {
        RunningSimulator s;
        s.start_data();
        s.ask("sim delay 60000");
        s.socket.write("get status active\n");
        QTcpSocket other;
        s.connect_to(other);
        QCOMPARE(s.ask(other, "sim stop"), QByteArray());
        QVERIFY(s.process.state() == QProcess::NotRunning || s.process.waitForFinished(patience));
        QCOMPARE(s.process.exitCode(), 3);
        QCOMPARE(s.read_line(s.socket), QByteArray());
        QCOMPARE(s.socket.state(), QAbstractSocket::UnconnectedState);
    }

    void hostile_clients_do_not_harm_others()
    {
        RunningSimulator s;
        QTcpSocket endless;
        s.connect_to(endless);
        endless.write(QByteArray(1 << 20, 'a'));
        QCOMPARE(s.read_line(endless), QByteArray("error line too long"));
        QVERIFY(endless.state() == QAbstractSocket::UnconnectedState
                || endless.waitForDisconnected(patience));

        {
            std::vector<QTcpSocket> crowd(20);
            for (QTcpSocket& client : crowd)
                s.connect_to(client);
            QCOMPARE(s.read_line(crowd.back()), QByteArray("error too many connections"));
            QCOMPARE(s.ask("get status active"), QByteArray("ok idle"));
        }
        QTcpSocket late;
        QTRY_VERIFY_WITH_TIMEOUT(
            (late.abort(), s.connect_to(late), s.ask(late, "sim version") == "ok 1 20 0"),
            patience);
    }

    void labelled_requests_can_be_told_apart_afterwards()
    {
        RunningSimulator s;
        const QByteArray now = QByteArray::number(QDateTime::currentMSecsSinceEpoch());
        const QByteArray longest(RequestLabels::max_label_length, 'x');
        s.converse("#a-1 sim lock > #a-1 ok;"
                   "#b@1 sim unlock > #b error too late, nothing was done;"
                   "#"
                   + longest + '@' + now + "99 get status active > #" + longest
                   + " ok idle;"
                     "#c set tracking extra_scaling 1.1 > #c error the configuration is locked;"
                     "sim outcome a-1 > ok done ok;"
                     "sim outcome b > ok done error too late, nothing was done;"
                     "#d sim outcome c > #d ok done error the configuration is locked;"
                     "sim outcome other > ok none");
        for (const QByteArray& bad : ("#" + longest
                                      + "x sim lock;# sim lock;#a;#a@ sim lock;"
                                        "#a@x sim lock;#a_b sim lock;##a sim lock;#a #a sim lock")
                                         .split(';'))
            QVERIFY2(s.ask(bad).contains("error"), bad);
    }

    // The client has gone and its request waits in a stopped process.
    void a_late_request_of_a_stopped_simulator_is_not_carried_out()
    {
        RunningSimulator s;
        ::kill(pid_t(s.process.processId()), SIGSTOP);
        const qint64 latest = QDateTime::currentMSecsSinceEpoch() + 100;
        s.socket.write("#1 sim lock\n#2@" + QByteArray::number(latest) + " sim unlock\n");
        QVERIFY(s.socket.waitForBytesWritten(patience));
        s.socket.disconnectFromHost();
        QTest::qWait(150);
        ::kill(pid_t(s.process.processId()), SIGCONT);
        QTcpSocket next;
        s.connect_to(next);
        QTRY_COMPARE(s.ask(next, "sim outcome 1"), QByteArray("ok done ok"));
        QTRY_COMPARE(s.ask(next, "sim outcome 2"),
                     QByteArray("ok done error too late, nothing was done"));
        QVERIFY(s.ask(next, "sim state").contains("locked=1"));
    }

    void the_points_are_saved_where_it_was_told()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath("with blank/points.txt");
        RunningSimulator s({"--points", name});
        QCOMPARE(s.ask("sim points"), "ok " + name.toUtf8());
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        std::istringstream stream(file.readAll().toStdString());
        std::vector<bsVector> read;
        QVERIFY(read_reference_points(stream, read));
        QByteArray expected = "ok";
        for (const bsVector& p : read)
            expected += ' ' + fixed(Vec3{p.x, p.y, p.z}, 2);
        QCOMPARE(s.ask("sim object"), expected);
        RunningSimulator nowhere({"--points", folder.filePath("with blank")});
        QVERIFY(nowhere.ask("sim points").startsWith("error "));
    }

    void bad_options_are_refused()
    {
        for (const char* row :
             {"--cameras x>0 to 200", "--cameras 201>\"201\"", "--tools 21>0 to 20",
              "--backend 1.2>1.20.0", "--backend 1.2.x>1.2.x", "--seed -1>--seed",
              "--port 65536>65535", "--coordinate-type sideways>mid_camera", "--points >file name",
              "--what>what", "extra>extra"}) {
            const QStringList parts = QString(row).split('>');
            const CommandLine line =
                parse_command_line(QStringList("simulator") + parts[0].split(QChar(32)));
            QVERIFY2(line.problem.contains(parts[1]), qPrintable(row + (": " + line.problem)));
        }
        QProcess process;
        process.start(SIMULATOR_PROGRAM, {"--cameras", "x"});
        QVERIFY(process.waitForFinished(patience));
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("--cameras"));
        QVERIFY(process.readAllStandardOutput().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSimulatorProgram)
#include "test_simulator_program.moc"
