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
#include <sstream>

namespace
{

constexpr int limit = 200; // ms

using Pieces = QList<ScriptedController::Piece>;

// A gateway that speaks to a controller of few words.
struct Bench
{
    template <typename Answer>
    explicit Bench(const Answer& answer)
        : controller(answer), link("127.0.0.1", controller.port(), limit),
          gateway(link, subscriptions, [](const QString&, const QString&, int, const QString&) {})
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

    void texts_reach_the_controller_or_are_failures()
    {
        Bench bench(QByteArray("ok 1"));
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
        QVERIFY(bench.gateway.send_command(text, "tracking start") != 0);
        QVERIFY(bench.gateway.set_param_value("%s", QByteArray(5000, 'x').constData()) != 0);
        QVERIFY(bench.gateway.set_param_value("two\nlines") != 0);
        QCOMPARE(bench.controller.requests(), expected);
    }

    // A value that was not taken carries a mark: it must be what it was.
    void replies_are_converted_and_failures_change_nothing()
    {
        QList<QPair<QByteArray, std::string>> table = {{"ok 1", "1 1 1 !7;8;9"},
                                                       {"ok 0", "0 0 0 !7;8;9"},
                                                       {"ok -0.25", "!7 -0.25 !1 !7;8;9"},
                                                       {"ok 1 -2.5 3e2", "!7 !7 !1 1;-2.5;300"}};
        for (const char* reply : {"", "1", "error 1", "ok", "ok none", "ok 1,5", "ok 1.5mm",
                                  "ok 1 2", "ok 1  3", "ok 1 2 x", "ok 1 2 3 4"})
            table += qMakePair(QByteArray(reply), std::string("!7 !7 !1 !7;8;9"));
        for (const auto& [reply, expected] : table) {
            Bench bench(reply);
            int whole = 7;
            bool truth = true;
            double real = 7.0, three[3] = {7, 8, 9};
            const auto mark = [](int result) { return result == 0 ? "" : "!"; };
            std::ostringstream got;
            got << mark(bench.gateway.get_param_int(&whole, "x")) << whole << ' ';
            got << mark(bench.gateway.get_param_double(&real, "x")) << real << ' ';
            got << mark(bench.gateway.get_param_bool(&truth, "x")) << truth << ' ';
            got << mark(bench.gateway.get_param_doubles(three, 3, "x")) << three[0] << ';'
                << three[1] << ';' << three[2];
            QVERIFY2(got.str() == expected, reply + ": " + got.str().c_str());
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

    void no_line_is_taken_for_the_next_answer()
    {
        const struct
        {
            QByteArray first, rest;
            int delay; ///< ms
            bool closes, answered;
        } table[] = {{"ok 12", "34\n", 20, false, true},
                     {"ok 1234", "\n", 20, false, true},
                     {"ok 1234", "\n", 20, true, true},
                     {"ok 12", "34", 20, true, false},
                     {"", "", 20, true, false},
                     {"ok ", QByteArray(200000, '1'), 20, false, false},
                     {"ok 1234\nok 99\n", "", 0, false, true},
                     {"", "ok 1\n", 2 * limit, false, false}};
        for (const auto& row : table) {
            Bench bench([row](const QByteArray& request) {
                return request == "get next"
                           ? Pieces{{"ok 5\n"}}
                           : Pieces{{row.first}, {row.rest, row.delay, row.closes}};
            });
            int value = 0;
            QElapsedTimer clock;
            clock.start();
            QCOMPARE(bench.gateway.get_param_int(&value, "broken") == 0, row.answered);
            QVERIFY2(clock.elapsed() < 2 * limit, row.first + row.rest.left(9));
            QCOMPARE(value, row.answered ? 1234 : 0);
            QTest::qWait(50 + row.delay);
            QCOMPARE(bench.gateway.get_param_int(&value, "next"), 0);
            QCOMPARE(value, 5);
        }
    }

    // A dialog may ask thirty questions at one click, during which the windows stand still.
    void time_is_limited_for_a_whole_gesture()
    {
        for (const auto& [delay, answered] : {std::pair(0, 30), {60, 3}, {2 * limit, 0}}) {
            Bench bench([delay = delay](const QByteArray&) { return Pieces{{"ok 1\n", delay}}; });
            QElapsedTimer clock;
            clock.start();
            int answers = 0;
            for (int i = 0; i < 30; ++i)
                answers += bench.link.request("get x").ok();
            QVERIFY2(clock.elapsed() < limit + 100, qPrintable(QString::number(clock.elapsed())));
            QCOMPARE(answers, answered);
            QTest::qWait(3 * limit); // the next gesture has time again
            QCOMPARE(bench.link.request("get x").ok(), answered > 0);
        }
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
