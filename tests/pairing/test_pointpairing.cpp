// Evaluation of two point lists: what is reported when, and what the result holds.
#include "pairing/pointpairing.h"

#include "tests/support/fatal_logger.h"
#include "tests/support/pairinglists.h"

#include <QtTest>

#include <set>

namespace
{

constexpr double meter = 1000.0;

using Point = double[3];

/// n points of a helix; on a line if it is flat.
void make_helix(Point* points, int n, bool flat)
{
    const double radius = flat ? 0.0 : 100.0;
    for (int i = 0; i < n; ++i) {
        const Point point = {10.0 * i, radius * std::sin(0.7 * i), radius * std::cos(0.7 * i)};
        std::copy(point, point + 3, points[i]);
    }
}

/// What any good result satisfies.
void verify_consistent(PairingLists& lists, PairingResult& result)
{
    QCOMPARE(int(result.status), int(pairing_ok));
    QCOMPARE(result.count, lists.n);
    double moved[trafo3d_max_points][3];
    trafo3d_perform(moved, result.T_reference_measured, lists.measured, lists.n);
    std::set<int> used;
    double square_sum = 0.0;
    for (int i = 0; i < lists.n; ++i) {
        QVERIFY(used.insert(result.order[i]).second);
        double square = 0.0;
        for (int c = 0; c < 3; ++c) {
            QCOMPARE(result.transformed[i][c], moved[result.order[i]][c]);
            square += std::pow(result.transformed[i][c] - lists.reference[i][c], 2);
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

    void status_and_code()
    {
        const struct
        {
            int counts[2];
            bool flat, preserve_order;
            PairingStatus status;
            int code;
        } rows[] = {
            {{0, 0}, false, false, pairing_not_enough_points, 0},
            {{2, 5}, false, true, pairing_not_enough_points, 0},
            {{4, 3}, false, false, pairing_counts_differ, 0},
            {{3, 3}, false, false, pairing_ok, 0},
            {{5, 5}, true, true, pairing_start_failed, -1},
            {{5, 5}, true, false, pairing_no_valid_order, 0},
            {{50, 50}, false, true, pairing_ok, 0},
            {{51, 51}, false, true, pairing_optimizing_failed, -1},
            {{51, 51}, false, false, pairing_no_valid_order, 0},
            {{51, 51}, true, true, pairing_start_failed, -1},
        };
        for (const auto& row : rows) {
            Point reference[60];
            Point measured[60];
            make_helix(reference, row.counts[0], row.flat);
            make_helix(measured, row.counts[1], row.flat);
            PairingResult result;
            evaluate_pairing(reference, row.counts[0], measured, row.counts[1], row.preserve_order,
                             &result);
            QCOMPARE(int(result.status), int(row.status));
            QCOMPARE(result.code, row.code);
        }
    }

    void shuffled_points_are_put_in_order()
    {
        for (int n : {3, 4, 7, 15, 50})
            for (double noise : {0.0, 2.0}) {
                PairingLists lists(n, unsigned(n));
                lists.scatter(meter);
                lists.measure(noise, meter);
                PairingResult result;
                evaluate_pairing(lists.reference, n, lists.measured, n, false, &result);
                verify_consistent(lists, result);
                QVERIFY(result.residual <= 3.0 * noise + 1e-9);
            }
    }

    void preserved_order_is_kept_though_it_fits_badly()
    {
        PairingLists lists(3, 7);
        lists.scatter(meter);
        for (int i = 0; i < 3; ++i)
            std::memcpy(lists.measured[i], lists.reference[(i + 1) % 3], sizeof(Point));
        PairingResult kept;
        evaluate_pairing(lists.reference, 3, lists.measured, 3, true, &kept);
        verify_consistent(lists, kept);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(kept.order[i], i);
        QVERIFY(kept.residual > 10.0);
    }
};

QTEST_APPLESS_MAIN(TestPointPairing)
#include "test_pointpairing.moc"
