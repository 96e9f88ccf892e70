// What goes wrong with the controller, at every call of every way through the dialog.
//
// Without CONTROLLER_FAULTS=all in the environment every seventh case runs, with another start in
// each way.
#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"
#include "tests/module/prescribedmessages.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"
#include "tests/support/measuring_tool.h"

#include <QtTest>
#include <QtWidgets>

#include <climits>
#include <cstring>

typedef std::vector<std::string> Log;

namespace
{

const char* const settings[] = {"tracking extra_rotation", "tracking extra_translation",
                                "tracking extra_scaling"};
const std::string old_values[] = {"0.00000000 1.00000000 0.00000000 -1.00000000 0.00000000 "
                                  "0.00000000 0.00000000 0.00000000 1.00000000",
                                  "1.000 2.000 3.500", "1.01000"};

typedef RoomAdjustmentDlg2g Dialog;

template <typename T = QPushButton>
T* child(QWidget* parent, const char* name)
{
    T* found = parent->findChild<T*>(name);
    if (!found)
        qFatal("no widget %s", name);
    return found;
}

void click(QWidget* parent, const char* name) { child(parent, name)->click(); }

/// One step of the person in front of the dialog; the name of a button presses it.
void take_step(Dialog* dialog, const char* step)
{
    if (QLatin1String(step) == "edit") {
        child<QDoubleSpinBox>(dialog, "doubleSpinBox_x")->setValue(12.5);
        child<QDoubleSpinBox>(dialog, "doubleSpinBox_rz")->setValue(30.0);
    } else if (QLatin1String(step) == "coarse") {
        child<QComboBox>(dialog, "comboBox_right")->setCurrentIndex(1);
    } else if (QLatin1String(step) == "fine tab") {
        child<QTabWidget>(dialog, "tabWidget")->setCurrentIndex(1);
    } else if (QLatin1String(step) == "Escape") {
        QTest::keyClick(dialog, Qt::Key_Escape);
    } else {
        click(dialog, step);
    }
}

void match(AbcMatchingDialog* matching)
{
    const double points[4][3] = {{0, 0, 0}, {100, 0, 0}, {0, 200, 0}, {0, 0, 300}};
    const QPointer<AbcMatchingDialog> still(matching);
    click(matching, "w_measureButton");
    if (!still)
        return;
    MeasuringTool tool(matching);
    QTableWidget* references = child<QTableWidget>(matching, "tableWidget_referencePoints");
    for (const auto& point : points) {
        click(matching, "pushButton_addRefPoint");
        for (int column = 0; column < 3; ++column)
            references->item(references->rowCount() - 1, column)
                ->setText(QString::number(point[column]));
        tool.measure(point[0] + 10.0, point[1], point[2]);
    }
    click(matching, "w_applyButton");
}

enum Writes
{
    nothing,
    taken_back,
    stays
};

struct Way
{
    const char* name;
    Writes writes; ///< what becomes of new settings
    std::vector<const char*> steps;
    const char* in_matching; ///< the step in the matching dialog, if it opens
};

const char matching[] = "w_bodyMatchingButton";
const Way ways[] = {
    {"opening", nothing, {}, ""},
    {"coarse, Apply", stays, {"coarse", "btn_apply"}, ""},
    {"fine, closed", nothing, {"edit"}, ""},
    {"fine, Apply", stays, {"edit", "btn_apply"}, ""},
    {"fine, OK", stays, {"edit", "btn_ok"}, ""},
    {"Apply, Cancel", taken_back, {"edit", "btn_apply", "btn_cancel"}, ""},
    {"Escape", nothing, {"edit", "Escape"}, ""},
    {"round trip", nothing, {"fine tab", matching}, ""},
    {"measurement, evaluation, OK", stays, {"fine tab", matching, "btn_ok"}, "match"},
    {"shutdown while matching", nothing, {"fine tab", matching}, "end"},
};
const Way look = {"next opening", nothing, {"btn_cancel"}, ""};

struct Fault
{
    const char* name;
    bool goes_on;       ///< with every call after the first
    const char* answer; ///< null: the call fails
    /// Happens while the host shows its message box.
    std::function<void(QPointer<Dialog>&)> in_box;
};

void end(QPointer<Dialog>& dialog)
{
    if (dialog)
        dialog->about_to_exit();
    delete dialog;
}

void press_everything(QPointer<Dialog>& dialog)
{
    for (const char* name : {"btn_apply", "btn_ok", "btn_cancel", "w_bodyMatchingButton"})
        if (dialog && dialog->isVisible())
            click(dialog, name);
    if (dialog)
        dialog->update_and_exec();
}

const std::string long_text(200, '1');
const std::vector<Fault> faults = {
    {"fails", false, nullptr, nullptr},
    {"fails from here on", true, nullptr, nullptr},
    {"no text", false, "", nullptr},
    {"199 characters", false, long_text.c_str() + 1, nullptr},
    {"200 characters, no terminator", false, long_text.c_str(), nullptr},
    {"a word", false, "mad", nullptr},
    {"not a number", false, "nan nan nan nan nan nan nan nan nan", nullptr},
    {"infinite", false, "inf inf inf inf inf inf inf inf inf", nullptr},
    {"decimal commas", false, "0,5 0,5 0,5 0,5 0,5 0,5 0,5 0,5 0,5", nullptr},
    {"-1", false, "-1", nullptr},
    {"2147483647", false, "2147483647", nullptr},
    {"message box", false, nullptr, [](QPointer<Dialog>&) {}},
    {"box, and everything is pressed", true, nullptr, press_everything},
    {"box, and the window is closed", false, nullptr,
     [](QPointer<Dialog>& dialog) {
         if (dialog)
             dialog->close();
     }},
    {"box, and the module ends", false, nullptr, end},
};

} // namespace

class TestControllerFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        install_fatal_logger();
        m_clock.setSingleShot(true);
        connect(&m_clock, &QTimer::timeout, this, &TestControllerFaults::act);
    }

    void cleanupTestCase() { std::printf("%d runs, %d losses\n", m_runs, m_losses); }

    void faults_at_every_call_data()
    {
        QTest::addColumn<int>("index");
        for (const Way& way : ways)
            QTest::newRow(way.name) << int(&way - ways);
    }

    void faults_at_every_call()
    {
        QFETCH(int, index);
        const Way& way = ways[index];
        QCOMPARE(run(way, nullptr, 0), std::string());
        const int calls = m_calls;
        const int first = index == 0 ? 0 : m_calls_at_opening; // the first way has the opening
        QVERIFY(calls > first);
        const int losses_before = m_losses;
        const int step = qgetenv("CONTROLLER_FAULTS") == "all" ? 1 : 7;
        const int cases = (calls - first) * int(faults.size());
        for (int i = index % step; i < cases; i += step) {
            const Fault& fault = faults[i % faults.size()];
            const int call = first + i / int(faults.size());
            const std::string loss = run(way, &fault, call);
            ++m_runs;
            m_losses += !loss.empty();
            if (!loss.empty()) {
                std::string log;
                for (const std::string& entry : m_controller->log)
                    log += "\n  " + entry;
                QWARN(qPrintable(QString("call %1 %2: %3%4")
                                     .arg(call)
                                     .arg(fault.name)
                                     .arg(loss.c_str())
                                     .arg(log.c_str())));
            }
        }
        QCOMPARE(m_losses, losses_before);
    }

