#include "benchmarks/endurance.h"

#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"
#include "tests/support/fake_controller.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <thread>

namespace
{

const int lines_per_second = 4000;  // half of them mutated
const int batch = 20;               // lines between two sleeps
const int script_step = 15;         // ms
const int heartbeat_step = 1;       // ms
const int turn = 160;               // lines until intact and mutated ones change places
const int settle_time = 60;         // s, after which memory should not grow any more
const double allowed_stall = 100.0; // ms
const double allowed_growth = 1.0;  // MB
const unsigned int most_points = 8; // of a list, so that the search stays short

typedef std::chrono::steady_clock Clock;

const char* const seeds[] = {
    "6dmt2 1 1 [0 1.0 4 0][%d 2 3][1 0 0 0 1 0 0 0 1][%d][0 0 0 0 0 0]",
    "6dmt2 2 2 [0 1.0 4 0][%d 2 3][1 0 0 0 1 0 0 0 1][%d][0 0 0 0 0 0] [1 -1.0 4 0][0 0 0][0 0]",
    "6dmt 1 [0 1.0 4][%d 2 3][1 0 0 0 1 0 0 0 1][%d]",
    "6df2 1 1 [0 1.0 6 2][%d 2 3][1 0 0 0 1 0 0 0 1][%d 0.25 -0.75]",
    "6df 1 [0 1.0 %d][10 20 30 1 2 3][1 0 0 0 1 0 0 0 1][%d]",
};
const char* const numbers[] = {"-1",  "4097", "2147483648", "1e999", "nan",
                               "inf", "0x10", "",           "[",     "]]"};

/// Lines as they come, in turns with such as should not: bytes changed, parts lost, doubled,
/// replaced.
class LineSource
{
public:
    std::string next(int frame)
    {
        char line[400];
        const bool is_mad = frame / turn % 2;
        if (frame % 3 == 0) {
            std::snprintf(line, sizeof line, "ts %.4f", frame * 0.0005);
        } else {
            const int flag = below(400) == 0 ? 2 : frame % turn < 100 ? 1 : 0;
            std::snprintf(line, sizeof line, seeds[is_mad ? below(5) : 0], frame / turn % 900,
                          flag);
        }
        std::string text = line;
        if (is_mad)
            for (int i = below(4); i >= 0; --i)
                mutate(text);
        return text.substr(0, text.find('\0'));
    }

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }

    void mutate(std::string& text)
    {
        const std::size_t at = text.empty() ? 0 : std::size_t(below(int(text.size())));
        switch (below(6)) {
        case 0:
            if (!text.empty())
                text[at] = char(below(256));
            break;
        case 1:
            text.erase(at, std::size_t(below(12)));
            break;
        case 2:
            text.insert(at, text.substr(at / 2, std::size_t(below(60))));
            break;
        case 3:
            text.replace(at, std::size_t(below(4)), numbers[below(10)]);
            break;
        case 4:
            text.resize(at);
            break;
        default:
            if (below(100) == 0)
                text.insert(at, std::string(12000, '7'));
        }
    }

    std::mt19937 m_random{7};
};

void deliver(Requester& requester, const std::atomic<bool>& stop, std::atomic<long>& delivered)
{
    LineSource source;
    Clock::time_point next = Clock::now();
    for (int frame = 0; !stop; ++frame) {
        const std::string line = source.next(frame);
        const std::string type = line.substr(0, line.find(' '));
        requester.set_ascii_data(type.c_str(), line.c_str());
        ++delivered;
        if (frame % batch == 0) {
            next += std::chrono::microseconds(1000000 * batch / lines_per_second);
            std::this_thread::sleep_until(next);
        }
    }
}

/// Longest time in ms between two turns of the event loop: by the clock, and without the time for
/// which the thread was ready to run and other programs had the processors.
class Heartbeat
{
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { beat(); });
        m_timer.start(heartbeat_step);
    }

    double longest = 0.0;
    double longest_own = 0.0;

private:
    static double waited_for_processor()
    {
        QFile file("/proc/thread-self/schedstat");
        return file.open(QIODevice::ReadOnly) ? 1e-6 * file.readAll().split(' ').value(1).toDouble()
                                              : 0.0;
    }

    void beat()
    {
        const Clock::time_point now = Clock::now();
        const double waited = waited_for_processor();
        const double stall = std::chrono::duration<double, std::milli>(now - m_last).count();
        longest = std::max(longest, stall);
        longest_own = std::max(longest_own, stall - (waited - m_waited));
        m_last = now;
        m_waited = waited;
    }

    QTimer m_timer;
    Clock::time_point m_last = Clock::now();
    double m_waited = waited_for_processor();
};

