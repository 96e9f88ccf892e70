// Evaluation of two point lists: what is reported when, and what the result holds.
#include "matching/pointpairing.h"

#include "tests/support/fatal_logger.h"
#include "tests/support/pairinglists.h"

#include <QtTest>

#include <vector>

namespace
{

constexpr double meter = 1000.0;

using Point = double[3];

/// n points of a helix; on a line if it is flat.
void make_helix(Point* points, int n, bool flat)
{
    for (int i = 0; i < n; ++i) {
        points[i][0] = 10.0 * i;
        points[i][1] = flat ? 0.0 : 100.0 * std::sin(0.7 * i);
        points[i][2] = flat ? 0.0 : 100.0 * std::cos(0.7 * i);
    }
}

/// What any good result satisfies.
void verify_consistent(const PairingLists& lists, PairingResult& result)
{
    QCOMPARE(int(result.status), int(pairing_ok));
    QCOMPARE(result.count, lists.n);
    std::vector<bool> used(lists.n, false);
    double square_sum = 0.0;
    for (int i = 0; i < lists.n; ++i) {
        QVERIFY(!used[result.order[i]]);
        used[result.order[i]] = true;
        double source[1][3];
        double moved[1][3];
        std::memcpy(source[0], lists.measured[result.order[i]], sizeof source[0]);
        trafo3d_perform(moved, result.T_reference_measured, source, 1);
        double square = 0.0;
        for (int c = 0; c < 3; ++c) {
            QCOMPARE(result.transformed[i][c], moved[0][c]);
            square += std::pow(moved[0][c] - lists.reference[i][c], 2);
        }
        QVERIFY(std::fabs(result.distances[i] - std::sqrt(square)) < 1e-9);
        square_sum += square;
    }
    QVERIFY(std::fabs(result.residual - std::sqrt(square_sum / lists.n)) < 1e-9);
}

} // namespace

class TestPointPairing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void status_and_code_data();
    void status_and_code();
    void shuffled_points_are_put_in_order_data();
    void shuffled_points_are_put_in_order();
    void preserved_order_is_kept_though_it_fits_badly();
    void equal_lists_give_the_identity();
};

void TestPointPairing::status_and_code_data()
{
    QTest::addColumn<int>("reference_count");
    QTest::addColumn<int>("measured_count");
    QTest::addColumn<bool>("flat");
    QTest::addColumn<bool>("preserve_order");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("code");
    const struct
    {
        const char* name;
        int counts[2];
        bool flat, preserve_order;
        PairingStatus status;
        int code;
    } rows[] = {
        {"nothing", {0, 0}, false, false, pairing_not_enough_points, 0},
        {"two points each", {2, 2}, false, true, pairing_not_enough_points, 0},
        {"few points before different counts", {2, 5}, false, true, pairing_not_enough_points, 0},
        {"different counts", {4, 3}, false, false, pairing_counts_differ, 0},
        {"three points", {3, 3}, false, false, pairing_ok, 0},
        {"a line, ordered", {5, 5}, true, true, pairing_start_failed, -1},
        {"a line, unordered", {5, 5}, true, false, pairing_no_valid_order, 0},
        {"50 points, ordered", {50, 50}, false, true, pairing_ok, 0},
        {"51 points, ordered", {51, 51}, false, true, pairing_optimizing_failed, -1},
        {"51 points, unordered", {51, 51}, false, false, pairing_no_valid_order, 0},
        {"51 points in a line, ordered", {51, 51}, true, true, pairing_start_failed, -1},
    };
    for (const auto& row : rows)
        QTest::newRow(row.name) << row.counts[0] << row.counts[1] << row.flat << row.preserve_order
                                << int(row.status) << row.code;
}

void TestPointPairing::status_and_code()
{
    QFETCH(int, reference_count);
    QFETCH(int, measured_count);
    QFETCH(bool, flat);
    QFETCH(bool, preserve_order);
    Point reference[60];
    Point measured[60];
    make_helix(reference, reference_count, flat);
    make_helix(measured, measured_count, flat);
    PairingResult result;
    evaluate_pairing(reference, reference_count, measured, measured_count, preserve_order, &result);
    QTEST(int(result.status), "status");
    QTEST(result.code, "code");
}

void TestPointPairing::shuffled_points_are_put_in_order_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<double>("noise");
    for (int n : {3, 4, 7, 15, 50})
        for (double noise : {0.0, 2.0})
            QTest::addRow("%d points, noise %g mm", n, noise) << n << noise;
}

void TestPointPairing::shuffled_points_are_put_in_order()
{
    QFETCH(int, n);
    QFETCH(double, noise);
    PairingLists lists(n, unsigned(n));
    lists.scatter(meter);
    lists.measure(noise, meter);
    PairingResult result;
    evaluate_pairing(lists.reference, n, lists.measured, n, false, &result);
    verify_consistent(lists, result);
    QVERIFY(result.residual <= 3.0 * noise + 1e-9);
}

void TestPointPairing::preserved_order_is_kept_though_it_fits_badly()
{
    PairingLists lists(3, 7);
    lists.scatter(meter);
    lists.measure(0.0, meter);
    PairingResult searched;
    evaluate_pairing(lists.reference, 3, lists.measured, 3, false, &searched);
    PairingLists sorted = lists;
    for (int i = 0; i < 3; ++i)
        std::memcpy(sorted.measured[i], lists.measured[searched.order[(i + 1) % 3]], sizeof(Point));
    PairingResult kept;
    evaluate_pairing(sorted.reference, 3, sorted.measured, 3, true, &kept);
    verify_consistent(sorted, kept);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(kept.order[i], i);
    QVERIFY(kept.residual > 10.0);
}

void TestPointPairing::equal_lists_give_the_identity()
{
    for (bool preserve_order : {true, false}) {
        PairingLists lists(8, 8);
        lists.scatter(meter);
        std::memcpy(lists.measured, lists.reference, sizeof lists.measured);
        PairingResult result;
        evaluate_pairing(lists.reference, 8, lists.measured, 8, preserve_order, &result);
        verify_consistent(lists, result);
        QVERIFY(result.residual < 1e-9);
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c)
                QVERIFY(std::fabs(result.T_reference_measured[r][c] - (r == c)) < 1e-9);
    }
}

QTEST_APPLESS_MAIN(TestPointPairing)
#include "test_pointpairing.moc"
