// The order search against trying all orders, on lists that are hard for it.
//
// By default a part of the cases runs; with ORDER_SEARCH_ALL set in the environment all do.
#include "pairing/ordersearch.h"

#include "tests/support/fatal_logger.h"
#include "tests/support/pairinglists.h"
#include "tests/support/plain_trafo3d.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>

namespace
{

constexpr int smallest_count = 3;
constexpr int largest_count = 7; // more points have too many orders to try
constexpr double meter = 1000.0;

using Lists = PairingLists;

/// Which of nearly equal residuals the literal search prefers.
enum TieRule
{
    single_precision, ///< the right one
    double_precision, ///< forgets that the best residual is kept in single precision
    last_of_equals    ///< takes over an equal residual, too
};

bool is_better(double residual, double best, TieRule rule)
{
    const double kept = rule == double_precision ? best : double(float(best));
    return rule == last_of_equals ? kept >= residual : kept > residual;
}

/// Tries all orders, as one would without knowing better.
bool try_all_orders(Lists& lists, int* order, TieRule rule)
{
    const int n = lists.n;
    bool found = false;
    double best = -1.0;
    int tried[trafo3d_max_points];
    std::iota(tried, tried + n, 0);
    do {
        double candidate[trafo3d_max_points][3];
        for (int i = 0; i < n; ++i)
            std::memcpy(candidate[i], lists.measured[tried[i]], sizeof candidate[i]);
        double T[4][4];
        double residual;
        if (trafo3d_3trafo(T, lists.reference, candidate) != 0
            || plain::fit_trafo(T, nullptr, lists.reference, candidate, n, &residual) != 0)
            continue;
        if (!found || is_better(residual, best, rule)) {
            best = residual;
            std::copy(tried, tried + n, order);
            found = true;
        }
    } while (std::next_permutation(tried, tried + n));
    return found;
}

bool same_outcome(Lists& lists, TieRule rule)
{
    int fast[trafo3d_max_points];
    int literal[trafo3d_max_points];
    const bool found = find_best_order(lists.reference, lists.measured, lists.n, fast);
    return found == try_all_orders(lists, literal, rule)
           && (!found || std::equal(fast, fast + lists.n, literal));
}

void measure_maybe_exactly(Lists& lists)
{
    if (lists.toss())
        lists.copy();
    else
        lists.measure(lists.toss() ? 0.0 : 1.0, lists.toss() ? 0.0 : meter);
}

void make_noisy(Lists& lists, double factor = 1.0)
{
    const double noises[] = {0.1, 1.0, 5.0, 20.0};
    lists.scatter(meter);
    lists.measure(noises[lists.index() % 4], meter);
    lists.scale(factor);
}

void make_tetrahedron(Lists& lists)
{
    const double corners[4][3] = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
    lists.scatter(2.0);
    for (int i = 0; i < std::min(lists.n, 4); ++i)
        std::copy(corners[i], corners[i] + 3, lists.reference[i]);
    lists.scale(300.0);
    measure_maybe_exactly(lists);
}

void make_square(Lists& lists)
{
    lists.cube(meter);
    for (int i = 0; i < lists.n; ++i)
        lists.reference[i][2] = i < 4 ? 0.0 : 100.0 * i;
    measure_maybe_exactly(lists);
}

void make_lattice(Lists& lists)
{
    lists.lattice(2 + lists.index() % 2, 100.0);
    measure_maybe_exactly(lists);
    if (lists.toss())
        lists.measured[0][lists.index() % 3] += 1e-13;
}

/// Points along a line, off it by `deviation` times their spread.
void make_line(Lists& lists, double deviation)
{
    const double direction[3] = {0.9, 0.3, 0.31};
    for (int i = 0; i < lists.n; ++i) {
        const double t = lists.uniform(-meter, meter);
        for (int c = 0; c < 3; ++c)
            lists.reference[i][c] = t * direction[c] + deviation * lists.uniform(-meter, meter);
    }
    lists.measure(lists.toss() ? 0.0 : 1.0, meter);
}

void make_duplicates(Lists& lists)
{
    lists.scatter(meter);
    for (int i = 1; i < lists.n; ++i)
        if (lists.index() == 0)
            std::memcpy(lists.reference[i], lists.reference[lists.index()], sizeof(double[3]));
    measure_maybe_exactly(lists);
    if (lists.toss())
        std::memcpy(lists.measured[lists.index()], lists.measured[lists.index()],
                    sizeof(double[3]));
}

void make_monstrous(Lists& lists)
{
    static constexpr double factors[] = {1e-300, 1e-163, 1e-157, 1e-83, 1e-43, 1e27,
                                         1e35,   1e36,   1e74,   1e97,  1e151, 1e297};
    make_noisy(lists);
    lists.scale(factors[int(lists.uniform(0.0, 12.0)) % 12]);
}

void make_not_finite(Lists& lists)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    const double odd[] = {std::nan(""), endless, -endless, 1e300, 1e-300};
    make_noisy(lists);
    double(*list)[3] = lists.toss() ? lists.reference : lists.measured;
    list[lists.index()][lists.index() % 3] = odd[int(lists.uniform(0.0, 5.0)) % 5];
}

