#include "host/demo/failure.h"
#include "host/demo/stepper.h"
#include "host/session.h"
#include "host/window/colors.h"
#include "host/window/trafficmodel.h"

#include "tests/host/scriptedcontroller.h"
#include "tests/support/fatal_logger.h"

#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRegularExpression>
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
        for (const auto& [plugin, version, replay, named] :
             {std::tuple("/no/module.so", "ok 1 2 3", "", "/no/module.so"),
              {FAKE_MODULE, "error unknown", "", "unknown"},
              {FAKE_MODULE, "ok 1.18.0", "", "1.18.0"},
              {FAKE_MODULE, "ok 1 2 3", "/no/lines", "/no/lines"}}) {
            ScriptedController controller(QByteArray{version});
            Options options = options_for(controller);
            options.plugin = plugin;
            options.replay_file = replay;
            Session session(options);
            QVERIFY(!session.start());
            QVERIFY2(session.error_text().contains(named), qPrintable(session.error_text()));
        }
    }

    void simulator_must_say_where_it_listens_and_that_it_ends()
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
        ControllerProcess process;
        QSignalSpy lost(&process, &ControllerProcess::lost);
        QVERIFY(process.launch("/bin/sh", {"-c", "echo listening 127.0.0.1:1; sleep 0.1; exit 3"}));
        QVERIFY(lost.wait());
        QVERIFY(lost.first().first().toString().contains("(3)"));
    }

    void troubles_end_the_steps()
    {
        for (const QString trouble : {"nothing happened", "thrown", "alarm"}) {
            Stepper stepper;
            bool went_on = false;
            if (trouble == "alarm")
                stepper.set_alarm([trouble] { return trouble; });
            if (trouble == "thrown")
                stepper.act("the step", [trouble] { throw DemoFailure(trouble); });
            stepper.await(
                "the step", [] { return false; }, 100);
            stepper.act("next", [&] { went_on = true; });
            QSignalSpy failed(&stepper, &Stepper::failed);
            stepper.start();
            QVERIFY(failed.count() == 1 || failed.wait());
            const QString text = failed.first().first().toString();
            QVERIFY2(text.contains("\"the step\"") && text.contains(trouble), qPrintable(text));
            QTest::qWait(100);
            QVERIFY(!went_on && failed.count() == 1);
        }
    }

    // What matters must not scroll away: sixteen cameras are one row, and the settings are found.
    void traffic_is_folded_and_bounded()
    {
        const auto exchange = [](const QByteArray& request, Reply::Outcome outcome) {
            return Exchange{QTime(12, 0), request, {outcome, ""}, 1};
        };
        TrafficModel traffic;
        for (int camera = 10; camera < 26; ++camera) {
            const QByteArray index = " c" + QByteArray::number(camera);
            traffic.add(exchange("get tracking has_room" + index, Reply::done));
            traffic.add(
                exchange("get tracking room" + index, camera == 20 ? Reply::refused : Reply::done));
        }
        traffic.add(exchange("set tracking extra_scaling 1.0", Reply::done));
        traffic.add(exchange("get tracking room c10", Reply::done));
        QStringList rows;
        for (const QString& line : traffic.text().split('\n'))
            rows += QStringList(line.split('\t').mid(0, 2) + line.split('\t').mid(3, 1)).join('|');
        QCOMPARE(rows, QStringList({"ok|get tracking has_room c*|16", "ok|get tracking room c*|15",
                                    "refused|get tracking room c20|",
                                    "ok|set tracking extra_scaling 1.0|",
                                    "ok|get tracking room c10|", ""}));
        for (int i = 0; i < 3000; ++i)
            traffic.add(exchange("set x " + QByteArray::number(i), Reply::done));
        QCOMPARE(traffic.rowCount(), 2000);
    }

    void colors_are_legible()
    {
        for (const auto& [base, text] : {std::pair("white", "black"), std::pair("#efefef", "#333"),
                                         std::pair("#2a2e32", "white"), std::pair("black", "#ccc"),
                                         std::pair("#808080", "black")}) {
            QPalette palette;
            palette.setColor(QPalette::Base, QColor(base));
            palette.setColor(QPalette::Window, QColor(base));
            palette.setColor(QPalette::Text, QColor(text));
            const WindowColors colors = colors_for(palette);
            for (const QColor& color :
                 {colors.fault, colors.emphasis, colors.done, colors.quiet, colors.status})
                QVERIFY2(contrast(color, QColor(base)) >= 4.5, qPrintable(color.name()));
        }
    }

    void status_tells_what_is_true()
    {
        StatusFacts facts;
        facts.tracking = true;
        facts.seconds_without = 7.0;
        const auto texts = [&facts](StatusFacts::Controller controller) {
            facts.controller = controller;
            return StatusTexts::controller(facts).text + '|' + StatusTexts::data(facts).text;
        };
        QVERIFY(texts(StatusFacts::answering).contains("tracking, but no data for 7 s"));
        QVERIFY(texts(StatusFacts::silent).contains(QRegularExpression("not answer.*no data")));
        QVERIFY(texts(StatusFacts::ended).contains(QRegularExpression("has ended.*no data")));
        facts.seconds_without = 0.5;
        QVERIFY(!StatusTexts::data(facts).is_fault);
    }
};

QTEST_MAIN(TestSession)
#include "test_session.moc"
