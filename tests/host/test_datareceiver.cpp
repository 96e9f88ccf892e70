#include "host/connection/datareceiver.h"
#include "host/connection/subscriptions.h"

#include "contract/requester.h"

#include "tests/support/fatal_logger.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>

#include <functional>

namespace
{

constexpr int patience = 5000; // ms
const QHostAddress here(QHostAddress::LocalHost);

// Keeps what it gets, type and line joined by a bar.
class KeepingRequester : public Requester
{
public:
    int set_ascii_data(const char* line_type, const char* line) override
    {
        if (when_called)
            when_called();
        const std::lock_guard<std::mutex> lock(mutex);
        kept.append(QByteArray(line_type) + '|' + line);
        return 0;
    }
    void set_mea_started() override {}
    void set_mea_stopped() override {}

    QList<QByteArray> lines() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return kept;
    }

    std::function<void()> when_called; ///< set before anything is delivered

private:
    mutable std::mutex mutex;
    QList<QByteArray> kept;
};

void send(const QByteArray& datagram, quint16 port)
{
    QUdpSocket socket;
    QCOMPARE(socket.writeDatagram(datagram, here, port), qint64(datagram.size()));
}

QString next_report(DataReceiver& receiver)
{
    QStringList reports;
    const bool told =
        QTest::qWaitFor([&] { return !(reports = receiver.take_reports()).isEmpty(); }, patience);
    return told ? reports.first() : QString();
}

} // namespace

