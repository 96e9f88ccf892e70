// Host, module and simulator while the simulator's process is killed, stopped, replaced or slow.
// By default a fault each for each moment; CONTROLLER_LOSS_ALL=1 runs all combinations.
#include "host/demo/simulatedperson.h"
#include "host/demo/stepper.h"
#include "host/demo/widgetdriver.h"
#include "host/session.h"

#include "tests/support/fatal_logger.h"

#include <QAction>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabWidget>
#include <QTcpServer>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <thread>

namespace
{

constexpr int longest_freeze = 3000; // ms
constexpr int fault_delay = 60;      // ms behind the click
constexpr int loss_time = 4000;      // ms until the loss must be known
constexpr int recovery_limit = 10000;

const QString adjustment = QStringLiteral("RoomAdjustmentDlgClass");
const QString matching = QStringLiteral("AbcMatchingDialogClass");

quint16 free_port()
{
    QTcpServer server;
    server.listen(QHostAddress(QHostAddress::LocalHost));
    return server.serverPort();
}

// A simulator that is nobody's child, so that nothing but its port tells of it.
class Controller
{
public:
    Controller() { start(); }
    ~Controller() { signal(SIGKILL); }
    void signal(int number) { ::kill(static_cast<pid_t>(m_pid), number); }
    void start()
    {
        QProcess process;
        process.setProgram(SIMULATOR);
        process.setArguments({"--headless", "--port", QString::number(port)});
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.startDetached(&m_pid);
    }

    const quint16 port = free_port();

private:
    qint64 m_pid = 0;
};

// The longest time between two looks of the event loop.
class FreezeMeter : public QObject
{
public:
    FreezeMeter()
    {
        startTimer(10);
        m_clock.start();
    }
    qint64 worst = 0; ///< ms

protected:
    void timerEvent(QTimerEvent*) override { worst = std::max(worst, m_clock.restart()); }

private:
    QElapsedTimer m_clock;
};

void click(const QString& window, const char* button)
{
    driver::click(driver::find<QPushButton>(window, QLatin1String(button)));
}

QDoubleSpinBox& offset() { return driver::find<QDoubleSpinBox>(adjustment, "doubleSpinBox_x"); }

void close_one_window()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal))
        box->done(QMessageBox::No);
    else if (auto* dialog = qobject_cast<QDialog*>(modal))
        dialog->reject();
}

} // namespace

class TestControllerLoss : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void host_survives_and_tells_the_truth_data()
    {
        QTest::addColumn<QString>("moment");
        QTest::addColumn<QString>("fault");
        const bool all = qEnvironmentVariableIsSet("CONTROLLER_LOSS_ALL");
        const char* const moments[] = {"opening", "apply", "matching", "measuring"};
        const char* const faults[] = {"slow", "killed", "replaced", "stopped"};
        for (int m = 0; m < 4; ++m)
            for (int f = 0; f < 4; ++f)
                if (all || m == f)
                    QTest::addRow("%s, %s", moments[m], faults[f]) << moments[m] << faults[f];
    }

    void host_survives_and_tells_the_truth()
    {
        QFETCH(QString, moment);
        QFETCH(QString, fault);
        Controller controller;
        QTRY_VERIFY_WITH_TIMEOUT(tell(controller.port, "sim delay 0\n"), recovery_limit);
        Options options;
        options.plugin = PLUGIN_FILE;
        options.controller_host = "127.0.0.1";
        options.controller_port = controller.port;
        Session session(options);
        QVERIFY2(session.start(), qPrintable(session.error_text()));
        SimulatedPerson person("127.0.0.1", controller.port);
        person.act("delay 25");
        FreezeMeter meter;
        Stepper stepper;
        QSignalSpy failed(&stepper, &Stepper::failed), finished(&stepper, &Stepper::finished);
        std::thread culprit;
        const auto strike = [&] {
            culprit = std::thread([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(fault_delay));
                commit(fault, controller);
            });
        };
        reach(stepper, session, moment, strike);
        stepper.pause(loss_time);
        stepper.act("look at the status", [&] {
            culprit.join();
            const QString status = shown(session);
            const bool lost = fault == "killed" || fault == "stopped";
            if (status.contains("does not answer") != lost)
                throw DemoFailure("status: " + status);
        });
        stepper.act("mend it", [&] { mend(fault, controller); });
        stepper.await(
            "a controller again", [&] { return !shown(session).contains("does not answer"); },
            recovery_limit);
        for (int i = 0; i < 4; ++i)
            stepper.act("close a window", close_one_window);
        stepper.await("an end of dialogs", [] { return !QApplication::activeModalWidget(); });
        stepper.pause(500);
        work_as_before(stepper, session, person);
        QTimer closing; // the steps run within the dialogs' own loops, which must end first
        connect(&closing, &QTimer::timeout, close_one_window);
        connect(&stepper, &Stepper::failed, &closing, [&closing] { closing.start(100); });
        stepper.start();
        QTRY_VERIFY_WITH_TIMEOUT(failed.count() + finished.count() > 0, 60000);
        if (culprit.joinable())
            culprit.join();
        qInfo("longest freeze: %lld ms", static_cast<long long>(meter.worst));
        QVERIFY2(failed.isEmpty(),
                 failed.isEmpty() ? "" : qPrintable(failed.first().first().toString()));
        QVERIFY(meter.worst < longest_freeze);
    }

