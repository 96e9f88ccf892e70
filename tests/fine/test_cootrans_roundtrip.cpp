// To the matching dialog and back: the controller always ends with what it had.
#include "controller/roomadjustmentdata.h"
#include "fine/cootrans.h"
#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>
#include <QtWidgets/QDoubleSpinBox>

typedef std::vector<std::string> Log;

namespace
{

const std::string turned = "0.00000000 1.00000000 0.00000000 -1.00000000 0.00000000 0.00000000 "
                           "0.00000000 0.00000000 1.00000000";

const Log before = {
    "get tracking extra_translation",
    "get tracking extra_rotation",
    "get tracking extra_scaling",
    "get status active",
    "do zetrak2 tracking stop",
    "set tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
    "0.00000000 0.00000000 0.00000000 1.00000000",
    "set tracking extra_translation 0.000 0.000 0.000",
    "set tracking extra_scaling 1.00000",
    "do zetrak2 tracking start",
};
const Log tools = {
    "get measurementtool number_of_tools",
    "get measurementtool tip_calibrated b01", // available
    "get measurementtool tip_calibrated b01", // the tool list
    "get measurementtool tip_calibrated b02",
};
const Log after = {
    "get status active",
    "do zetrak2 tracking stop",
    "set tracking extra_rotation " + turned,
    "set tracking extra_translation 1.000 2.000 3.500",
    "set tracking extra_scaling 1.01000",
    "do zetrak2 tracking start",
};

} // namespace

class TestCooTransRoundtrip : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void the_whole_log_with_a_transformation_in_force()
    {
        FakeController controller;
        turn(controller);
        Log expected = before;
        expected.insert(expected.end(), tools.begin(), tools.end());
        expected.insert(expected.end(), after.begin(), after.end());
        QCOMPARE(round_trip(controller, false), expected);
    }

    void with_the_default_in_force_nothing_is_sent_and_tracking_goes_on()
    {
        FakeController controller;
        Log expected(before.begin(), before.begin() + 3);
        expected.insert(expected.end(), tools.begin(), tools.end());
        QCOMPARE(round_trip(controller, false), expected);
    }

    void sums_that_agree_count_as_default()
    {
        FakeController controller;
        controller.values["tracking extra_translation"] = "5.000 -5.000 0.000";
        QCOMPARE(round_trip(controller, false).size(), std::size_t(3 + 4));
        QCOMPARE(controller.values["tracking extra_translation"],
                 std::string("5.000 -5.000 0.000"));
    }

    void each_call_fails_in_turn_and_the_old_values_come_back()
    {
        const int calls_total = 6 + 3 + 4 + 6;
        for (int failing = 0; failing < calls_total; ++failing) {
            FakeController controller;
            turn(controller);
            const Log log = round_trip(controller, false, failing);
            const std::string failed = find_failed(log);
            QVERIFY2(!failed.empty(), qPrintable(QString::number(failing)));
            // Only a failed write of the old values themselves can leave them changed.
            const bool restoring_failed = failed.find(turned) != std::string::npos
                                          || failed.find("1.000 2.000 3.500") != std::string::npos
                                          || failed.find("1.01000") != std::string::npos;
            if (!restoring_failed)
                QVERIFY2(holds_the_old_values(controller), failed.c_str());
            QCOMPARE(controller.messages().size(), std::size_t(1));
            if (QTest::currentTestFailed())
                return;
        }
    }

    void ok_brings_the_result_into_the_numbers_and_not_to_the_controller()
    {
        FakeController controller;
        turn(controller);
        round_trip(controller, true);
        QCOMPARE(controller.values["tracking extra_translation"], std::string("1.000 2.000 3.500"));
        // Measured = reference turned by 90 degrees about z and moved by (100, 0, 0).
        QVERIFY(std::abs(shown[0] - 0.0) < 0.006 && std::abs(shown[1] + 100.0) < 0.006);
        QCOMPARE(shown[3], 90.0);
        QVERIFY(apply_enabled);
    }

    void unsaved_numbers_are_protected_data()
    {
        QTest::addColumn<bool>("yes");
        QTest::newRow("Yes: nothing else happens") << true;
        QTest::newRow("No: the numbers go back to the record") << false;
    }

    void unsaved_numbers_are_protected()
    {
        QFETCH(bool, yes);
        FakeController controller;
        edit_before = true;
        BoxAnswer answer(yes ? QMessageBox::Yes : QMessageBox::No);
        const Log log = round_trip(controller, false);
        edit_before = false;
        QVERIFY(answer.seen);
        QCOMPARE(answer.text, QString("You have unsaved data. Save changes?\n\n"
                                      "(If yes press 'Apply' and re-open matching)"));
        QCOMPARE(answer.default_button, int(QMessageBox::No));
        QCOMPARE(log.empty(), yes);
        QCOMPARE(shown[0], yes ? 77.0 : 0.0);
    }

