#include "benchmarks/endurance.h"

#include "fine/cootrans.h"
#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/measuring_tool.h"

#include <QDoubleSpinBox>
#include <QTabWidget>
#include <QTableWidget>

#include <cstdio>
#include <cstdlib>

namespace
{

const double allowed_growth = 2.0; // MB, from a tenth of the rounds to their end
const double corners[4][3] = {{0, 0, 0}, {800, 0, 50}, {100, 600, -20}, {300, 200, 500}};

template <typename T>
T& child(QWidget& window, const char* name)
{
    T* found = window.findChild<T*>(name);
    if (!found) {
        std::fprintf(stderr, "no widget %s\n", name);
        std::exit(2);
    }
    return *found;
}

void fill_references(AbcMatchingDialog& matching)
{
    QTableWidget& table = child<QTableWidget>(matching, "tableWidget_referencePoints");
    while (table.rowCount() < 4) {
        const double* corner = corners[table.rowCount()];
        child<QPushButton>(matching, "pushButton_addRefPoint").click();
        for (int column = 0; column < 3; ++column)
            table.item(table.rowCount() - 1, column)->setText(QString::number(corner[column]));
    }
}

/// Clears, measures, accepts. False if the dialog has no result.
bool match(AbcMatchingDialog& matching, int round)
{
    fill_references(matching);
    if (matching.getMPCount() > 0) {
        const BoxAnswer yes(QMessageBox::Yes);
        child<QPushButton>(matching, "pushButton_clearMeaPoints").click();
    }
    child<QPushButton>(matching, "w_measureButton").click();
    MeasuringTool tool(&matching);
    for (int i = 3; i >= 0; --i)
        tool.measure(corners[i][0] + round % 100, corners[i][1], corners[i][2]);
    const bool has_result = matching.checkApplyTrafo();
    child<QPushButton>(matching, has_result ? "w_applyButton" : "w_closeButton").click();
    return has_result;
}

/// One opening. The number of matchings and Applies that succeeded, of 1 and 2.
int live_through(RoomAdjustmentDlg2g& dialog, FakeController& controller, int round)
{
    int done = 0;
    controller.log.clear();
    when_open<AbcMatchingDialog>(
        [&](AbcMatchingDialog* matching) { done += match(*matching, round); });
    when_open<RoomAdjustmentDlg2g>([&](RoomAdjustmentDlg2g*) {
        QPushButton& apply = child<QPushButton>(dialog, "btn_apply");
        child<QTabWidget>(dialog, "tabWidget").setCurrentIndex(1);
        child<QDoubleSpinBox>(dialog, "doubleSpinBox_x").setValue(round % 977 + 0.25);
        done += apply.isEnabled();
        apply.click();
        child<QPushButton>(dialog, "w_bodyMatchingButton").click();
        done += apply.isEnabled();
        child<QPushButton>(dialog, "btn_ok").click();
    });
    dialog.update_and_exec();
    close_all_dialogs();
    return done;
}

} // namespace

int soak(int rounds)
{
    FakeController controller;
    BackendVersions versions = backend(1, 20);
    RoomAdjustmentDlg2g dialog(&controller, nullptr, &versions, "v2.0.5");
    Holdings early = holdings();
    print("at the start", early);
    for (int round = 1; round <= rounds; ++round) {
        if (live_through(dialog, controller, round) != 3) {
            std::printf("round %d: matching or Apply failed\n", round);
            return 1;
        }
        // What waits to be deleted is not held.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (round == (rounds + 9) / 10) {
            early = holdings();
            print("at 10 %", early);
        }
    }
    const Holdings late = holdings();
    print("at 100 %", late);
    std::printf("%d openings, %d Applies, %d matchings; growth %.2f MB (allowed %.1f)\n", rounds,
                2 * rounds, rounds, late.memory - early.memory, allowed_growth);
    const bool same = late.descriptors == early.descriptors && late.timers == early.timers
                      && late.windows == early.windows && late.window_childs == early.window_childs;
    return same && late.memory - early.memory <= allowed_growth ? 0 : 1;
}
