#include "host/session.h"

#include "tests/host/scriptedcontroller.h"
#include "tests/support/fatal_logger.h"

#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace
{

using Pieces = QList<ScriptedController::Piece>;

// Speaks like a backend of version 1.18.0 whose patch number is unknown.
Pieces backend_script(const QByteArray& request)
{
    return request == "sim version" ? Pieces{{"ok 1 18 -1\n"}} : Pieces{{"ok\n"}};
}

Options options_for(const ScriptedController& controller)
{
    Options options;
    options.plugin = QStringLiteral(FAKE_MODULE);
    options.controller_host = QStringLiteral("127.0.0.1");
    options.controller_port = controller.port();
    return options;
}

QStringList menu_titles(MainWindow& window)
{
    QStringList titles;
    for (const QAction* action : window.menuBar()->actions())
        titles.append(action->text());
    return titles;
}

// What the fake module has said, without times.
QStringList said(MainWindow& window)
{
    QStringList texts;
    const QString all = window.findChild<QPlainTextEdit*>("messages")->toPlainText();
    for (const QString& line : all.split('\n'))
        if (line.contains(" Fake ("))
            texts.append(line.section(QStringLiteral("(standard)  "), 1));
    return texts;
}

} // namespace

class TestSession : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void module_is_led_through_its_life();
    void observer_mode_is_passed_on();
    void menus_stand_by_rank();
    void missing_parts_are_named_data();
    void missing_parts_are_named();
    void simulator_must_say_where_it_listens_data();
    void simulator_must_say_where_it_listens();
    void lost_simulator_is_told();
    void panes_are_bounded();
};

void TestSession::module_is_led_through_its_life()
{
    ScriptedController controller(backend_script);
    Session session(options_for(controller));
    QVERIFY2(session.start(), qPrintable(session.errorText()));
    const QStringList beginning = {"window MainWindow", "backend 1.18.-1", "elements"};
    QCOMPARE(said(session.mainWindow()), beginning);
    session.shutDown();
    QCOMPARE(said(session.mainWindow()),
             beginning + QStringList({"about to exit", "exit", "deleted"}));
    session.shutDown();
    QCOMPARE(said(session.mainWindow()).size(), 6);
    const QList<QByteArray> requests = controller.requests();
    QCOMPARE(requests.size(), 3);
    QVERIFY(requests[1].startsWith("do data stream "));
    QCOMPARE(requests[2], QByteArray("do data stream 0"));
}

void TestSession::observer_mode_is_passed_on()
{
    ScriptedController controller(backend_script);
    Options options = options_for(controller);
    options.observer = true;
    Session session(options);
    QVERIFY(session.start());
    QCOMPARE(said(session.mainWindow()).at(2), QStringLiteral("observer"));
}

void TestSession::menus_stand_by_rank()
{
    ScriptedController controller(backend_script);
    Session session(options_for(controller));
    QVERIFY(session.start());
    MainWindow& window = session.mainWindow();
    QCOMPARE(menu_titles(window), QStringList({"&File", "&Before", "&Calibration", "&Help"}));
    const QList<QAction*> entries = window.menuBar()->actions().at(2)->menu()->actions();
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries[0]->text(), QStringLiteral("&Early"));
    QCOMPARE(entries[1]->text(), QStringLiteral("&Late"));
    session.shutDown();
    QCOMPARE(menu_titles(window), QStringList({"&File", "&Help"}));
}

void TestSession::missing_parts_are_named_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QString>("replay");
    QTest::addColumn<QString>("named");
    const QString module = QStringLiteral(FAKE_MODULE);
    QTest::newRow("no module") << "/no/module.so" << QByteArray("ok 1 2 3") << ""
                               << "/no/module.so";
    QTest::newRow("no version") << module << QByteArray("error unknown") << ""
                                << "unknown";
    QTest::newRow("odd version") << module << QByteArray("ok 1.18.0") << ""
                                 << "1.18.0";
    QTest::newRow("no recording") << module << QByteArray("ok 1 2 3") << "/no/lines"
                                  << "/no/lines";
}

void TestSession::missing_parts_are_named()
{
    QFETCH(QString, plugin);
    QFETCH(QByteArray, version);
    QFETCH(QString, replay);
    QFETCH(QString, named);
    ScriptedController controller(version);
    Options options = options_for(controller);
    options.plugin = plugin;
    options.replay_file = replay;
    Session session(options);
    QVERIFY(!session.start());
    QVERIFY2(session.errorText().contains(named), qPrintable(session.errorText()));
}

void TestSession::simulator_must_say_where_it_listens_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("port");
    QTest::newRow("as agreed") << "echo listening 127.0.0.1:40123; sleep 20" << 40123;
    QTest::newRow("in two parts") << "printf 'listening 127.0'; sleep 0.1; echo .0.1:99; sleep 20"
                                  << 99;
    QTest::newRow("nonsense") << "echo hello; sleep 20" << 0;
    QTest::newRow("no port") << "echo listening 127.0.0.1:0; sleep 20" << 0;
    QTest::newRow("ends at once") << "exit 1" << 0;
}

void TestSession::simulator_must_say_where_it_listens()
{
    QFETCH(QString, script);
    QFETCH(int, port);
    ControllerProcess process;
    const bool launched = process.launch(QStringLiteral("/bin/sh"), {"-c", script});
    QCOMPARE(launched ? int(process.port()) : 0, port);
    QCOMPARE(process.errorText().isEmpty(), launched);
    QCOMPARE(process.state(), launched ? QProcess::Running : QProcess::NotRunning);
}

void TestSession::lost_simulator_is_told()
{
    ControllerProcess process;
    QSignalSpy lost(&process, &ControllerProcess::lost);
    QVERIFY(process.launch("/bin/sh", {"-c", "echo listening 127.0.0.1:1; sleep 0.1; exit 3"}));
    QVERIFY(lost.wait());
    QVERIFY(lost.first().first().toString().contains(QStringLiteral("(3)")));
}

void TestSession::panes_are_bounded()
{
    MainWindow window;
    Exchange exchange;
    for (int i = 0; i < 3000; ++i)
        window.addExchange(exchange);
    QCOMPARE(window.findChild<QPlainTextEdit*>("traffic")->blockCount(), 2000);
}

QTEST_MAIN(TestSession)
#include "test_session.moc"