private:
    static void turn(FakeController& controller)
    {
        controller.values["tracking extra_rotation"] = turned;
        controller.values["tracking extra_translation"] = "1.000 2.000 3.500";
        controller.values["tracking extra_scaling"] = "1.01000";
        controller.values["status active"] = "mea";
    }

    static bool holds_the_old_values(FakeController& controller)
    {
        return controller.values["tracking extra_rotation"] == turned
               && controller.values["tracking extra_translation"] == "1.000 2.000 3.500"
               && controller.values["tracking extra_scaling"] == "1.01000";
    }

    static std::string find_failed(const Log& log)
    {
        for (const std::string& entry : log)
            if (entry.find(" -> failed") != std::string::npos)
                return entry;
        return std::string();
    }

    /// Opens the room dialog, goes to matching and back; returns what the trip itself said.
    Log round_trip(FakeController& controller, bool accept, int failing = -1)
    {
        BackendVersions versions = backend(1, 20);
        RoomAdjustmentDlg2g dialog(&controller, nullptr, &versions, "v2.0.5");
        Log log;
        when_open<RoomAdjustmentDlg2g>([&](RoomAdjustmentDlg2g*) {
            CooTrans* tab = dialog.findChild<CooTrans*>();
            dialog.findChild<QPushButton*>("btn_apply")->setEnabled(false);
            if (edit_before)
                tab->findChild<QDoubleSpinBox*>("doubleSpinBox_x")->setValue(77.0);
            when_open<AbcMatchingDialog>([&](AbcMatchingDialog* matching) {
                if (accept)
                    match(matching);
                else
                    matching->close();
            });
            const std::size_t start = controller.log.size();
            controller.failing_call = failing < 0 ? -1 : controller.calls + failing;
            tab->on_w_bodyMatchingButton_clicked();
            log = controller.log_since(start);
            const char* const names[] = {"x", "y", "z", "rz"};
            for (int i = 0; i < 4; ++i)
                shown[i] =
                    tab->findChild<QDoubleSpinBox*>(QString("doubleSpinBox_%1").arg(names[i]))
                        ->value();
            apply_enabled = dialog.findChild<QPushButton*>("btn_apply")->isEnabled();
            dialog.close();
        });
        dialog.update_and_exec();
        close_all_dialogs();
        return log;
    }

    /// Types three reference points and measures them, turned by 90 degrees about z and moved.
    static void match(AbcMatchingDialog* matching)
    {
        const double reference[3][2] = {{0, 0}, {200, 0}, {0, 300}};
        QTableWidget* table = matching->findChild<QTableWidget*>("tableWidget_referencePoints");
        for (int i = 0; i < 3; ++i) {
            matching->findChild<QPushButton*>("pushButton_addRefPoint")->click();
            for (int column = 0; column < 2; ++column)
                table->item(i, column)->setText(QString::number(reference[i][column]));
        }
        for (int i = 0; i < 3; ++i)
            measure(matching, 100.0 - reference[i][1], reference[i][0]);
        QVERIFY(matching->checkApplyTrafo());
        matching->findChild<QPushButton*>("w_applyButton")->click();
    }

    static void measure(AbcMatchingDialog* matching, double x, double y)
    {
        const char* const frame =
            "6dmt2 1 1 [0 1.0 4 0][%1 %2 0][1 0 0 0 1 0 0 0 1][%3][0 0 0 0 0 0]";
        static double time = 0.0;
        for (int i = 0; i < 4; ++i, time += 0.5) {
            const QString flag = i < 3 ? "1" : "0";
            matching->set_ascii_data("ts", qPrintable(QString("ts %1").arg(time)));
            matching->set_ascii_data("6dmt2", qPrintable(QString(frame).arg(x).arg(y).arg(flag)));
        }
    }

    bool edit_before = false;
    double shown[4];
    bool apply_enabled = false;
};

QTEST_MAIN(TestCooTransRoundtrip)
#include "test_cootrans_roundtrip.moc"
