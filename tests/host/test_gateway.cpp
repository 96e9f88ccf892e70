#include "host/gateway.h"
#include "host/subscriptions.h"

#include "module/requester.h"

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

using Piece = ScriptedController::Piece;
using Pieces = QList<Piece>;

// A gateway that speaks to a controller of few words.
struct Bench
{
    explicit Bench(ScriptedController::Script script)
        : controller(std::move(script)),
          link(QStringLiteral("127.0.0.1"), controller.port(), limit),
          gateway(link, subscriptions,
                  [this](const QString&, const QString&, int, const QString& text) {
                      messages.append(text);
                  })
    {
    }
    explicit Bench(const QByteArray& answer)
        : Bench([answer](const QByteArray&) { return Pieces{{answer + '\n'}}; })
    {
    }

    ScriptedController controller;
    ControllerLink link;
    Subscriptions subscriptions;
    QStringList messages;
    Gateway gateway;
};

// The commas would be sent, and points not understood, if the desktop's locale had a say.
void use_comma_locale()
{
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "de_DE"})
        if (std::setlocale(LC_NUMERIC, name))
            return;
}

class CountingRequester : public Requester
{
public:
    int set_ascii_data(const char*, const char*) override { return 0; }
    void set_mea_started() override { ++started; }
    void set_mea_stopped() override { ++stopped; }

    int started = 0;
    int stopped = 0;
};

} // namespace

class TestGateway : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void texts_reach_the_controller();
    void unsendable_texts_are_failures();
    void replies_are_converted_data();
    void replies_are_converted();
    void failures_change_nothing();
    void buffers_are_never_overrun_data();
    void buffers_are_never_overrun();
    void late_answer_is_not_taken_for_the_next();
    void surplus_line_is_not_taken_for_the_next();
    void broken_connections_data();
    void broken_connections();
    void silence_does_not_add_up();
    void nobody_listening_is_a_failure();
    void event_loop_stands_still();
    void measurement_is_announced();
};

void TestGateway::initTestCase()
{
    install_fatal_logger();
    use_comma_locale();
}

void TestGateway::texts_reach_the_controller()
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
    const QList<QByteArray> expected = {"do tracking start", "get tracking room c07",
                                        "get camera number_of_cameras", "get tracking has_room c12",
                                        "set tracking extra_translation -1.500 1234.568 0.000"};
    QCOMPARE(bench.controller.requests(), expected);
}

void TestGateway::unsendable_texts_are_failures()
{
    Bench bench("ok 1");
    char reply[IOManager::buffer_size];
    QVERIFY(bench.gateway.send_command(reply, "tracking start") != 0);
    QVERIFY(bench.gateway.set_param_value("%s", QByteArray(5000, 'x').constData()) != 0);
    QVERIFY(bench.gateway.set_param_value("two\nlines") != 0);
    QVERIFY(bench.controller.requests().isEmpty());
}

void TestGateway::replies_are_converted_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("as_int");
    QTest::addColumn<QString>("as_double");
    QTest::addColumn<QString>("as_bool");
    QTest::addColumn<QString>("as_three");
    const QString none = QStringLiteral("failed");
    QTest::newRow("one") << QByteArray("ok 1") << "1"
                         << "1"
                         << "true" << none;
    QTest::newRow("zero") << QByteArray("ok 0") << "0"
                          << "0"
                          << "false" << none;
    QTest::newRow("fraction") << QByteArray("ok -0.25") << none << "-0.25" << none << none;
    QTest::newRow("comma") << QByteArray("ok 1,5") << none << none << none << none;
    QTest::newRow("word") << QByteArray("ok none") << none << none << none << none;
    QTest::newRow("nothing") << QByteArray("ok") << none << none << none << none;
    QTest::newRow("tail") << QByteArray("ok 1.5mm") << none << none << none << none;
    QTest::newRow("three") << QByteArray("ok 1 -2.5 3e2") << none << none << none << "1;-2.5;300";
    QTest::newRow("two") << QByteArray("ok 1 2") << none << none << none << none;
    QTest::newRow("four") << QByteArray("ok 1 2 3 4") << none << none << none << none;
    QTest::newRow("gap") << QByteArray("ok 1  3") << none << none << none << none;
    QTest::newRow("refused") << QByteArray("error 1") << none << none << none << none;
    QTest::newRow("no protocol") << QByteArray("1") << none << none << none << none;
    QTest::newRow("empty line") << QByteArray() << none << none << none << none;
}

void TestGateway::replies_are_converted()
{
    QFETCH(QByteArray, reply);
    Bench bench(reply);
    int whole = 0;
    double real = 0.0;
    bool truth = false;
    double three[3] = {};
    const auto text = [](int result, const QString& value) {
        return result == 0 ? value : QStringLiteral("failed");
    };
    const int int_result = bench.gateway.get_param_int(&whole, "x");
    const int double_result = bench.gateway.get_param_double(&real, "x");
    const int bool_result = bench.gateway.get_param_bool(&truth, "x");
    const int three_result = bench.gateway.get_param_doubles(three, 3, "x");
    QTEST(text(int_result, QString::number(whole)), "as_int");
    QTEST(text(double_result, QString::number(real)), "as_double");
    QTEST(text(bool_result, truth ? "true" : "false"), "as_bool");
    QTEST(text(three_result, QString("%1;%2;%3").arg(three[0]).arg(three[1]).arg(three[2])),
          "as_three");
}

