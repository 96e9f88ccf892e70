// To the matching dialog and back: the controller always ends with what it had.
#include "controller/roomadjustmentdata.h"
#include "fine/cootrans.h"
#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"
#include "tests/support/measuring_tool.h"

#include <QDoubleSpinBox>
#include <QtTest>

typedef std::vector<std::string> Log;

namespace
{

const std::string turned = "0.00000000 1.00000000 0.00000000 -1.00000000 0.00000000 0.00000000 "
                           "0.00000000 0.00000000 1.00000000";
const std::string moved = "1.000 2.000 3.500";
const std::string scaled = "1.01000";

const Log queries = {
    "get tracking extra_translation",
    "get tracking extra_rotation",
    "get tracking extra_scaling",
};
const Log setting_default = {
    "get status active",
    "do zetrak2 tracking stop",
    "set tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
    "0.00000000 0.00000000 0.00000000 1.00000000",
    "set tracking extra_translation 0.000 0.000 0.000",
    "set tracking extra_scaling 1.00000",
    "do zetrak2 tracking start",
};
const Log matching_queries = {
    "get measurementtool number_of_tools",
    "get measurementtool tip_calibrated b01", // available
    "get measurementtool tip_calibrated b01", // the tool list
    "get measurementtool tip_calibrated b02",
};
const Log restoring = {
    "get status active",
    "do zetrak2 tracking stop",
    "set tracking extra_rotation " + turned,
    "set tracking extra_translation " + moved,
    "set tracking extra_scaling " + scaled,
    "do zetrak2 tracking start",
};

Log operator+(Log a, const Log& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

} // namespace

class TestCooTransRoundtrip : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void init()
    {
        controller.reset(new FakeController);
        controller->values["tracking extra_rotation"] = turned;
        controller->values["tracking extra_translation"] = moved;
        controller->values["tracking extra_scaling"] = scaled;
        controller->values["status active"] = "mea";
        at_question = nullptr;
        at_matching = [](AbcMatchingDialog* matching) { matching->close(); };
    }

    void the_default_is_set_and_the_old_values_come_back()
    {
        QCOMPARE(round_trip(), queries + setting_default + matching_queries + restoring);
        // With the default in force nothing is sent; sums that agree count as the default.
        controller.reset(new FakeController);
        controller->values["tracking extra_translation"] = "5.000 -5.000 0.000";
        QCOMPARE(round_trip(), queries + matching_queries);
    }

    void each_call_fails_in_turn_and_the_old_values_come_back()
    {
        const int restoring_begins = 3 + 6 + 4;
        for (int failing = 0; failing < restoring_begins + 6; ++failing) {
            init();
            round_trip(failing);
            // Only a failed write of the old values themselves can leave them changed.
            const bool writing_failed =
                failing >= restoring_begins + 2 && failing < restoring_begins + 5;
            QVERIFY2(holds_the_old_values() != writing_failed,
                     qPrintable(QString::number(failing)));
            QCOMPARE(controller->messages().size(), std::size_t(1));
        }
    }

    void ok_brings_the_result_into_the_numbers_and_not_to_the_controller()
    {
        at_matching = match;
        round_trip();
        QVERIFY(holds_the_old_values());
        // Measured = reference turned by 90 degrees about z and moved by (100, 0, 0).
        QVERIFY(std::abs(shown[0] - 0.0) < 0.006 && std::abs(shown[1] + 100.0) < 0.006);
        QCOMPARE(shown[3], 90.0);
        QVERIFY(apply_enabled);
    }

    void unsaved_numbers_are_protected()
    {
        for (int button : {QMessageBox::Yes, QMessageBox::No}) {
            at_question = [&](QMessageBox* box) {
                QCOMPARE(box->text(), QString("You have unsaved data. Save changes?\n\n"
                                              "(If yes press 'Apply' and re-open matching)"));
                QCOMPARE(int(box->standardButton(box->defaultButton())), int(QMessageBox::No));
                box->button(QMessageBox::StandardButton(button))->click();
            };
            QCOMPARE(round_trip().empty(), button == QMessageBox::Yes);
            QCOMPARE(shown[0], button == QMessageBox::Yes ? 77.0 : -1.0);
        }
    }

