// The offline tool: each mistake named, symmetries, expectations, messages and exit codes.
#include "tests/support/fatal_logger.h"
#include "tests/support/pairinglists.h"
#include "tools/expectation.h"
#include "tools/fitanalysis.h"
#include "tools/noise.h"
#include "tools/objectcheck.h"
#include "tools/output.h"
#include "tools/pairingsearch.h"
#include "tools/program.h"
#include "tools/rigidfit.h"

#include <QtTest/QtTest>

#include <fstream>
#include <functional>
#include <sstream>

namespace
{

Points points_of(const double (*list)[3], int count)
{
    return Points(reinterpret_cast<const bsVector*>(list),
                  reinterpret_cast<const bsVector*>(list) + count);
}

/// Seven points of an object, and what is measured of them in a random order.
struct Lists
{
    explicit Lists(int count = 7, bool is_cube = false) : random(count, 5)
    {
        is_cube ? random.cube(1000.0) : random.scatter(2000.0);
        if (!is_cube)
            std::copy_n(rows({bsVector(680.25, -415.5, -928.75)})[0], 3, random.reference[6]);
        random.measure(0.5, 3000.0);
        reference = points_of(random.reference, count);
        measured = points_of(random.measured, count);
    }

    void scale(double factor)
    {
        for (bsVector& point : reference)
            point *= factor;
    }

    PairingLists random;
    Points reference;
    Points measured;
};

typedef Lists& L;

bool before(const bsVector& a, const bsVector& b) { return a.x < b.x; }

} // namespace

