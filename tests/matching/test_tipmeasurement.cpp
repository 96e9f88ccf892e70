// The tip measurement: states, judgement and texts, and what the start asks of the controller.
#include "tests/matching/matchingfixture.h"

#include <thread>

typedef std::vector<std::string> Log;

namespace
{

const QString failed = "Measurement failed :\n";
const QString short_failure = failed + "Tip moved too much during measurement";

} // namespace

class TestTipMeasurement : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        start();
        exec(); // selects tool 1; the data path then works with the dialog closed, too
        controller->log.clear();
    }

    void a_measurement_is_judged()
    {
        const QString few = "Cannot evaluate the transformation : not enough points.";
        // Duration 1 s and tolerance 1.5 mm, as long as nobody has started by the button.
        // The time line of the frame that ends it still counts, with the tool's last record.
        const struct
        {
            int frames;
            double shake;
            unsigned points;
            QString text;
        } rows[] = {
            {0, 0, 0, ""},
            {3, 0, 0, short_failure},
            {4, 0, 1, few},
            {6, 2, 0, short_failure + ":\n\to Variance = 4.00\n\to Standard deviation = 2.00"},
            {6, 1.5, 1, few}}; // just the tolerance
        for (const auto& row : rows) {
            init();
            for (int i = 0; i < row.frames; ++i)
                feed(1, 10.0 + (i % 2 ? row.shake : -row.shake));
            feed(0, tool->x);
            QCOMPARE(dialog->getMPCount(), row.points);
            QCOMPARE(report(), row.text);
            QVERIFY(!row.points || std::abs(dialog->getMP(0).x - 10.0) < 1e-12);
        }
    }

    void what_is_no_measurement_goes_unreported()
    {
        for (int buttons : {1, 0}) { // a single sample
            tool->buttons = buttons;
            dialog->set_ascii_data("6dmt2", tool->line().constData());
        }
        answer("measurement_duration b01", "0");
        dialog->on_w_measureButton_clicked();
        feed(0);
        feed(0);
        answer("tip_calibrated b01", "0");
        exec();
        tool->measure(1, 2, 3, 6); // the tool that is not selected
        QVERIFY(report().isEmpty() && dialog->getMPCount() == 0);
    }

    void a_lost_tool_ends_the_measurement()
    {
        feed(1);
        feed(1);
        for (double quality : {0.999, -1.0}) {
            tool->quality = quality;
            feed(1);
            QCOMPARE(report(), short_failure);
        }
    }

    void a_held_start_button_pauses_and_asks_with_every_line()
    {
        QSignalSpy started(dialog.get(), SIGNAL(startTipMea()));
        for (int buttons : {1, 1, 1 | 4, 1 | 4})
            feed(buttons);
        QCOMPARE(started.count(), 3); // two tool lines and the time line between them
        QCOMPARE(report(), QString());
        feed(1);
        feed(0);
        QCOMPARE(dialog->getMPCount(), 1u);
        started.clear();
        const char* const stick = "6df2 1 1 [0 1.0 2 0][0 0 0][1 0 0 0 1 0 0 0 1][2]";
        QCOMPARE(dialog->set_ascii_data("6df2", stick), 0);
        QVERIFY(started.count() == 1 && dialog->isWandButtonPressed());
    }

    void a_held_button_leaves_one_start_waiting()
    {
        QSignalSpy started(dialog.get(), SIGNAL(startTipMea()));
        tool->buttons = 2;
        for (int i = 0; i < 2; ++i) {
            std::thread([this] {
                for (int frame = 0; frame < 60; ++frame)
                    dialog->set_ascii_data("6dmt2", tool->line().constData());
            }).join();
            QCoreApplication::processEvents();
        }
        QCOMPARE(started.count(), 120);
        QCOMPARE(controller->sent().size(), std::size_t(2));
    }

    void endless_measurements_are_given_up()
    {
        const QByteArray measuring = (tool->buttons = 1, tool->line());
        for (int i = 0; i < 100002; ++i)
            dialog->set_ascii_data("6dmt2", measuring.constData());
        QCOMPARE(report(), failed + "The tool went on measuring for more than 100000 samples.");
        feed(1);
        feed(0);
        QCOMPARE(dialog->getMPCount(), 0u);
        for (int i = 0; i < 1001; ++i)
            tool->measure(1, 2, 3);
        QCOMPARE(report(), failed + "The table holds no more than 1000 points.");
        QCOMPARE(dialog->getMPCount(), 1000u);
        QVERIFY(measurements()->viewport()->rect().intersects(
            measurements()->visualItemRect(measurements()->item(999, 0))));
        QVERIFY(measurements()->selectedItems().isEmpty());
    }

    void a_start_asks_and_says()
    {
        const QString no_tolerance = "Error : Unable to get tip tolerance of measurement tool";
        const QString not_started = "Error : Unable to start measurement tool measurement";
        const struct
        {
            const char *duration, *tolerance; // replies; none is a failure
            const char* failing;
            int maximum;
            double tolerated;
            QString message;
        } rows[] = {
            {"0.5", "2.5", "-", 50, 2.5, ""},           {"", "2.5", "-", 100, 2.5, ""},
            {"inf", "2.5", "-", 100, 2.5, ""},          {"0.5", "", "-", 50, 1.5, no_tolerance},
            {"0.5", "nan", "-", 50, 1.5, no_tolerance}, {"0.5", "2.5", "do", 50, 2.5, not_started}};
        for (const auto& row : rows) {
            init();
            answer("measurement_duration b01", row.duration);
            answer("measurement_tip_tolerance b01", row.tolerance);
            controller->failing.push_back(row.failing);
            dialog->on_w_measureButton_clicked();
            Log said;
            for (const std::string& entry : controller->log)
                if (entry.find("message") != 0)
                    said.push_back(entry.substr(0, entry.find(" -> ")));
            QCOMPARE(said, (Log{"get measurementtool measurement_duration b01",
                                "get measurementtool measurement_tip_tolerance b01",
                                "do zetrak2 measurementtool start_measurement b01"}));
            QCOMPARE(child<QProgressBar>("progressBar")->maximum(), row.maximum);
            QCOMPARE(controller->messages(),
                     row.message.isEmpty() ? Log{} : Log{row.message.toStdString()});
            for (double beyond : {0.0, 0.01}) {
                feed(0);
                for (int i = 0; i < 8; ++i)
                    feed(1, (row.tolerated + beyond) * (i % 2 ? 1 : -1));
                tool->buttons = 0;
                dialog->set_ascii_data("6dmt2", tool->line().constData());
                QCOMPARE(dialog->getMPCount(), 1u);
            }
        }
    }

    void progress_runs_in_hundredths()
    {
        QSignalSpy progress(dialog.get(), SIGNAL(do_updateProgressbar(double)));
        feed(1);
        QCOMPARE(progress.count(), 0);
        feed(1);
        QCOMPARE(progress.last()[0].toDouble(), 0.25);
        QCOMPARE(child<QProgressBar>("progressBar")->value(), 25);
        feed(0);
        QCOMPARE(progress.last()[0].toDouble(), 0.0);
    }

    void lines_are_looked_at_or_rejected_whole()
    {
        for (const QByteArray line_type : {"6dmt2", "6dmt", "6dmt ", "6dmt x"}) {
            QSignalSpy progress(dialog.get(), SIGNAL(do_updateProgressbar(double)));
            QCOMPARE(dialog->set_ascii_data(line_type, tool->line().constData()), 0);
            QCOMPARE(progress.isEmpty(), line_type.startsWith("6dmt ")); // those are parsed only
        }
        QByteArray longest = tool->line();
        longest += QByteArray(10239 - longest.size(), ' ');
        const std::pair<QByteArray, int> rows[] = {{longest, 0},
                                                   {longest + ' ', -2},
                                                   {QByteArray(1 << 20, '['), -2},
                                                   {"6dmt2 1 2000000000 ", -2},
                                                   {"6dmt2 1 -1 ", -2},
                                                   {"", 0}};
        for (const auto& [line, result] : rows)
            QCOMPARE(dialog->set_ascii_data("6dmt2", line.constData()), result);
        QCOMPARE(dialog->set_ascii_data("6dmt2", nullptr), -2);
        QCOMPARE(dialog->set_ascii_data(nullptr, ""), -2);
    }

private:
    /// One frame with these buttons.
    void feed(int buttons, double x = 0.0)
    {
        tool->buttons = buttons;
        tool->x = x;
        QCOMPARE(tool->frame(), 0);
    }
};

QTEST_MAIN(TestTipMeasurement)
#include "test_tipmeasurement.moc"
