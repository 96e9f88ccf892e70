// Lines from another thread at 500 Hz while the GUI thread edits, measures and closes.
#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"
#include "tests/support/measuring_tool.h"

#include <QtTest/QtTest>

#include <chrono>
#include <thread>

class TestDataThread : public QObject
{
    Q_OBJECT

private slots:
    void lines_arrive_while_a_person_works()
    {
        install_fatal_logger();
        FakeController controller;
        controller.values["measurementtool measurement_duration b01"] = "0.02";
        BackendVersions versions = backend(1, 20);
        RoomAdjustmentDlg2g dialog(&controller, nullptr, &versions, "v2.0.5");
        std::atomic<bool> stop(false);
        std::thread data([&dialog, &stop] { deliver(&dialog, &stop); });
        when_open<RoomAdjustmentDlg2g>([&](RoomAdjustmentDlg2g*) {
            dialog.findChild<QTabWidget*>("tabWidget")->setCurrentIndex(1);
            for (int opening = 0; opening < 3; ++opening) {
                when_open<AbcMatchingDialog>([&](AbcMatchingDialog* open) { work(open); });
                dialog.findChild<QPushButton*>("w_bodyMatchingButton")->click();
                QTest::qWait(20);
                dialog.findChild<QTabWidget*>("tabWidget")->setCurrentIndex(opening % 2);
            }
            dialog.close();
        });
        dialog.update_and_exec();
        stop = true;
        data.join();
        QCoreApplication::processEvents();
        QVERIFY(!QTest::currentTestFailed());
    }

private:
    /// A tool whose flag goes up and down, and whose button is pressed now and then.
    static void deliver(Requester* requester, std::atomic<bool>* stop)
    {
        char line[200];
        for (int frame = 0; !*stop; ++frame) {
            std::snprintf(line, sizeof line, "ts %.4f", frame * 0.002);
            requester->set_ascii_data("ts", line);
            const int buttons = frame % 100 == 0 ? 2 : frame % 50 < 30 ? 1 : 0;
            std::snprintf(line, sizeof line,
                          "6dmt2 1 1 [0 1.0 4 0][%d 2 3][1 0 0 0 1 0 0 0 1][%d][0 0 0 0 0 0]",
                          frame / 50, buttons);
            requester->set_ascii_data("6dmt2", line);
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    static void work(AbcMatchingDialog* open)
    {
        QTableWidget* table = open->findChild<QTableWidget*>("tableWidget_referencePoints");
        QComboBox* tools = open->findChild<QComboBox*>("comboBox_meatool");
        for (int i = 0; i < 15; ++i) {
            if (table->rowCount() < 3)
                open->findChild<QPushButton*>("pushButton_addRefPoint")->click();
            table->item(0, 0)->setText(QString::number(i));
            open->findChild<QPushButton*>("w_measureButton")->click();
            tools->setCurrentIndex(i % 8 == 7 ? 1 : 0);
            QTest::qWait(20);
        }
        QTRY_VERIFY(open->getMPCount() > 0);
        open->close();
    }
};

QTEST_MAIN(TestDataThread)
#include "test_datathread.moc"