/// The person: at each step does something to whatever window is on top.
class Script
{
public:
    Script(RoomAdjustmentDlg2g& dialog, FakeController& controller)
        : m_dialog(dialog), m_controller(controller)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            // Not in the timer's own call: what is done may run an event loop, in which the timer
            // has to go on.
            QTimer::singleShot(0, [this] { step(); });
        });
        m_timer.start(script_step);
    }

    void end() { m_is_ending = true; }

    int openings = 0, matchings = 0, edits = 0, measured = 0, boxes = 0;

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }

    void step()
    {
        m_controller.log.clear();
        QWidget* top = QApplication::activeModalWidget();
        if (QMessageBox* box = qobject_cast<QMessageBox*>(top)) {
            ++boxes;
            box->buttons().at(below(box->buttons().size()))->click();
        } else if (AbcMatchingDialog* matching = qobject_cast<AbcMatchingDialog*>(top)) {
            m_is_ending || below(60) == 0 ? matching->reject() : edit(*matching);
        } else if (top == &m_dialog) {
            m_is_ending || below(40) == 0 ? static_cast<void>(m_dialog.close()) : change();
        } else if (!top && m_is_ending) {
            qApp->quit();
        } else if (!top) {
            ++openings;
            m_dialog.update_and_exec();
        }
    }

    void change()
    {
        m_dialog.findChild<QTabWidget*>("tabWidget")->setCurrentIndex(below(5) != 0);
        switch (below(4)) {
        case 0:
            m_dialog.findChild<QDoubleSpinBox*>("doubleSpinBox_rx")->setValue(below(360) - 179);
            break;
        case 1:
            m_dialog.findChild<QPushButton*>("btn_apply")->click();
            break;
        default:
            ++matchings;
            m_dialog.findChild<QPushButton*>("w_bodyMatchingButton")->click();
        }
    }

    void edit(AbcMatchingDialog& matching)
    {
        ++edits;
        measured = std::max(measured, int(matching.getMPCount()));
        QTableWidget& table = *matching.findChild<QTableWidget*>("tableWidget_referencePoints");
        if (matching.getMPCount() > most_points)
            matching.findChild<QPushButton*>("pushButton_clearMeaPoints")->click();
        else if (table.rowCount() == 0 || (below(6) == 0 && table.rowCount() < int(most_points)))
            matching.findChild<QPushButton*>("pushButton_addRefPoint")->click();
        else
            touch(matching, table);
    }

    void touch(AbcMatchingDialog& matching, QTableWidget& table)
    {
        const int row = below(table.rowCount());
        switch (below(10)) {
        case 0:
            matching.findChild<QPushButton*>("w_measureButton")->click();
            break;
        case 1:
            matching.findChild<QCheckBox*>("w_orderCheckBox")->toggle();
            break;
        case 2:
            matching.findChild<QComboBox*>("comboBox_meatool")->setCurrentIndex(below(2));
            break;
        case 3:
            table.setCurrentCell(row, 0);
            matching.findChild<QPushButton*>("pushButton_removeRefPoint")->click();
            break;
        case 4:
            table.item(row, below(3))->setText(numbers[below(10)]);
            break;
        default:
            table.item(row, below(3))->setText(QString::number(below(2000) - 1000));
        }
    }

    RoomAdjustmentDlg2g& m_dialog;
    FakeController& m_controller;
    QTimer m_timer;
    std::mt19937 m_random{3};
    bool m_is_ending = false;
};

} // namespace

int hostile(int seconds)
{
    FakeController controller;
    controller.values["measurementtool measurement_duration b01"] = "0.02";
    BackendVersions versions = backend(1, 20);
    RoomAdjustmentDlg2g dialog(&controller, nullptr, &versions, "v2.0.5");
    qApp->setQuitOnLastWindowClosed(false);
    std::atomic<bool> stop(false);
    std::atomic<long> delivered(0);
    std::thread data([&] { deliver(dialog, stop, delivered); });
    Script script(dialog, controller);
    Heartbeat heartbeat;
    Holdings settled = holdings();
    QTimer::singleShot(1000 * std::min(settle_time, (seconds + 9) / 10), [&] {
        settled = holdings();
        print("settled", settled);
    });
    QTimer minutes;
    QObject::connect(&minutes, &QTimer::timeout, [] { print("a minute later", holdings()); });
    minutes.start(60000);
    QTimer::singleShot(1000 * seconds, [&] { script.end(); });
    const Clock::time_point start = Clock::now();
    qApp->exec();
    const double passed = std::chrono::duration<double>(Clock::now() - start).count();
    stop = true;
    data.join();
    QCoreApplication::processEvents();
    const Holdings late = holdings();
    print("at the end", late);
    std::printf("%.0f s, %.0f lines a second, half of them mutated, %d openings, %d matchings, %d "
                "edits, %d boxes, "
                "up to %d measured points\n",
                passed, double(delivered) / passed, script.openings, script.matchings, script.edits,
                script.boxes, script.measured);
    std::printf("longest stall %.1f ms by the clock, %.1f ms of it our own (allowed %.0f); "
                "growth %.2f MB (allowed %.1f)\n",
                heartbeat.longest, heartbeat.longest_own, allowed_stall,
                late.memory - settled.memory, allowed_growth);
    return heartbeat.longest_own <= allowed_stall && late.memory - settled.memory <= allowed_growth
               ? 0
               : 1;
}
