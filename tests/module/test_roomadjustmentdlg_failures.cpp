// Every controller operation fails in turn, on every way through the dialog.
#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>
#include <QtWidgets/QDoubleSpinBox>

namespace
{

struct Message
{
    const char* call;
    const char* text; ///< empty: the failure is silent
};

// The message of a failed call, by the beginning of the call; the first match counts.
const Message messages[] = {
    {"do zetrak2 tracking start", "Error: Unable to start tracking"},
    {"do zetrak2 tracking stop", "Error: Unable to stop tracking"},
    {"get status active", "Error: Unable to check tracking status"},
    {"get camera number_of_cameras", "Error: Unable to get number of cameras"},
    {"get tracking room", "Error: Unable to get room cal of camera"},
    {"set tracking extra_rotation", "Error: Unable to set room adjustment rotation"},
    {"set tracking extra_translation", "Error: Unable to set room adjustment translation"},
    {"set tracking extra_scaling", "Error: Unable to set room adjustment scaling"},
    {"get roomcal", "Error: Cannot require room calibration coordinate type."},
    {"get ", ""},
};

std::string message_of(const std::string& call)
{
    for (const Message& message : messages)
        if (call.find(message.call) == 0)
            return message.text;
    return "no such call";
}

} // namespace

class TestRoomAdjustmentDlgFailures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void each_call_fails_in_turn_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("Apply, then window close") << "";
        QTest::newRow("Apply, then Cancel") << "btn_cancel";
        QTest::newRow("Apply, then OK") << "btn_ok";
    }

    void each_call_fails_in_turn()
    {
        QFETCH(QString, button);
        int failing_call = 0;
        int calls = 1;
        for (; failing_call < calls; ++failing_call) {
            FakeController controller;
            controller.failing_call = failing_call;
            run(controller, button);
            calls = controller.calls;
            check(controller);
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY(calls > 20);
    }

private:
    void run(FakeController& controller, const QString& button)
    {
        BackendVersions versions = backend(1, 20);
        RoomAdjustmentDlg2g dialog(&controller, nullptr, &versions, "v2.0.5");
        BoxAnswer answer(QMessageBox::Yes);
        when_open<RoomAdjustmentDlg2g>([&](RoomAdjustmentDlg2g*) {
            dialog.findChild<QDoubleSpinBox*>("doubleSpinBox_x")->setValue(12.5);
            QPushButton* apply = dialog.findChild<QPushButton*>("btn_apply");
            apply->click();
            if (button.isEmpty())
                dialog.close();
            else if (dialog.findChild<QPushButton*>(button)->isEnabled())
                dialog.findChild<QPushButton*>(button)->click();
            else
                dialog.findChild<QPushButton*>("btn_cancel")->click();
        });
        dialog.update_and_exec();
        close_all_dialogs();
    }

    /// The one failure has its one message right behind it, and nothing that follows is missing.
    void check(const FakeController& controller)
    {
        const std::string failed_mark = " -> failed";
        for (std::size_t i = 0; i < controller.log.size(); ++i) {
            const std::string& entry = controller.log[i];
            const std::size_t mark = entry.find(failed_mark);
            if (mark == std::string::npos)
                continue;
            const std::string expected = message_of(entry.substr(0, mark));
            const std::string next =
                i + 1 < controller.log.size() ? controller.log[i + 1] : std::string();
            if (expected.empty())
                QVERIFY2(next.find("message") != 0, next.c_str());
            else
                QCOMPARE(QString::fromStdString(next),
                         QString::fromStdString("message " + expected));
        }
        QVERIFY(controller.messages().size() <= 1);
        QCOMPARE(controller.log.back(), std::string("unsubscribe 6df"));
        settings_stay_in_order(controller);
    }

    /// Each write is a whole one: rotation, translation, scaling, whichever of them failed.
    void settings_stay_in_order(const FakeController& controller)
    {
        const char* const names[] = {"extra_rotation", "extra_translation", "extra_scaling"};
        int count = 0;
        for (const std::string& entry : controller.log) {
            if (entry.find("set ") != 0)
                continue;
            QVERIFY2(entry.find(names[count % 3]) != std::string::npos, entry.c_str());
            ++count;
        }
        QCOMPARE(count % 3, 0);
    }
};

QTEST_MAIN(TestRoomAdjustmentDlgFailures)
#include "test_roomadjustmentdlg_failures.moc"
