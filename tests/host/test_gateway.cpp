#include "host/connection/gateway.h"
#include "host/connection/subscriptions.h"

#include "contract/requester.h"

#include "tests/host/scriptedcontroller.h"
#include "tests/support/fatal_logger.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <clocale>
#include <memory>

namespace
{

constexpr int limit = 200; // ms

using Pieces = QList<ScriptedController::Piece>;

// A gateway that speaks to a controller of few words.
struct Bench
{
    explicit Bench(ScriptedController::Script script)
        : controller(std::move(script)), link("127.0.0.1", controller.port(), limit),
          gateway(link, subscriptions, [](const QString&, const QString&, int, const QString&) {})
    {
    }
    explicit Bench(const QByteArray& answer)
        : Bench([answer](const QByteArray&) { return Pieces{{answer + '\n'}}; })
    {
    }

    ScriptedController controller;
    ControllerLink link;
    Subscriptions subscriptions;
    Gateway gateway;
};

class CountingRequester : public Requester
{
public:
    int set_ascii_data(const char*, const char*) override { return 0; }
    void set_mea_started() override { ++started; }
    void set_mea_stopped() override { ++stopped; }

    int started = 0, stopped = 0;
};

} // namespace

class TestGateway : public QObject
{
    Q_OBJECT

private slots:
    // Commas would be sent, and points not understood, if the desktop's locale had a say.
    void initTestCase()
    {
        install_fatal_logger();
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "de_DE"})
            if (std::setlocale(LC_NUMERIC, name))
                return;
    }

    void texts_reach_the_controller()
    {
        Bench bench("ok 1");
        char text[IOManager::buffer_size];
        int number = 0;
        bool truth = false;
        QCOMPARE(bench.gateway.send_command(text, "zetrak2 tracking start"), 0);
        QCOMPARE(bench.gateway.get_param_string(text, "tracking room c%2.2d", 7), 0);
        QCOMPARE(bench.gateway.get_param_int(&number, "camera number_of_cameras"), 0);
        QCOMPARE(bench.gateway.get_param_bool(&truth, "tracking has_room c%02d", 12), 0);
        QCOMPARE(bench.gateway.set_param_value("tracking extra_translation %.3f %.3f %.3f", -1.5,
                                               1234.5678, 0.0),
                 0);
        const QList<QByteArray> expected = {
            "do tracking start", "get tracking room c07", "get camera number_of_cameras",
            "get tracking has_room c12", "set tracking extra_translation -1.500 1234.568 0.000"};
        QCOMPARE(bench.controller.requests(), expected);
    }

    void unsendable_texts_are_failures()
    {
        Bench bench("ok 1");
        char reply[IOManager::buffer_size];
        QVERIFY(bench.gateway.send_command(reply, "tracking start") != 0);
        QVERIFY(bench.gateway.set_param_value("%s", QByteArray(5000, 'x').constData()) != 0);
        QVERIFY(bench.gateway.set_param_value("two\nlines") != 0);
        QVERIFY(bench.controller.requests().isEmpty());
    }

    void replies_are_converted()
    {
        const QString none = "failed";
        for (const auto& [reply, as_int, as_double, as_bool, as_three] :
             {std::tuple("ok 1", "1", "1", "true", "failed"),
              std::tuple("ok 0", "0", "0", "false", "failed"),
              std::tuple("ok -0.25", "failed", "-0.25", "failed", "failed"),
              std::tuple("ok 1 -2.5 3e2", "failed", "failed", "failed", "1;-2.5;300")}) {
            Bench bench{QByteArray(reply)};
            int whole = 0;
            double real = 0.0, three[3] = {};
            bool truth = false;
            const auto text = [&](int result, const QString& value) {
                return result == 0 ? value : none;
            };
            const int results[] = {bench.gateway.get_param_int(&whole, "x"),
                                   bench.gateway.get_param_double(&real, "x"),
                                   bench.gateway.get_param_bool(&truth, "x"),
                                   bench.gateway.get_param_doubles(three, 3, "x")};
            QCOMPARE(text(results[0], QString::number(whole)), QString(as_int));
            QCOMPARE(text(results[1], QString::number(real)), QString(as_double));
            QCOMPARE(text(results[2], truth ? "true" : "false"), QString(as_bool));
            QCOMPARE(
                text(results[3], QString("%1;%2;%3").arg(three[0]).arg(three[1]).arg(three[2])),
                QString(as_three));
        }
        for (const char* reply : {"", "1", "error 1", "ok", "ok none", "ok 1,5", "ok 1.5mm",
                                  "ok 1 2", "ok 1  3", "ok 1 2 x", "ok 1 2 3 4"}) {
            Bench bench{QByteArray(reply)};
            int whole = 7;
            bool truth = true;
            double number = 7.0, three[3] = {7, 8, 9};
            QVERIFY2(bench.gateway.get_param_int(&whole, "x")
                         && bench.gateway.get_param_bool(&truth, "x"),
                     reply);
            QVERIFY2(bench.gateway.get_param_double(&number, "x")
                         && bench.gateway.get_param_doubles(three, 3, "x"),
                     reply);
            // Failures change nothing.
            QVERIFY2(whole == 7 && truth && number == 7.0, reply);
            QVERIFY2(three[0] == 7 && three[1] == 8 && three[2] == 9, reply);
        }
    }

    void buffers_are_never_overrun()
    {
        for (const int length : {0, 199, 200, 20000}) {
            const bool fits = length < IOManager::buffer_size;
            const QByteArray value(length, 'v');
            Bench bench("ok " + value);
            char buffer[IOManager::buffer_size + 50];
            std::fill(std::begin(buffer), std::end(buffer), '#');
            QCOMPARE(bench.gateway.get_param_string(buffer, "x") == 0, fits);
            QCOMPARE(QByteArray(buffer, 200).left(length + 1),
                     fits ? value + '\0' : QByteArray(200, '#'));
            QCOMPARE(bench.gateway.send_command(buffer, "zetrak2 x"), 0);
            QCOMPARE(QByteArray(buffer), value.left(199));
            QCOMPARE(QByteArray(buffer + 200, 50), QByteArray(50, '#'));
        }
    }

    void no_line_is_taken_for_the_next_answer_data()
    {
        QTest::addColumn<QByteArray>("first");
        QTest::addColumn<QByteArray>("rest");
        QTest::addColumn<int>("delay");
        QTest::addColumn<bool>("closes");
        QTest::addColumn<bool>("answered");
        using Bytes = QByteArray;
        QTest::newRow("in two parts") << Bytes("ok 12") << Bytes("34\n") << 20 << false << true;
        QTest::newRow("late line feed") << Bytes("ok 1234") << Bytes("\n") << 20 << false << true;
        QTest::newRow("closed after") << Bytes("ok 1234") << Bytes("\n") << 20 << true << true;
        QTest::newRow("closed inside") << Bytes("ok 12") << Bytes("34") << 20 << true << false;
        QTest::newRow("closed at once") << Bytes() << Bytes() << 20 << true << false;
        QTest::newRow("endless") << Bytes("ok ") << Bytes(200000, '1') << 20 << false << false;
        QTest::newRow("surplus") << Bytes("ok 1234\nok 99\n") << Bytes() << 0 << false << true;
        QTest::newRow("late") << Bytes() << Bytes("ok 1\n") << 2 * limit << false << false;
    }

    void no_line_is_taken_for_the_next_answer()
    {
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, rest);
        QFETCH(int, delay);
        QFETCH(bool, closes);
        QFETCH(bool, answered);
        Bench bench([=](const QByteArray& request) {
            return request == "get next" ? Pieces{{"ok 5\n"}}
                                         : Pieces{{first}, {rest, delay, closes}};
        });
        int value = 0;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(bench.gateway.get_param_int(&value, "broken") == 0, answered);
        QVERIFY(clock.elapsed() < 2 * limit);
        QCOMPARE(value, answered ? 1234 : 0);
        QTest::qWait(50 + delay);
        QCOMPARE(bench.gateway.get_param_int(&value, "next"), 0);
        QCOMPARE(value, 5);
    }

    // A dialog may ask thirty questions at one click, during which the windows stand still.
    void time_is_limited_for_a_whole_gesture_data()
    {
        QTest::addColumn<int>("delay");
        QTest::addColumn<int>("answered");
        QTest::newRow("fast") << 0 << 30;
        QTest::newRow("slow") << 60 << 3;
        QTest::newRow("silent") << 10000 << 0;
    }

    void time_is_limited_for_a_whole_gesture()
    {
        QFETCH(int, delay);
        QFETCH(int, answered);
        ScriptedController controller([delay](const QByteArray&) {
            return Pieces{{"ok 1\n", std::min(delay, 2 * limit)}};
        });
        ControllerLink link("127.0.0.1", controller.port(), limit);
        QElapsedTimer clock;
        clock.start();
        int answers = 0;
        for (int i = 0; i < 30; ++i)
            answers += link.request("get x").ok();
        QVERIFY2(clock.elapsed() < limit + 100, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(answers, answered);
        QTest::qWait(3 * limit); // the next gesture has time again
        QCOMPARE(link.request("get x").ok(), answered > 0);
    }

    // A controller that stands still may carry out later what it was told.
    void what_was_not_sent_is_told_from_what_may_have_been_done()
    {
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress(QHostAddress::LocalHost)));
        ControllerLink link("127.0.0.1", silent.serverPort(), limit);
        QCOMPARE(link.request("set x 1").outcome, Reply::unknown);
        QCOMPARE(link.request("set x 2").outcome, Reply::not_sent); // no time is left
        silent.close();
        QTest::qWait(limit);
        const Reply reply = link.request("set x 3");
        QCOMPARE(reply.outcome, Reply::not_sent);
        QVERIFY(!reply.text.isEmpty());
    }

    void event_loop_stands_still()
    {
        Bench bench([](const QByteArray&) { return Pieces{{"ok 1\n", 50}}; });
        bool event_seen = false;
        QTimer::singleShot(0, this, [&event_seen] { event_seen = true; });
        int value = 0;
        QCOMPARE(bench.gateway.get_param_int(&value, "x"), 0);
        QVERIFY(!event_seen);
    }

    void measurement_is_announced()
    {
        Bench bench([](const QByteArray& request) {
            return request.contains("fail") ? Pieces{{"error no\n"}} : Pieces{{"ok\n"}};
        });
        CountingRequester requester;
        QCOMPARE(bench.gateway.add_requester(&requester), 0);
        char reply[IOManager::buffer_size];
        bench.gateway.send_command(reply, "zetrak2 tracking start");
        bench.gateway.send_command(reply, "zetrak2 tracking fail");
        QCOMPARE(requester.started, 1);
        QCOMPARE(requester.stopped, 0);
        bench.gateway.send_command(reply, "zetrak2 tracking stop");
        QCOMPARE(requester.stopped, 1);
    }
};

QTEST_GUILESS_MAIN(TestGateway)
#include "test_gateway.moc"