private:
    // On any thread.
    static bool tell(quint16 port, const QByteArray& line)
    {
        QTcpSocket socket;
        socket.connectToHost("127.0.0.1", port);
        return socket.waitForConnected(1000) && socket.write(line) > 0
               && socket.waitForReadyRead(1000);
    }

    static QString shown(Session& session)
    {
        QStringList texts;
        for (const QLabel* label : session.main_window().findChildren<QLabel*>())
            if (label->parent() == session.main_window().findChild<QStatusBar*>())
                texts += label->text();
        return texts.join(" / ");
    }

    static void commit(const QString& fault, Controller& controller)
    {
        if (fault == "slow" && !tell(controller.port, "sim delay 1900\n"))
            qWarning("the simulator was not told");
        if (fault != "slow")
            controller.signal(fault == "stopped" ? SIGSTOP : SIGKILL);
        if (fault == "replaced")
            controller.start();
    }

    static void mend(const QString& fault, Controller& controller)
    {
        if (fault == "slow" && !tell(controller.port, "sim delay 0\n"))
            qWarning("the simulator was not told");
        if (fault == "stopped")
            controller.signal(SIGCONT);
        if (fault == "killed")
            controller.start();
    }

    static void open(Session& session)
    {
        driver::menu_entry(session.main_window(), "Calibration", "Room adjustment").trigger();
    }

    static void open_fine_tab(Stepper& stepper, Session& session)
    {
        stepper.act("open", [&session] { open(session); });
        stepper.await("the dialog", [] { return driver::visible_window(adjustment); });
        stepper.pause(100);
        stepper.act("go to the fine tab",
                    [] { driver::show_tab(driver::find<QTabWidget>(adjustment, "tabWidget"), 1); });
    }

    static void match(Stepper& stepper)
    {
        stepper.act("match", [] { click(adjustment, "w_bodyMatchingButton"); });
        stepper.await("a tracked tool", [] {
            return driver::visible_window(matching)
                   && driver::find<QPushButton>(matching, "w_measureButton").isEnabled();
        });
    }

    static void reach(Stepper& stepper, Session& session, const QString& moment,
                      const std::function<void()>& strike)
    {
        if (moment == "opening") {
            stepper.act("open", [&session, strike] { strike(), open(session); });
            return;
        }
        open_fine_tab(stepper, session);
        if (moment == "apply") {
            stepper.act("change", [] { driver::type_number(offset(), 12.5); });
            stepper.act("apply", [strike] { strike(), click(adjustment, "btn_apply"); });
            return;
        }
        if (moment == "matching") {
            stepper.act("match", [strike] { strike(), click(adjustment, "w_bodyMatchingButton"); });
            return;
        }
        match(stepper);
        stepper.act("measure", [strike] { strike(), click(matching, "w_measureButton"); });
    }

    // A dialog, an Apply and tracked data, with no help but what any technician does.
    static void work_as_before(Stepper& stepper, Session& session, SimulatedPerson& person)
    {
        open_fine_tab(stepper, session);
        stepper.act("change", [] { driver::type_number(offset(), -77.0); });
        stepper.act("apply", [] { click(adjustment, "btn_apply"); });
        stepper.await("the settings", [&person] {
            return person.parameter("tracking extra_translation").front() == 77.0;
        });
        match(stepper);
        for (int i = 0; i < 2; ++i)
            stepper.act("close", close_one_window);
    }
};

QTEST_MAIN(TestControllerLoss)
#include "test_controllerloss.moc"