private:
    /// One way with one fault; returns what is wrong afterwards.
    std::string run(const Way& way, const Fault* fault, int call)
    {
        prepare();
        if (fault) {
            m_controller->fault = {call, fault->goes_on ? INT_MAX : call, fault->answer};
            if (fault->in_box)
                m_controller->on_message = [this, fault] { show_box(*fault); };
        }
        exec(way);
        m_calls = m_controller->calls;
        const std::string loss = sound(way);
        if (!loss.empty())
            return loss;
        return usable_again() ? std::string() : "not usable at the next opening";
    }

    void prepare()
    {
        if (!m_dialog)
            m_controller.reset(new FakeController);
        m_controller->fault = FakeController::Fault();
        m_controller->on_message = nullptr;
        m_controller->values = FakeController().values;
        for (int i = 0; i < 3; ++i)
            m_controller->values[settings[i]] = old_values[i];
        if (!m_dialog)
            m_dialog = new Dialog(m_controller.get(), nullptr, &m_versions, "v2.0.5");
        m_controller->log.clear();
        m_controller->calls = 0;
        m_box_shown = m_everything_pressed = false;
    }

    void exec(const Way& way)
    {
        m_way = &way;
        m_in_dialog = true;
        m_clock.start(1);
        m_dialog->update_and_exec();
        m_clock.stop();
    }

    /// What the person does in front of whatever window is the front one.
    void act()
    {
        m_clock.start(1); // anew, as this one does not run again before it has returned
        QWidget* top = QApplication::activeModalWidget();
        if (QMessageBox* box = qobject_cast<QMessageBox*>(top)) {
            QAbstractButton* yes = box->button(QMessageBox::Yes);
            (yes ? yes : box->buttons().first())->click();
        } else if (AbcMatchingDialog* matching = qobject_cast<AbcMatchingDialog*>(top)) {
            const QPointer<AbcMatchingDialog> still(matching);
            if (QLatin1String(m_way->in_matching) == "match")
                match(matching);
            else if (QLatin1String(m_way->in_matching) == "end")
                end(m_dialog);
            if (still)
                still->close();
        } else if (top && top == m_dialog) {
            if (!m_in_dialog)
                return; // the step is under way, a window above has just closed
            m_in_dialog = false;
            m_calls_at_opening = m_controller->calls;
            if (m_way == &look)
                note_what_is_shown();
            for (const char* step : m_way->steps)
                if (m_dialog && m_dialog->isVisible())
                    take_step(m_dialog, step);
            if (m_dialog)
                m_dialog->close();
        }
    }

    void show_box(const Fault& fault)
    {
        const bool first = !m_box_shown;
        m_box_shown = true;
        QMessageBox box;
        if (first)
            QTimer::singleShot(0, &box, [&] {
                m_everything_pressed = fault.goes_on;
                fault.in_box(m_dialog);
            });
        box.addButton(QMessageBox::Ok);
        box.exec();
    }

    std::string sound(const Way& way) const
    {
        const Log& log = m_controller->log;
        bool set_failed[3] = {}, record_unread = false, stop_failed = false;
        std::string tried[3] = {old_values[0], old_values[1], old_values[2]};
        for (std::size_t i = 0; i < log.size(); ++i) {
            const bool failed = log[i].find(" -> failed") != std::string::npos;
            const bool odd = log[i].find(" -> odd") != std::string::npos;
            const std::string next = i + 1 < log.size() ? log[i + 1] : std::string();
            const bool told = begins_with(next, "message ");
            if (told && !failed && !odd)
                return "a message without a failure: " + next;
            if ((failed || odd)
                && !is_prescribed(log[i], told ? next.substr(8) : "", odd || !m_dialog))
                return "not prescribed after '" + log[i] + "': " + next;
            record_unread |= (failed || odd) && begins_with(log[i], "get tracking extra_");
            stop_failed |= (failed || odd)
                           && (begins_with(log[i], "get status") || begins_with(log[i], "do "));
            for (int s = 0; s < 3; ++s)
                if (begins_with(log[i], std::string("set ") + settings[s])) {
                    tried[s] = log[i].substr(5 + std::strlen(settings[s]));
                    set_failed[s] |= failed;
                }
        }
        const bool may_change = way.writes == stays || record_unread
                                || (way.writes == taken_back && m_box_shown)
                                || m_everything_pressed;
        bool all_old = true, all_new = may_change;
        for (int s = 0; s < 3; ++s) {
            const std::string now = m_controller->values[settings[s]];
            all_old &= set_failed[s] || now == old_values[s];
            all_new &= set_failed[s] || now == tried[s];
        }
        if (!all_old && !all_new)
            return "the settings do not belong together";
        if (m_dialog && !stop_failed && m_controller->values["status active"] != "idle")
            return "tracking runs on";
        return m_dialog && m_dialog->isVisible() ? "still open" : "";
    }

    void note_what_is_shown()
    {
        m_usable = child<QTabWidget>(m_dialog, "tabWidget")->isEnabled()
                   && child<QDoubleSpinBox>(m_dialog, "doubleSpinBox_y")->value() == -2.0;
    }

    /// Opens once more with a sound controller.
    bool usable_again()
    {
        prepare();
        m_usable = false;
        exec(look);
        return m_usable && m_controller->messages().empty()
               && m_controller->values[settings[1]] == old_values[1];
    }

    std::unique_ptr<FakeController> m_controller;
    BackendVersions m_versions = backend(1, 20);
    QPointer<Dialog> m_dialog;
    QTimer m_clock;
    const Way* m_way = nullptr;
    bool m_in_dialog = false; ///< the way's step in the dialog is still to come
    bool m_box_shown = false;
    bool m_everything_pressed = false; ///< Apply and OK as well
    bool m_usable = false;
    int m_calls_at_opening = 0;
    int m_calls = 0; ///< of the last way
    int m_runs = 0;
    int m_losses = 0;
};

QTEST_MAIN(TestControllerFaults)
#include "test_controller_faults.moc"