void TestGateway::failures_change_nothing()
{
    Bench bench("ok 1 2 x");
    double values[3] = {7, 8, 9};
    int number = 7;
    QVERIFY(bench.gateway.get_param_doubles(values, 3, "x") != 0);
    QVERIFY(bench.gateway.get_param_int(&number, "x") != 0);
    QCOMPARE(values[0] + values[1] + values[2] + number, 31.0);
}

void TestGateway::buffers_are_never_overrun_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("fits");
    QTest::newRow("empty") << 0 << true;
    QTest::newRow("fills the buffer") << 199 << true;
    QTest::newRow("one too long") << 200 << false;
    QTest::newRow("far too long") << 20000 << false;
}

void TestGateway::buffers_are_never_overrun()
{
    QFETCH(int, length);
    QFETCH(bool, fits);
    const QByteArray value(length, 'v');
    Bench bench("ok " + value);
    char buffer[IOManager::buffer_size + 50];
    std::fill(std::begin(buffer), std::end(buffer), '#');
    QCOMPARE(bench.gateway.get_param_string(buffer, "x") == 0, fits);
    QCOMPARE(QByteArray(buffer, 200).left(length + 1),
             fits ? value + '\0' : QByteArray(200, '#').left(length + 1));
    QCOMPARE(bench.gateway.send_command(buffer, "zetrak2 x"), 0);
    QCOMPARE(QByteArray(buffer), value.left(199));
    QCOMPARE(QByteArray(buffer + 200, 50), QByteArray(50, '#'));
}

void TestGateway::late_answer_is_not_taken_for_the_next()
{
    Bench bench([](const QByteArray& request) {
        return request == "get late" ? Pieces{{"ok 1\n", 2 * limit}} : Pieces{{"ok 2\n"}};
    });
    int value = 0;
    QElapsedTimer clock;
    clock.start();
    QVERIFY(bench.gateway.get_param_int(&value, "late") != 0);
    QVERIFY(clock.elapsed() < 2 * limit);
    QTest::qWait(2 * limit);
    QCOMPARE(bench.gateway.get_param_int(&value, "next"), 0);
    QCOMPARE(value, 2);
}

void TestGateway::surplus_line_is_not_taken_for_the_next()
{
    Bench bench([](const QByteArray& request) {
        return request == "get first" ? Pieces{{"ok 1\nok 99\n"}} : Pieces{{"ok 2\n"}};
    });
    int value = 0;
    QCOMPARE(bench.gateway.get_param_int(&value, "first"), 0);
    QCOMPARE(bench.gateway.get_param_int(&value, "second"), 0);
    QCOMPARE(value, 2);
}

void TestGateway::broken_connections_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("answered");
    QTest::newRow("in two parts") << QByteArray("ok 12") << QByteArray("34\n") << false << true;
    QTest::newRow("only the line feed is late")
        << QByteArray("ok 1234") << QByteArray("\n") << false << true;
    QTest::newRow("closed after the answer")
        << QByteArray("ok 1234") << QByteArray("\n") << true << true;
    QTest::newRow("closed in the middle")
        << QByteArray("ok 12") << QByteArray("34") << true << false;
    QTest::newRow("closed without a word") << QByteArray() << QByteArray() << true << false;
    QTest::newRow("endless line") << QByteArray("ok ") << QByteArray(200000, '1') << false << false;
}

void TestGateway::broken_connections()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, rest);
    QFETCH(bool, closes);
    QFETCH(bool, answered);
    Bench bench([=](const QByteArray& request) {
        return request == "get next" ? Pieces{{"ok 5\n"}} : Pieces{{first}, {rest, 20, closes}};
    });
    int value = 0;
    QCOMPARE(bench.gateway.get_param_int(&value, "broken") == 0, answered);
    QCOMPARE(value, answered ? 1234 : 0);
    QTest::qWait(50);
    QCOMPARE(bench.gateway.get_param_int(&value, "next"), 0);
    QCOMPARE(value, 5);
}

void TestGateway::silence_does_not_add_up()
{
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress(QHostAddress::LocalHost)));
    ControllerLink link(QStringLiteral("127.0.0.1"), silent.serverPort(), 1000);
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 5; ++i)
        QCOMPARE(link.request("get x").outcome, Reply::no_answer);
    QVERIFY2(clock.elapsed() < 3000, qPrintable(QString::number(clock.elapsed())));
}

void TestGateway::nobody_listening_is_a_failure()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress(QHostAddress::LocalHost)));
    const quint16 free_port = server.serverPort();
    server.close();
    ControllerLink link(QStringLiteral("127.0.0.1"), free_port, limit);
    const Reply reply = link.request("get x");
    QCOMPARE(reply.outcome, Reply::no_answer);
    QVERIFY(!reply.text.isEmpty());
}

void TestGateway::event_loop_stands_still()
{
    Bench bench([](const QByteArray&) { return Pieces{{"ok 1\n", 50}}; });
    bool event_seen = false;
    QTimer::singleShot(0, this, [&event_seen] { event_seen = true; });
    int value = 0;
    QCOMPARE(bench.gateway.get_param_int(&value, "x"), 0);
    QVERIFY(!event_seen);
}

void TestGateway::measurement_is_announced()
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

QTEST_GUILESS_MAIN(TestGateway)
#include "test_gateway.moc"
