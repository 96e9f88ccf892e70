// The offline tool against the dialog itself: the same report, and the same three settings.
#include "controller/extratransformation.h"
#include "controller/roomadjustmentdata.h"
#include "fine/cootrans.h"
#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"
#include "tests/support/measuring_tool.h"
#include "tests/support/pairinglists.h"
#include "tools/program.h"
#include "tools/wiresettings.h"

#include <QtTest/QtTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextEdit>

#include <fstream>
#include <sstream>

namespace
{

/// Quarters of millimeters pass through table, data line and single precision unchanged.
void round_lists(PairingLists& lists)
{
    for (double(*list)[3] : {lists.reference, lists.measured})
        for (int i = 0; i < lists.n; ++i)
            for (int c = 0; c < 3; ++c)
                list[i][c] = std::round(4.0 * list[i][c]) / 4.0;
}

void write(const QString& name, const double (*points)[3], int count)
{
    std::ofstream file(name.toStdString());
    for (int i = 0; i < count; ++i)
        file << i + 1 << ' ' << points[i][0] << ' ' << points[i][1] << ' ' << points[i][2] << '\n';
}

QStringList sent_settings(const FakeController& controller)
{
    QStringList sent;
    for (const std::string& entry : controller.sent())
        if (entry.compare(0, 18, "set tracking extra") == 0)
            sent << QString::fromStdString(entry.substr(4));
    return sent.mid(sent.size() - 3);
}

} // namespace

class TestPointsDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void report_and_settings_are_the_dialogs()
    {
        const struct
        {
            int reference, measured;
            bool ordered;
        } rows[] = {{3, 3, false}, {5, 5, false}, {4, 4, true}, {4, 3, false}, {2, 2, false}};
        for (const auto& row : rows) {
            PairingLists lists(row.reference, unsigned(row.reference));
            lists.scatter(1000.0);
            lists.measure(0.5, 900.0);
            round_lists(lists);
            const QTemporaryDir folder;
            const QString files[] = {folder.filePath("reference"), folder.filePath("measured")};
            write(files[0], lists.reference, row.reference);
            write(files[1], lists.measured, row.measured);
            std::ostringstream out;
            const QStringList fit = {"fit", files[0], files[1]};
            const int code =
                run_program(row.ordered ? fit + QStringList("--ordered") : fit, out, out);
            const QString text = QString::fromStdString(out.str());
            QStringList sent;
            const QString report = match_in_dialog(lists, row.measured, row.ordered, &sent);
            QVERIFY2(!report.isEmpty() && text.startsWith(report + '\n'),
                     qPrintable(report + text));
            QVERIFY2(text.contains(sent.join('\n')), qPrintable(sent.join('\n') + text));
            QCOMPARE(sent.isEmpty(), code == 2);
        }
    }

    void every_motion_gives_the_settings_of_the_fine_tab()
    {
        FakeController controller;
        BackendVersions versions = backend(1, 20);
        RoomAdjustmentData data;
        CooTrans tab(&controller, &versions, &data, nullptr, nullptr);
        PairingLists random(3, 1);
        for (int k = 0; k < 300; ++k) {
            const bsMatrix T = motion(random, k);
            bsMatrix T_measured_reference;
            T.fastInvert(T_measured_reference);
            QVERIFY(QMetaObject::invokeMethod(&tab, "applyTrafo",
                                              Q_ARG(bsMatrix, T_measured_reference)));
            tab.update_widgets_from_data();
            tab.updateGlobalData();
            data.scaling = 1.0;
            write_extra_transformation(&controller, data, {"", "", ""});
            QCOMPARE(wire_texts(applied_adjustment(T)), sent_settings(controller));
            if (k % 10 < 2)
                continue; // the fine tab may lose the axis or the angle
            const bsMatrix miss = motion_in_force(applied_adjustment(T)) - T;
            for (int c = 0; c < 4; ++c) // half of two decimals, of degrees in three angles
                QVERIFY(std::fabs(miss(0, c)) < (c < 3 ? 3 * 0.005 / 57.0 : 0.0051));
        }
    }

private:
    /// One in ten is a half turn about an oblique axis, one has an angle at the end of its box.
    static bsMatrix motion(PairingLists& random, int k)
    {
        bsMatrix x, y, z, T;
        const double rx = k % 10 == 1 ? random.uniform(-180.0, -178.5) : random.uniform(-178, 180);
        T = x.rotationX(rx) * y.rotationY(random.uniform(-90, 90))
            * z.rotationZ(random.uniform(-178, 180));
        if (k % 10 == 0)
            T.rotation(180.0, bsVector(k & 2, k & 4, (k & 8) + 1).normalize());
        T.setColumn(3, bsVector(random.uniform(-5e3, 5e3), 0.004, -1e6 * (k % 2)), 1.0);
        return T;
    }

    /// Opens both dialogs, types and touches the points, accepts and applies. Returns the report.
    static QString match_in_dialog(const PairingLists& lists, int measured, bool ordered,
                                   QStringList* sent)
    {
        FakeController controller;
        BackendVersions versions = backend(1, 20);
        RoomAdjustmentDlg2g dialog(&controller, nullptr, &versions, "v2.0.5");
        QString report;
        when_open<AbcMatchingDialog>([&](AbcMatchingDialog* matching) {
            matching->setOrdered(ordered);
            fill(matching, lists, measured);
            report = matching->findChild<QTextEdit*>("w_trafoText")->toPlainText();
            const bool accepted = matching->checkApplyTrafo();
            matching->findChild<QPushButton*>(accepted ? "w_applyButton" : "w_closeButton")
                ->click();
        });
        when_open<RoomAdjustmentDlg2g>([&](RoomAdjustmentDlg2g*) {
            dialog.findChild<CooTrans*>()->on_w_bodyMatchingButton_clicked();
            QPushButton* apply = dialog.findChild<QPushButton*>("btn_apply");
            if (apply->isEnabled()) {
                apply->click();
                *sent = sent_settings(controller);
            }
            dialog.close();
        });
        dialog.update_and_exec();
        close_all_dialogs();
        return report;
    }

    static void fill(AbcMatchingDialog* matching, const PairingLists& lists, int measured)
    {
        QTableWidget* table = matching->findChild<QTableWidget*>("tableWidget_referencePoints");
        for (int i = 0; i < lists.n; ++i) {
            matching->findChild<QPushButton*>("pushButton_addRefPoint")->click();
            for (int c = 0; c < 3; ++c)
                table->item(i, c)->setText(QString::number(lists.reference[i][c], 'f', 2));
        }
        MeasuringTool tool(matching);
        for (int i = 0; i < measured; ++i)
            tool.measure(lists.measured[i][0], lists.measured[i][1], lists.measured[i][2]);
    }
};

QTEST_MAIN(TestPointsDialog)
#include "test_pointsdialog.moc"