    void an_early_end_starts_nothing_and_brings_the_old_values_back_data()
    {
        QTest::addColumn<bool>("question"); // otherwise matching
        QTest::addColumn<bool>("deleted");  // otherwise closed
        for (bool question : {true, false})
            for (bool deleted : {true, false})
                QTest::addRow("%d %d", question, deleted) << question << deleted;
    }

    void an_early_end_starts_nothing_and_brings_the_old_values_back()
    {
        QFETCH(bool, question);
        QFETCH(bool, deleted);
        std::size_t ended = 0;
        const auto end = [&](QWidget* open) {
            const QPointer<QWidget> still(open);
            ended = controller->log.size();
            if (deleted)
                dialog.reset();
            else
                dialog->close();
            if (still)
                still->close();
        };
        at_matching = end;
        if (question)
            at_question = end;
        const Log log = round_trip();
        QCOMPARE(std::count(log.begin(), log.end(), queries[0]), question ? 0 : 1);
        QVERIFY(holds_the_old_values() && ended > 0);
        const Log afterwards = controller->log_since(ended);
        QCOMPARE(std::count(afterwards.begin(), afterwards.end(), restoring.back()), 0);
    }

private:
    bool holds_the_old_values()
    {
        return controller->values["tracking extra_rotation"] == turned
               && controller->values["tracking extra_translation"] == moved
               && controller->values["tracking extra_scaling"] == scaled;
    }

    /// Opens the room dialog, edits a number if there is to be a question, goes to matching and
    /// back; returns what the trip itself said.
    Log round_trip(int failing = -1)
    {
        BackendVersions versions = backend(1, 20);
        dialog.reset(new RoomAdjustmentDlg2g(controller.get(), nullptr, &versions, "v2.0.5"));
        Log log;
        when_open<RoomAdjustmentDlg2g>([&](RoomAdjustmentDlg2g*) {
            dialog->findChild<QPushButton*>("btn_apply")->setEnabled(false);
            if (at_question) {
                dialog->findChild<QDoubleSpinBox*>("doubleSpinBox_x")->setValue(77.0);
                when_open<QMessageBox>(at_question);
            }
            when_open<AbcMatchingDialog>(at_matching);
            const std::size_t start = controller->log.size();
            controller->failing_call = failing < 0 ? -1 : controller->calls + failing;
            dialog->findChild<CooTrans*>()->on_w_bodyMatchingButton_clicked();
            log = controller->log_since(start);
            if (!dialog)
                return;
            const char* const names[] = {"x", "y", "z", "rz"};
            for (int i = 0; i < 4; ++i)
                shown[i] =
                    dialog->findChild<QDoubleSpinBox*>(QString("doubleSpinBox_%1").arg(names[i]))
                        ->value();
            apply_enabled = dialog->findChild<QPushButton*>("btn_apply")->isEnabled();
            dialog->close();
        });
        dialog->update_and_exec();
        close_all_dialogs();
        return log;
    }

    /// Types three reference points and measures them, turned by 90 degrees about z and moved.
    static void match(AbcMatchingDialog* matching)
    {
        const double reference[3][2] = {{0, 0}, {200, 0}, {0, 300}};
        QTableWidget* table = matching->findChild<QTableWidget*>("tableWidget_referencePoints");
        MeasuringTool tool(matching);
        for (int i = 0; i < 3; ++i) {
            matching->findChild<QPushButton*>("pushButton_addRefPoint")->click();
            for (int column = 0; column < 2; ++column)
                table->item(i, column)->setText(QString::number(reference[i][column]));
            tool.measure(100.0 - reference[i][1], reference[i][0], 0.0);
        }
        QVERIFY(matching->checkApplyTrafo());
        matching->findChild<QPushButton*>("w_applyButton")->click();
    }

    std::unique_ptr<FakeController> controller;
    std::unique_ptr<RoomAdjustmentDlg2g> dialog;
    std::function<void(QMessageBox*)> at_question; ///< if set, a number is edited first
    std::function<void(AbcMatchingDialog*)> at_matching;
    double shown[4];
    bool apply_enabled = false;
};

QTEST_MAIN(TestCooTransRoundtrip)
#include "test_cootrans_roundtrip.moc"