struct Kind
{
    const char* name;
    void (*make)(Lists& lists);
};

const Kind kinds[] = {
    {"noise", [](Lists& lists) { make_noisy(lists); }},
    {"exact", [](Lists& lists) { lists.scatter(meter), lists.measure(0.0, meter); }},
    {"cube corners", [](Lists& lists) { lists.cube(meter), measure_maybe_exactly(lists); }},
    {"tetrahedron", make_tetrahedron},
    {"square", make_square},
    {"icosahedron", [](Lists& lists) { lists.icosahedron(meter), measure_maybe_exactly(lists); }},
    {"lattice with collinear triples", make_lattice},
    {"collinear", [](Lists& lists) { make_line(lists, 0.0); }},
    {"nearly collinear",
     [](Lists& lists) { make_line(lists, std::pow(10.0, lists.uniform(-16.0, -1.0))); }},
    {"duplicated points", make_duplicates},
    {"all points equal", [](Lists& lists) { lists.measure(lists.toss() ? 0.0 : 1.0, meter); }},
    {"one point elsewhere", [](Lists& lists) { make_noisy(lists), lists.displace_one(500.0); }},
    {"lists that do not belong together",
     [](Lists& lists) { lists.scatter(meter), lists.scatter(lists.measured, meter); }},
    {"mirrored",
     [](Lists& lists) {
         make_noisy(lists);
         for (double(&point)[3] : lists.measured)
             point[2] *= -1.0;
     }},
    {"huge", [](Lists& lists) { make_noisy(lists, 1e6); }},
    {"tiny", [](Lists& lists) { make_noisy(lists, 1e-6); }},
    {"tiny and remote", // far smaller than their distance to the origin
     [](Lists& lists) { lists.scatter(1e-6), lists.measure(lists.toss() ? 1e-9 : 0.0, meter); }},
    {"near overflow and underflow", make_monstrous},
    {"not finite", make_not_finite},
};

/// Cases of a kind with n points that run; trying all orders of seven takes a twentieth second.
int repeats(int n)
{
    const bool all = qEnvironmentVariableIsSet("ORDER_SEARCH_ALL");
    if (n == largest_count)
        return all ? 60 : 3;
    return all ? 130 : 12;
}

Lists make_lists(const Kind& kind, int n, int repeat)
{
    Lists lists(n, unsigned(repeat * 8 + n));
    kind.make(lists);
    return lists;
}

} // namespace

