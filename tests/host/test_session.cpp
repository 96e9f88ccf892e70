#include "host/session.h"

#include "tests/host/scriptedcontroller.h"
#include "tests/support/fatal_logger.h"

#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSignalSpy>
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
    options.plugin = FAKE_MODULE;
    options.controller_host = "127.0.0.1";
    options.controller_port = controller.port();
    return options;
}

QStringList texts(const QList<QAction*>& actions)
{
    QStringList all;
    for (const QAction* action : actions)
        all.append(action->text());
    return all;
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

    void module_is_led_through_its_life()
    {
        ScriptedController controller(backend_script);
        Session session(options_for(controller));
        QVERIFY2(session.start(), qPrintable(session.error_text()));
        const QStringList beginning = {"window MainWindow", "backend 1.18.-1", "elements"};
        QCOMPARE(said(session.main_window()), beginning);
        session.shut_down();
        QCOMPARE(said(session.main_window()),
                 beginning + QStringList({"about to exit", "exit", "deleted"}));
        session.shut_down();
        QCOMPARE(said(session.main_window()).size(), 6);
        const QList<QByteArray> requests = controller.requests();
        QCOMPARE(requests.size(), 4);
        QVERIFY(requests[2].startsWith("do data stream "));
        QCOMPARE(requests[3], QByteArray("do data stream 0"));
    }

    void menus_stand_by_rank_and_observer_mode_is_passed_on()
    {
        ScriptedController controller(backend_script);
        Options options = options_for(controller);
        options.observer = true;
        Session session(options);
        QVERIFY(session.start());
        MainWindow& window = session.main_window();
        QCOMPARE(said(window).at(2), QString("observer"));
        const QList<QAction*> menus = window.menuBar()->actions();
        QCOMPARE(texts(menus), QStringList({"&File", "&Before", "&Calibration", "&Help"}));
        QCOMPARE(texts(menus[2]->menu()->actions()), QStringList({"&Early", "&Late"}));
        session.shut_down();
        QCOMPARE(texts(window.menuBar()->actions()), QStringList({"&File", "&Help"}));
    }

    void missing_parts_are_named()
    {
        const QString module = FAKE_MODULE;
        for (const auto& [plugin, version, replay, named] :
             QList<std::tuple<QString, QByteArray, QString, QString>>{
                 {"/no/module.so", "ok 1 2 3", "", "/no/module.so"},
                 {module, "error unknown", "", "unknown"},
                 {module, "ok 1.18.0", "", "1.18.0"},
                 {module, "ok 1 2 3", "/no/lines", "/no/lines"}}) {
            ScriptedController controller(version);
            Options options = options_for(controller);
            options.plugin = plugin;
            options.replay_file = replay;
            Session session(options);
            QVERIFY(!session.start());
            QVERIFY2(session.error_text().contains(named), qPrintable(session.error_text()));
        }
    }

    void simulator_must_say_where_it_listens()
    {
        for (const auto& [script, port] : QList<QPair<QString, int>>{
                 {"echo listening 127.0.0.1:40123; exec sleep 20", 40123},
                 {"printf 'listening 127.0'; sleep 0.1; echo .0.1:99; exec sleep 20", 99},
                 {"echo hello; exec sleep 20", 0},
                 {"echo listening 127.0.0.1:0; exec sleep 20", 0},
                 {"exit 1", 0}}) {
            ControllerProcess process;
            const bool launched = process.launch("/bin/sh", {"-c", script});
            QCOMPARE(launched ? int(process.port()) : 0, port);
            QCOMPARE(process.error_text().isEmpty(), launched);
            QCOMPARE(process.state(), launched ? QProcess::Running : QProcess::NotRunning);
        }
    }

    void lost_simulator_is_told()
    {
        ControllerProcess process;
        QSignalSpy lost(&process, &ControllerProcess::lost);
        QVERIFY(process.launch("/bin/sh", {"-c", "echo listening 127.0.0.1:1; sleep 0.1; exit 3"}));
        QVERIFY(lost.wait());
        QVERIFY(lost.first().first().toString().contains(QStringLiteral("(3)")));
    }

    void panes_are_bounded()
    {
        MainWindow window;
        for (int i = 0; i < 3000; ++i)
            window.add_exchange({});
        QCOMPARE(window.findChild<QPlainTextEdit*>("traffic")->blockCount(), 2000);
    }
};

QTEST_MAIN(TestSession)
#include "test_session.moc"