class TestPoints : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void names_the_mistake()
    {
        const struct
        {
            std::function<void(L)> change;
            const char* told;
        } rows[] = {
            {[](L) {}, "Good"},
            {[](L l) { l.reference[6].z += 4320.0; }, "7: z is off by 43[12]\\d mm"},
            {[](L l) { l.reference[6].y *= -1.0; }, "7: y lacks its minus sign"},
            {[](L l) { l.reference[6].x *= 10.0; }, "7: x is 10 times too large"},
            {[](L l) { l.reference[6] /= 1000.0; },
             "7: all coordinates are 1000 times too small, as in metres"},
            {[](L l) { std::swap(l.reference[6].x, l.reference[6].z); }, "7: x and z are swapped"},
            {[](L l) { l.reference[6] = bsVector(-928.75, 680.25, -415.5); },
             "7: the axes are swapped \\(y, z, x\\)"},
            {[](L l) { l.reference[6] += bsVector(300, 400, 1200); },
             "reference point 7 or measured point \\d: it is off by 1300 mm"},
            {[](L l) { l.measured[2].x += 77.0; }, "measured point 3: x is off by 7[5-9]\\.\\d mm"},
            {[](L l) { l.scale(0.001); },
             "the reference points are 1000 times too small, as in metres"},
            {[](L l) { l.scale(1.1); }, "the reference points are 1\\.10\\d times too large"},
            {[](L l) { l.scale(-1.0); }, "the reference points are a mirror image"},
            {[](L l) { l.measured.pop_back(); }, "lists fit without point \\d"},
            {[](L l) { l.reference.pop_back(); }, "lists fit without point \\d"},
        };
        for (const auto& row : rows) {
            Lists lists;
            row.change(lists);
            const FitAnalysis fit = analyze_fit(lists.reference, lists.measured, false, 1.0);
            const QString told = fit_text(fit);
            QVERIFY2(told.contains(QRegularExpression(row.told)), qPrintable(told + row.told));
            QCOMPARE(told.contains("\nMistake: "), row.told != rows[0].told);
        }
    }

    void best_pairings_are_those_of_trying_all()
    {
        for (unsigned seed = 0; seed < 40; ++seed) {
            PairingLists lists(6, seed);
            lists.scatter(seed % 2 ? lists.reference : lists.measured, 100.0);
            lists.lattice(3, 40.0);
            lists.measure(5.0 * (seed % 5), 10.0);
            const Points reference = points_of(lists.reference, 5 + seed % 2);
            const Points measured = points_of(lists.measured, 6);
            std::vector<double> all;
            std::vector<int> order = counting_order(6);
            do {
                const std::vector<int> part(order.begin(), order.begin() + reference.size());
                all.push_back(fit_rigidly(reference, measured, part).square_sum);
            } while (std::next_permutation(order.begin(), order.end()));
            std::sort(all.begin(), all.end());
            const double infinity = std::numeric_limits<double>::infinity();
            const PairingSearch search = find_pairings(reference, measured, {20, infinity});
            QVERIFY(search.is_complete && search.best.size() == 20);
            for (std::size_t i = 0; i < search.best.size(); ++i)
                QVERIFY(std::fabs(search.best[i].square_sum - all[i]) < 1e-6 * (1.0 + all[i]));
        }
    }

    void two_rooms_that_fit_equally_well_are_named()
    {
        Points reference = cube.reference;
        const FitAnalysis fit = analyze_fit(reference, cube.measured, false, 1.0);
        QVERIFY(fit.next && fit.next->is_within_noise && fit.next->is_proven);
        QVERIFY(fit.next->turn > 89.0 && fit.next->shift < 3.0);
        QCOMPARE(fit.verdict, verdict_doubtful);
        QCOMPARE(check_object(reference, 1.0).symmetries.size(), std::size_t(23));

        // With one corner moved by 20 mm the same rotations miss at two points, by up to 20 mm.
        reference[7].x -= 20.0;
        const ObjectCheck cut = check_object(reference, 10.0);
        QCOMPARE(cut.symmetries.size(), std::size_t(23));
        QVERIFY(cut.nearest.residual > 5.0 && cut.is_proven);
        QVERIFY(check_object(reference, 0.99 * cut.nearest.residual).symmetries.empty());
    }

    void a_fit_that_the_dialog_does_not_reach_is_named()
    {
        Points measured = cube.measured;
        FitAnalysis fit;
        do {
            QVERIFY(std::next_permutation(measured.begin(), measured.end(), before));
            fit = analyze_fit(cube.reference, measured, true, 1.0);
        } while (fit.dialog.status != pairing_optimizing_failed);
        const RigidFit best = fit_rigidly(cube.reference, measured, counting_order(8));
        QVERIFY(fit.unreached && fit.unreached->code == fit.dialog.code);
        QCOMPARE(fit.unreached->residual, best.residual(8));
        QCOMPARE(fit.verdict, verdict_error);
    }

    void simulation_and_closed_form_agree()
    {
        for (int n : {3, 5, 20}) {
            const Points points = Lists(n).reference;
            const Expectation expected =
                expect_errors(points, 2.0, {bsVector(), centroid(points), bsVector(8000, 0, 500)});
            QCOMPARE(expected.failures, 0);
            QVERIFY(std::fabs(expected.residual / expected.closed_form_residual - 1.0) < 0.05);
            for (const ErrorAt& at : expected.places)
                QVERIFY2(std::fabs(at.simulated / at.closed_form - 1.0) < 0.06,
                         qPrintable(QString("%1 %2").arg(at.simulated).arg(at.closed_form)));
            QVERIFY(std::fabs(expected.places[1].closed_form - 2.0 * std::sqrt(3.0 / n)) < 1e-9);
        }
    }

    void files_and_command_lines()
    {
        const QByteArray good = "1 0 0 0\n2 1000 0 0\n3 0 700 0\n4 100 200 1500\n";
        const QByteArray x = "Documentation_mPos[3][0]:3:\xB6",
                         x3 = x + "1\xB6\n" + x + "500\xB6\n" + x + "90\xB6\n";
        const struct
        {
            QByteArray content;
            const char* command;
            int code;
            const char* told;
        } rows[] = {
            {good, "check FILE", 0, "4 points, form: numbered"},
            {"(1) 1 2 3\n", "check FILE", 2, "1 points, form: parenthesized"},
            {x3, "check FILE", 1, "FILE:1: point 1 has no y; it becomes -999"},
            {good + "5 1,5 2 3\n", "check FILE", 1, "FILE:5: skipped: has decimal commas"},
            {good + "5 1 2 3", "fit FILE FILE", 1, "FILE:5: skipped: is the last line"},
            {"Object 7\n" + good, "check FILE", 0, "FILE:1: skipped\n"},
            {good + QByteArray(2000, '5') + "\n", "check FILE", 1, "longer than 1023"},
            {"2 1 2 3\n3 1 2 3\n", "check FILE", 2, "FILE:1: unknown format"},
            {"1 0.125 0 0\n" + good, "check FILE", 1, "0.005 mm at most (point 1, x)"},
            {good + "5 0 0 0\n", "check FILE", 1, "Equal points: 1 and 5."},
            {"1 0 0 0\n2 500 0 0\n3 900 1 0\n4 5 800 9\n", "check FILE", 1,
             "first three points lie nearly on one line"},
            {"1 0 0 0\n2 500 0 0\n3 900 0 0\n", "fit FILE FILE", 2, "lie on one line"},
            {"1 0 0 0\n2 1.5 0 0\n3 0 2.5 0\n4 1 1 4\n", "check FILE", 1, "metres?"},
            {good, "check /no/such", 2, "/no/such: cannot be opened"},
            {good, "expect FILE --noise 1 --at -5000 0 1e3", 0, "-5000.0        0.0"},
            {"1 1 2 3\n2 4 5 6\n", "expect FILE --noise 1", 2, "holds 2 points"},
            {good, "expect FILE", 2, "expect wants --noise"},
            {good, "fit FILE", 2, "fit wants 2 files, not 1"},
            {good, "fit FILE FILE --json", 0, "\"report\": \"Transformation evaluation report :"},
            {good, "expect FILE --noise 1 --at 1 2 3 --svg FILE.svg", 0, "Good."},
            {good, "check FILE --ordered", 2, "check takes no --ordered"},
            {good, "expect FILE --noise 1 --svg /no/such/x", 2, "/no/such/x: "},
        };
        const QTemporaryDir folder;
        const QString name = folder.filePath("points");
        for (const auto& row : rows) {
            std::ofstream(name.toStdString()) << row.content.constData();
            const QString command = QString(row.command).replace("FILE", name);
            std::ostringstream out;
            const int code = run_program(command.split(' '), out, out);
            const QString all = row.command + QString::fromStdString(out.str());
            QVERIFY2(code == row.code && all.contains(QString(row.told).replace("FILE", name)),
                     qPrintable(all));
        }
        QFile picture(name + ".svg");
        QVERIFY(picture.open(QIODevice::ReadOnly));
        QCOMPARE(picture.readAll().count("<circle"), 4 + 2); // points and places
    }

private:
    const Lists cube = Lists(8, true);
};

QTEST_APPLESS_MAIN(TestPoints)
#include "test_points.moc"
