// The offline tool against the dialog itself: the same report, and the same three settings.
#include "controller/extratransformation.h"
#include "controller/roomadjustmentdata.h"
#include "fine/cootrans.h"
#include "matching/abcmatchingdialog.h"
#include "tests/matching/matchingfixture.h"
#include "tests/support/pairinglists.h"
#include "tools/program.h"
#include "tools/wiresettings.h"

#include <fstream>
#include <sstream>

class TestPointsDialog : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void cleanup() { stop(); }

    void report_and_settings_are_the_dialogs()
    {
        const struct
        {
            int reference, measured;
            const char* option;
        } rows[] = {{3, 3, ""}, {5, 5, ""}, {4, 4, "--ordered"}, {4, 3, ""}, {2, 2, ""}};
        for (const auto& row : rows) {
            start();
            PairingLists lists(row.reference, unsigned(row.reference));
            lists.scatter(1000.0);
            lists.measure(0.5, 900.0);
            const QTemporaryDir folder;
            const QString files[] = {folder.filePath("reference"), folder.filePath("measured")};
            exec([&] {
                dialog->setOrdered(*row.option);
                write(files[0], lists.reference, row.reference,
                      [this](const double* p) { add_reference(p); });
                write(files[1], lists.measured, row.measured,
                      [this](const double* p) { tool->measure(p[0], p[1], p[2]); });
            });
            std::ostringstream out;
            const QStringList fit = {"fit", files[0], files[1], row.option};
            const int code = run_program(fit.mid(0, *row.option ? 4 : 3), out, out);
            const QString text = QString::fromStdString(out.str());
            QVERIFY2(text.startsWith(report() + '\n'), qPrintable(report() + text));
            QCOMPARE(code == 2, !dialog->checkApplyTrafo());
            const QString settings = settings_of_fine_tab(dialog->getTransformationMatrix());
            QCOMPARE(text.contains(settings), dialog->checkApplyTrafo());
        }
    }

    void every_motion_gives_the_settings_of_the_fine_tab()
    {
        PairingLists random(3, 1);
        for (int k = 0; k < 300; ++k) {
            const bsMatrix T = motion(random, k);
            bsMatrix T_measured_reference;
            T.fastInvert(T_measured_reference);
            QCOMPARE(wire_texts(applied_adjustment(T)).join('\n'),
                     settings_of_fine_tab(T_measured_reference));
            if (k % 10 < 2)
                continue; // the fine tab may lose the axis or the angle
            const bsMatrix miss = motion_in_force(applied_adjustment(T)) - T;
            for (int c = 0; c < 4; ++c) // half of two decimals, of degrees in three angles
                QVERIFY(std::fabs(miss(0, c)) < (c < 3 ? 3 * 0.005 / 57.0 : 0.0051));
        }
    }

private:
    /// Quarters of millimeters pass through table, data line and single precision unchanged.
    template <typename Enter>
    static void write(const QString& name, double (*points)[3], int count, Enter enter)
    {
        std::ofstream file(name.toStdString());
        for (int i = 0; i < count; ++i) {
            file << i + 1;
            for (double& coordinate : points[i])
                file << ' ' << (coordinate = std::round(4.0 * coordinate) / 4.0);
            file << '\n';
            enter(points[i]);
        }
    }

    QString settings_of_fine_tab(const bsMatrix& T_measured_reference)
    {
        QMetaObject::invokeMethod(&tab, "applyTrafo", Q_ARG(bsMatrix, T_measured_reference));
        tab.update_widgets_from_data();
        tab.updateGlobalData();
        data.scaling = 1.0;
        tab_controller.log.clear();
        write_extra_transformation(&tab_controller, data, {"", "", ""});
        std::string sent;
        for (const std::string& entry : tab_controller.sent())
            sent += (sent.empty() ? "" : "\n") + entry.substr(4);
        return QString::fromStdString(sent);
    }

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

    FakeController tab_controller;
    RoomAdjustmentData data;
    CooTrans tab{&tab_controller, &versions, &data, nullptr, nullptr};
};

QTEST_MAIN(TestPointsDialog)
#include "test_pointsdialog.moc"
