// The tip measurement: states, judgement and texts, and what the start asks of the controller.
#include "tests/matching/matchingfixture.h"

#include <thread>

typedef std::vector<std::string> Log;

namespace
{

const char* const short_failure = "Measurement failed :\nTip moved too much during measurement";

}

class TestTipMeasurement : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void init()
    {
        start();
        // An opening selects tool 1; the data path then works with the dialog closed, too.
        exec([] {});
        controller->log.clear();
    }

    void judgement_data()
    {
        QTest::addColumn<int>("frames");
        QTest::addColumn<double>("shake");
        QTest::addColumn<int>("points");
        QTest::addColumn<QString>("text");
        const QString few = "Cannot evaluate the transformation : not enough points.";
        // Duration 1 s and tolerance 1.5 mm, as long as nobody has started by the button.
        // The time line of the frame that ends it still counts, with the tool's last record.
        QTest::newRow("full length, still") << 4 << 0.0 << 1 << few;
        QTest::newRow("a frame too short") << 3 << 0.0 << 0 << short_failure;
        QTest::newRow("moved") << 6 << 2.0 << 0
                               << QString(short_failure)
                                      + ":\n\to Variance = 4.00\n\to Standard deviation = 2.00";
        QTest::newRow("moved by just the tolerance") << 6 << 1.5 << 1 << few;
    }

    void judgement()
    {
        QFETCH(int, frames);
        QFETCH(double, shake);
        tool->buttons = 1;
        for (int i = 0; i < frames; ++i) {
            tool->x = 10.0 + (i % 2 ? shake : -shake);
            feed_once();
        }
        tool->buttons = 0;
        feed_once();
        QTEST(int(dialog->getMPCount()), "points");
        QTEST(report(), "text");
        if (dialog->getMPCount())
            QVERIFY(std::abs(dialog->getMP(0).x - 10.0) < 1e-12);
    }

    void one_sample_goes_unreported()
    {
        tool->buttons = 1;
        dialog->set_ascii_data("6dmt2", tool->line().constData());
        tool->buttons = 0;
        dialog->set_ascii_data("6dmt2", tool->line().constData());
        QCOMPARE(report(), QString());
        QCOMPARE(dialog->getMPCount(), 0u);
    }

    void a_duration_of_zero_does_not_make_points_of_nothing()
    {
        controller->values["measurementtool measurement_duration b01"] = "0";
        dialog->on_w_measureButton_clicked();
        feed_once();
        feed_once();
        QCOMPARE(dialog->getMPCount(), 0u);
    }

    void a_lost_tool_ends_the_measurement()
    {
        tool->buttons = 1;
        feed_once();
        feed_once();
        tool->quality = 0.999;
        feed_once();
        QCOMPARE(report(), QString(short_failure));
        tool->quality = -1.0;
        feed_once();
        QCOMPARE(report(), QString(short_failure));
    }

    void a_held_start_button_pauses_and_asks_with_every_line()
    {
        QSignalSpy started(dialog.get(), SIGNAL(startTipMea()));
        tool->buttons = 1;
        feed_once();
        feed_once();
        tool->buttons = 1 | 4;
        feed_once();
        feed_once();
        QCOMPARE(started.count(), 3); // two tool lines and the time line between them
        QCOMPARE(report(), QString());
        tool->buttons = 1;
        feed_once();
        tool->buttons = 0;
        feed_once();
        QCOMPARE(dialog->getMPCount(), 1u);
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
        QCOMPARE(report(), QString("Measurement failed :\nThe tool went on measuring for more than "
                                   "100000 samples."));
        feed_once();
        tool->buttons = 0;
        feed_once();
        QCOMPARE(dialog->getMPCount(), 0u);
        for (int i = 0; i < 1001; ++i)
            tool->measure(1, 2, 3);
        QCOMPARE(report(),
                 QString("Measurement failed :\nThe table holds no more than 1000 points."));
        QCOMPARE(dialog->getMPCount(), 1000u);
        QVERIFY(measurements()->viewport()->rect().intersects(
            measurements()->visualItemRect(measurements()->item(999, 0))));
        QVERIFY(measurements()->selectedItems().isEmpty());
    }

    void a_stick_button_starts_too()
    {
        QSignalSpy started(dialog.get(), SIGNAL(startTipMea()));
        feed_once();
        const char* const pressed = "6df2 1 1 [0 1.0 2 0][0 0 0][1 0 0 0 1 0 0 0 1][2]";
        QCOMPARE(dialog->set_ascii_data("6df2", pressed), 0);
        QCOMPARE(started.count(), 1);
        QVERIFY(dialog->isWandButtonPressed());
    }

    void what_a_start_says_data()
    {
        QTest::addColumn<QString>("duration"); // replies; none is a failure
        QTest::addColumn<QString>("tolerance");
        QTest::addColumn<bool>("starts");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<double>("tolerated");
        QTest::addColumn<QString>("message");
        const QString no_tolerance = "Error : Unable to get tip tolerance of measurement tool";
        QTest::newRow("all well") << "0.5"
                                  << "2.5" << true << 50 << 2.5 << "";
        QTest::newRow("no duration is silent") << ""
                                               << "2.5" << true << 100 << 2.5 << "";
        QTest::newRow("nor is an endless one") << "inf"
                                               << "2.5" << true << 100 << 2.5 << "";
        QTest::newRow("no tolerance") << "0.5"
                                      << "" << true << 50 << 1.5 << no_tolerance;
        QTest::newRow("one that is no number") << "0.5"
                                               << "nan" << true << 50 << 1.5 << no_tolerance;
        QTest::newRow("not started") << "0.5"
                                     << "2.5" << false << 50 << 2.5
                                     << "Error : Unable to start measurement tool measurement";
    }

    void what_a_start_says()
    {
        QFETCH(QString, duration);
        QFETCH(QString, tolerance);
        QFETCH(bool, starts);
        QFETCH(double, tolerated);
        QFETCH(QString, message);
        answer("measurementtool measurement_duration b01", duration);
        answer("measurementtool measurement_tip_tolerance b01", tolerance);
        if (!starts)
            controller->failing.push_back("do ");
        dialog->on_w_measureButton_clicked();
        Log said;
        for (const std::string& entry : controller->log)
            if (entry.find("message") != 0)
                said.push_back(entry.substr(0, entry.find(" -> ")));
        QCOMPARE(said, (Log{"get measurementtool measurement_duration b01",
                            "get measurementtool measurement_tip_tolerance b01",
                            "do zetrak2 measurementtool start_measurement b01"}));
        QTEST(dialog->findChild<QProgressBar*>("progressBar")->maximum(), "maximum");
        QCOMPARE(controller->messages(), message.isEmpty() ? Log{} : Log{message.toStdString()});

        shaken_measurement(tolerated);
        QCOMPARE(dialog->getMPCount(), 1u);
        shaken_measurement(tolerated + 0.01);
        QCOMPARE(dialog->getMPCount(), 1u);
    }

    void progress_runs_in_hundredths()
    {
        QSignalSpy progress(dialog.get(), SIGNAL(do_updateProgressbar(double)));
        tool->buttons = 1;
        feed_once();
        QCOMPARE(progress.count(), 0);
        feed_once();
        QCOMPARE(progress.last()[0].toDouble(), 0.25);
        QCOMPARE(dialog->findChild<QProgressBar*>("progressBar")->value(), 25);
        tool->buttons = 0;
        feed_once();
        QCOMPARE(progress.last()[0].toDouble(), 0.0);
    }

    void which_lines_are_looked_at_data()
    {
        QTest::addColumn<QString>("line_type");
        QTest::addColumn<bool>("analysed");
        QTest::newRow("6dmt2") << "6dmt2" << true;
        QTest::newRow("6dmt") << "6dmt" << true;
        QTest::newRow("6dmt with a blank is parsed only") << "6dmt " << false;
        QTest::newRow("whatever stands behind it") << "6dmt x" << false;
    }

    void which_lines_are_looked_at()
    {
        QFETCH(QString, line_type);
        QSignalSpy progress(dialog.get(), SIGNAL(do_updateProgressbar(double)));
        QCOMPARE(dialog->set_ascii_data(qPrintable(line_type), tool->line().constData()), 0);
        QTEST(!progress.isEmpty(), "analysed");
    }

    void hostile_lines_are_rejected_whole()
    {
        QByteArray longest = tool->line();
        longest += QByteArray(10239 - longest.size(), ' ');
        QCOMPARE(dialog->set_ascii_data("6dmt2", longest.constData()), 0);
        QCOMPARE(dialog->set_ascii_data("6dmt2", (longest + ' ').constData()), -2);
        QCOMPARE(dialog->set_ascii_data("6dmt2", QByteArray(1 << 20, '[').constData()), -2);
        QCOMPARE(dialog->set_ascii_data("6dmt2", "6dmt2 1 2000000000 "), -2);
        QCOMPARE(dialog->set_ascii_data("6dmt2", "6dmt2 1 -1 "), -2);
        QCOMPARE(dialog->set_ascii_data("x", ""), 0);
    }

    void another_tool_is_not_taken()
    {
        controller->values["measurementtool tip_calibrated b01"] = "0";
        exec([] {});
        tool->measure(1, 2, 3, 6);
        QCOMPARE(dialog->getMPCount(), 0u);
    }

private:
    void feed_once() { QCOMPARE(tool->frame(), 0); }

    void shaken_measurement(double shake)
    {
        tool->buttons = 0;
        feed_once();
        for (int i = 0; i < 8; ++i) {
            tool->buttons = 1;
            tool->x = i % 2 ? shake : -shake;
            dialog->set_ascii_data("6dmt2", tool->line().constData());
            tool->time += 0.25;
            dialog->set_ascii_data("ts", qPrintable(QString("ts %1").arg(tool->time)));
        }
        tool->buttons = 0;
        dialog->set_ascii_data("6dmt2", tool->line().constData());
    }
};

QTEST_MAIN(TestTipMeasurement)
#include "test_tipmeasurement.moc"