class TestDataReceiver : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void only_known_requesters_may_subscribe()
    {
        Subscriptions s;
        KeepingRequester r;
        QVERIFY(s.add(nullptr) != 0 && s.subscribe("ts", &r) != 0 && s.remove(&r) != 0);
        QVERIFY(s.add(&r) == 0 && s.add(&r) == 0);
        QVERIFY(s.subscribe("ts", &r) == 0 && s.subscribe("ts", &r) == 0);
        s.deliver("ts 1");
        QCOMPARE(r.lines().size(), 1);
        QVERIFY(s.unsubscribe("ts", &r) == 0 && s.unsubscribe("ts", &r) != 0);
        QVERIFY(s.subscribe("fr", &r) == 0 && s.remove(&r) == 0 && s.empty());
    }

    void subscribed_lines_arrive_in_order()
    {
        Subscriptions subscriptions;
        KeepingRequester both, one;
        subscriptions.add(&both);
        subscriptions.add(&one);
        subscriptions.subscribe("ts", &both);
        subscriptions.subscribe("6dmt", &both);
        subscriptions.subscribe("6dmt2", &one);
        DataReceiver receiver(subscriptions);
        const quint16 port = receiver.listen();
        receiver.accept_only(here, 0);
        QVERIFY(port != 0);
        send("fr 1\nts 1.0\n6dmt 0\n6dmt2 0\n", port);
        send("ts\n6dmt2\tx\nts 2.0\n", port);
        QTRY_COMPARE_WITH_TIMEOUT(receiver.counters().lines, quint64(7), patience);
        receiver.stop();
        QCOMPARE(both.lines(),
                 QList<QByteArray>({"ts|ts 1.0", "6dmt|6dmt 0", "ts|ts", "ts|ts 2.0"}));
        QCOMPARE(one.lines(), QList<QByteArray>({"6dmt2|6dmt2 0"}));
        QCOMPARE(receiver.counters().frames, quint64(2));
    }

    void torn_lines_are_dropped()
    {
        for (const auto& [datagram, expected, expected_torn] :
             {std::tuple("a\nb\n", "a|b", 0), std::tuple("a\nb", "a", 1), std::tuple("a", "", 1),
              std::tuple("\na\n\n", "a", 0), std::tuple("", "", 0)}) {
            int torn = 0;
            QCOMPARE(complete_lines(datagram, &torn).join('|'), QByteArray(expected));
            QCOMPARE(torn, expected_torn);
        }
    }

    // The requester is gone after each removal, so a late line is a use after free as well.
    void nothing_arrives_after_removal()
    {
        Subscriptions subscriptions;
        std::atomic<bool> flooding{true};
        std::atomic<int> delivered{0}, uninvited{0};
        std::thread flood([&] {
            while (flooding)
                subscriptions.deliver("ts 1");
        });
        for (int round = 0; round < 200; ++round) {
            std::atomic<bool> invited{true};
            KeepingRequester requester;
            requester.when_called = [&] { ++(invited ? delivered : uninvited); };
            subscriptions.add(&requester);
            subscriptions.subscribe("ts", &requester);
            const int before = delivered;
            while (delivered == before)
                std::this_thread::yield();
            if (round % 2)
                subscriptions.unsubscribe("ts", &requester);
            else
                subscriptions.remove(&requester);
            invited = false;
            std::this_thread::yield();
            subscriptions.remove(&requester);
        }
        flooding = false;
        flood.join();
        QCOMPARE(uninvited.load(), 0);
    }

    void requester_may_leave_while_served()
    {
        Subscriptions subscriptions;
        KeepingRequester leaver, stayer;
        leaver.when_called = [&] { subscriptions.remove(&leaver), subscriptions.remove(&stayer); };
        for (KeepingRequester* requester : {&leaver, &stayer}) {
            subscriptions.add(requester);
            subscriptions.subscribe("ts", requester);
        }
        subscriptions.deliver("ts 1");
        subscriptions.deliver("ts 2");
        QCOMPARE(leaver.lines().size(), 1);
        QCOMPARE(stayer.lines().size(), 0);
    }

    void what_is_written_is_read_again()
    {
        const QList<QByteArray> lines = {"ts 1.5",
                                         "",
                                         " blank first",
                                         {"nul \0 inside", 12},
                                         "carriage return\r",
                                         QByteArray(65507, 'x')}; // the largest datagram
        {
            Recorder recorder(path("lines"));
            QVERIFY(recorder.open());
            for (int i = 0; i < lines.size(); ++i)
                QVERIFY(recorder.write(i / 64.0, lines[i]));
        }
        RecordingReader reader(path("lines"));
        QVERIFY(reader.open());
        double time = 0.0;
        QByteArray line;
        for (int i = 0; i < lines.size(); ++i) {
            QCOMPARE(reader.next(&time, &line), RecordingReader::line_read);
            QCOMPARE(line, lines[i]);
            QCOMPARE(time, i / 64.0);
        }
        QCOMPARE(reader.next(&time, &line), RecordingReader::at_end);
    }

    void faults_of_recordings_are_named()
    {
        const QByteArray title = "tracking data recording 1\n";
        for (const auto& [content, fault] : QList<QPair<QByteArray, QString>>{
                 {"", "is empty"},
                 {"1 0 0 0\n", "line 1: not a recording"},
                 {"tracking data recording 2\n", "line 1: not a recording"},
                 {title + "0.5 ts\nts 5\n", "line 3: does not begin"},
                 {title + "0.5\n", "line 2: does not begin"},
                 {title + "inf ts\n", "line 2: does not begin"},
                 {title + "2.0 ts\n1.0 ts\n", "line 3: time goes back"},
                 {title + "-1.0 ts\n", "line 2: time goes back"},
                 {title + "0.5 " + QByteArray(70000, 'x') + '\n', "line 2: the line is too long"},
                 {title + "0.5 ts 1", "line 2: the line has no end"}}) {
            QFile file(path("faulty"));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
            file.close();
            RecordingReader reader(path("faulty"));
            double time = 0.0;
            QByteArray line;
            bool readable = reader.open();
            while (readable)
                readable = reader.next(&time, &line) == RecordingReader::line_read;
            QVERIFY2(reader.error_text().contains(fault), qPrintable(fault + reader.error_text()));
            QVERIFY(reader.error_text().contains("faulty"));
        }
        Recorder recorder(path("no/such/folder"));
        QVERIFY(!recorder.open());
        QVERIFY(recorder.error_text().contains("no/such/folder"));
    }

    void recording_can_be_replayed()
    {
        const QString file = path("received");
        Subscriptions subscriptions;
        {
            DataReceiver receiver(subscriptions);
            auto recorder = std::make_unique<Recorder>(file);
            QVERIFY(recorder->open());
            receiver.record(std::move(recorder));
            const quint16 port = receiver.listen();
            receiver.accept_only(here, 0);
            send("ts 1\nfr 1\n", port);
            QTRY_COMPARE_WITH_TIMEOUT(receiver.counters().lines, quint64(2), patience);
            QTest::qWait(100);
            send("ts 2\n", port);
            QTRY_COMPARE_WITH_TIMEOUT(receiver.counters().lines, quint64(3), patience);
        }
        KeepingRequester requester;
        subscriptions.add(&requester);
        DataReceiver receiver(subscriptions);
        auto reader = std::make_unique<RecordingReader>(file);
        QVERIFY(reader->open());
        receiver.replay(std::move(reader));
        QTest::qWait(100);
        QCOMPARE(receiver.counters().lines, quint64(0)); // waits for listeners
        QElapsedTimer clock;
        clock.start();
        subscriptions.subscribe("ts", &requester);
        QTRY_COMPARE_WITH_TIMEOUT(requester.lines(), QList<QByteArray>({"ts|ts 1", "ts|ts 2"}),
                                  patience);
        QVERIFY(clock.elapsed() >= 90);
        QVERIFY(next_report(receiver).contains("end"));
    }

    // Both belong to this machine, so that the address alone does not tell them apart.
    void only_the_controller_is_believed()
    {
        Subscriptions subscriptions;
        KeepingRequester requester;
        subscriptions.add(&requester);
        subscriptions.subscribe("6dmt2", &requester);
        DataReceiver receiver(subscriptions);
        const quint16 port = receiver.listen();
        QUdpSocket controller;
        QVERIFY(controller.bind(here));
        const QByteArray line = "6dmt2 1 2 [0 1.000 4 1.50][1.0 2.0 3.0][1 0 0 0 1 0 0 0 1][1]"
                                "[0.01 0 0 0.01 0 0.01]";
        send(line + '\n', port); // nobody has said yet who the controller is
        receiver.accept_only(here, controller.localPort());
        send(line + '\n', port);
        controller.writeDatagram(line + '\n', here, port);
        QTRY_COMPARE_WITH_TIMEOUT(requester.lines().size(), 1, patience);
        QTRY_COMPARE_WITH_TIMEOUT(receiver.counters().refused, quint64(2), patience);
        QVERIFY(next_report(receiver).contains("127.0.0.1:"));
        // Then it falls silent: the tool is told to be unseen, once.
        QTRY_COMPARE_WITH_TIMEOUT(requester.lines().size(), 2, patience);
        QCOMPARE(requester.lines().last(),
                 "6dmt2|" + QByteArray(line).replace("[0 1.000 4", "[0 -1.000 4"));
        QTest::qWait(1200);
        QCOMPARE(requester.lines().size(), 2);
    }

private:
    QString path(const char* name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(TestDataReceiver)
#include "test_datareceiver.moc"