class TestOrderSearch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void outcome_equals_trying_all_orders_data()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind < int(std::size(kinds)); ++kind)
            QTest::newRow(kinds[kind].name) << kind;
    }

    void outcome_equals_trying_all_orders()
    {
        QFETCH(int, kind);
        int differed = 0;
        for (int n = smallest_count; n <= largest_count; ++n)
            for (int repeat = 0; repeat < repeats(n); ++repeat) {
                Lists lists = make_lists(kinds[kind], n, repeat);
                ++compared;
                if (same_outcome(lists, single_precision))
                    continue;
                ++differed;
                qInfo("differs: n = %d, repeat = %d", n, repeat);
            }
        differed_in_all += differed;
        QCOMPARE(differed, 0);
    }

    void cleanupTestCase() { qInfo("%d of %d cases differed", differed_in_all, compared); }

    void wrong_tie_rules_would_be_noticed()
    {
        for (TieRule rule : {double_precision, last_of_equals}) {
            int noticed = 0;
            for (const Kind& kind : kinds)
                for (int n = smallest_count; n < largest_count; ++n)
                    for (int repeat = 0; repeat < 12; ++repeat) {
                        Lists lists = make_lists(kind, n, repeat);
                        noticed += !same_outcome(lists, rule);
                    }
            qInfo("noticed in %d cases", noticed);
            QVERIFY(noticed > 0);
        }
    }

    void many_points_are_paired()
    {
        for (int n : {8, 12, 20, 35, 50})
            for (double noise : {0.0, 1.0, 10.0}) {
                Lists lists(n, unsigned(n));
                lists.scatter(meter);
                lists.measure(noise, meter);
                int order[trafo3d_max_points];
                QVERIFY(find_best_order(lists.reference, lists.measured, n, order));
                // Distances between points survive a motion, so they tell whether the order is
                // right.
                const auto distance = [](const double* a, const double* b) {
                    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
                };
                for (int i = 1; i < n; ++i)
                    QVERIFY(
                        std::fabs(distance(lists.reference[i], lists.reference[0])
                                  - distance(lists.measured[order[i]], lists.measured[order[0]]))
                        <= 8.0 * noise + 1e-9);
            }
    }

    void hopeless_lists_are_answered_at_once()
    {
        static double reference[trafo3d_max_points + 1][3];
        static double measured[trafo3d_max_points + 1][3];
        enum Shape
        {
            equal,
            on_axis,
            measured_on_axis,
            sound
        };
        const std::pair<int, Shape> rows[] = {{2, sound},    {51, sound},   {20, equal},
                                              {20, on_axis}, {50, on_axis}, {20, measured_on_axis}};
        for (const auto& [n, shape] : rows) {
            for (int i = 0; i < n; ++i)
                for (int c = 0; c < 3; ++c) {
                    measured[i][c] = shape == sound ? (i * (c + 7)) % 13 : shape && c == 0 ? i : 0;
                    reference[i][c] =
                        shape >= measured_on_axis ? (i * (c + 5)) % 11 : measured[i][c];
                }
            int order[trafo3d_max_points + 1] = {-7};
            QElapsedTimer timer;
            timer.start();
            QVERIFY(!find_best_order(reference, measured, n, order));
            QCOMPARE(order[0], -7);
            QVERIFY2(timer.elapsed() < 500, "took half a second");
        }
    }

    void equal_measured_points_keep_their_sequence()
    {
        // Ten of twenty points are one point measured again and again: 10! orders are the same.
        Lists lists(20, 5);
        lists.scatter(meter);
        lists.copy();
        for (int j = 10; j < 20; ++j)
            std::memcpy(lists.measured[j], lists.measured[0], sizeof(double[3]));
        int order[trafo3d_max_points];
        QVERIFY(find_best_order(lists.reference, lists.measured, lists.n, order));
        int* const end = std::remove_if(order, order + 20, [](int j) { return j != 0 && j < 10; });
        QVERIFY(std::is_sorted(order, end) || std::is_sorted(order, end, std::greater<int>()));
    }

private:
    int compared = 0;
    int differed_in_all = 0;
};

QTEST_APPLESS_MAIN(TestOrderSearch)
#include "test_ordersearch.moc"
