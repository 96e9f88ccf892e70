// Time of the order search: worst of 15 random cases each, its ratio to trying all orders, and for
// each kind of lists that is hard for it whether it ended and how many orders it fitted.
#include "pairing/ordersearch.h"
#include "pairing/searchobserver.h"

#include "tests/support/pairingkinds.h"
#include "tests/support/plain_trafo3d.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <ctime>
#include <string>
#include <vector>

namespace
{

constexpr double meter = 1000.0;
constexpr int case_count = 15;
constexpr int run_count = 3;
constexpr int exhaustive_count = 8; // points

struct Row
{
    const char* title;
    void (*make)(PairingLists& lists);
    std::vector<int> counts;
};

void make_noise_1(PairingLists& lists)
{
    lists.scatter(meter);
    lists.measure(1.0, meter);
}

void make_noise_20(PairingLists& lists)
{
    lists.scatter(meter);
    lists.measure(20.0, meter);
}

void make_exact_body(PairingLists& lists)
{
    if (lists.n == 8)
        lists.cube(meter);
    else
        lists.icosahedron(meter);
    lists.measure(0.0, meter);
}

void make_noisy_body(PairingLists& lists)
{
    make_exact_body(lists);
    lists.measure(1.0, meter);
}

void make_outlier(PairingLists& lists)
{
    make_noise_1(lists);
    lists.displace_one(500.0);
}

void make_two_foreign(PairingLists& lists)
{
    make_outlier(lists);
    lists.displace_one(500.0);
}

void make_foreign(PairingLists& lists)
{
    lists.scatter(lists.reference, meter);
    lists.scatter(lists.measured, meter);
}

const Row rows[] = {
    {"noise of 1 mm", make_noise_1, {8, 10, 12, 15, 20, 30, 50}},
    {"noise of 20 mm", make_noise_20, {8, 10, 12, 15, 20, 30, 50}},
    {"cube, icosahedron, exact", make_exact_body, {8, 12}},
    {"cube, icosahedron, noise of 1 mm", make_noisy_body, {8, 12}},
    {"one point 500 mm off", make_outlier, {8, 10, 12, 15, 20, 30, 50}},
    {"two points 500 mm off", make_two_foreign, {8, 12, 20, 30, 50}},
    {"lists that do not belong together", make_foreign, {8, 10, 12, 15, 20, 30}},
};

/// Processor time, which other programs do not lengthen.
double milliseconds_since(std::clock_t start)
{
    return 1e3 * double(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Repeats a short search until the clock can tell its time.
double search_time(const Row& row, int n, unsigned seed, bool* found)
{
    const double long_enough = 1.0; // ms
    PairingLists lists(n, seed);
    row.make(lists);
    int order[trafo3d_max_points];
    int runs = 0;
    const std::clock_t start = std::clock();
    do {
        *found = find_best_order(lists.reference, lists.measured, n, order);
        ++runs;
    } while (milliseconds_since(start) < long_enough);
    return milliseconds_since(start) / runs;
}

/// One iteration goes through all cases of a row. The time of a case is the shortest of three
/// runs, so that what another program took of the caches is not taken for work.
void search_cases(benchmark::State& state, const Row& row, int n)
{
    std::vector<double> times;
    int failures = 0;
    for (auto _ : state) {
        for (int c = 0; c < case_count; ++c) {
            bool found = false;
            double shortest = search_time(row, n, unsigned(100 * n + c), &found);
            for (int run = 1; run < run_count; ++run)
                shortest = std::min(shortest, search_time(row, n, unsigned(100 * n + c), &found));
            times.push_back(shortest);
            failures += !found;
        }
        std::sort(times.begin(), times.end());
        state.SetIterationTime(times.back() / 1e3);
    }
    state.counters["median_ms"] = times[case_count / 2];
    state.counters["worst_ms"] = times.back();
    state.counters["without_result"] = failures;
}

double exhaustive_time(PairingLists& lists)
{
    const int n = lists.n;
    double best = -1.0;
    int order[trafo3d_max_points];
    std::iota(order, order + n, 0);
    const std::clock_t start = std::clock();
    do {
        double candidate[trafo3d_max_points][3];
        for (int i = 0; i < n; ++i)
            std::memcpy(candidate[i], lists.measured[order[i]], sizeof candidate[i]);
        double T[4][4];
        double residual;
        if (trafo3d_3trafo(T, lists.reference, candidate) == 0
            && plain::fit_trafo(T, nullptr, lists.reference, candidate, n, &residual) == 0
            && (best < 0.0 || best > residual))
            best = residual;
    } while (std::next_permutation(order, order + n));
    return milliseconds_since(start);
}

/// The search against trying all orders with the plain fit, in one run.
void against_all_orders(benchmark::State& state, const Row& row)
{
    PairingLists lists(exhaustive_count, 1);
    row.make(lists);
    for (auto _ : state) {
        const double exhaustive = exhaustive_time(lists);
        bool found;
        const double search = search_time(row, exhaustive_count, 1, &found);
        state.SetIterationTime(search / 1e3);
        state.counters["all_orders_ms"] = exhaustive;
        state.counters["times_faster"] = exhaustive / search;
    }
}

class EndWitness : public SearchObserver
{
public:
    bool go_on(const SearchProgress&) override { return true; }

    void ended(const SearchProgress& progress, bool is_complete) override
    {
        fits = progress.fits;
        is_exact = is_complete;
    }

    long long fits = 0;
    bool is_exact = true; // lists without any start are answered before a search begins
};

/// One case of a hard kind, in processor time, as some take seconds.
void search_hard_case(benchmark::State& state, const pairing_kinds::Kind& kind, int n)
{
    PairingLists lists(n, unsigned(8 + n));
    kind.make(lists);
    for (auto _ : state) {
        EndWitness witness;
        int order[trafo3d_max_points];
        const std::clock_t start = std::clock();
        const bool found = find_best_order(lists.reference, lists.measured, n, order, &witness);
        state.SetIterationTime(milliseconds_since(start) / 1e3);
        state.counters["fits"] = double(witness.fits);
        state.SetLabel(!witness.is_exact ? "ended by its budget"
                       : found           ? "exact"
                                         : "exact, no order succeeds");
    }
}

template <typename Function>
void add(const std::string& name, Function function)
{
    benchmark::RegisterBenchmark(name.c_str(), function)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    bool found;
    search_time(rows[0], exhaustive_count, 0, &found); // the first search builds a table
    for (const Row& row : rows)
        for (int n : row.counts)
            add(std::string(row.title) + "/n:" + std::to_string(n),
                [&row, n](benchmark::State& state) { search_cases(state, row, n); });
    for (const Row& row : rows)
        add(std::string("against all orders: ") + row.title + "/n:8",
            [&row](benchmark::State& state) { against_all_orders(state, row); });
    for (const pairing_kinds::Kind& kind : pairing_kinds::all)
        for (int n : {8, 12, 20, 50})
            add(std::string("kind: ") + kind.name + "/n:" + std::to_string(n),
                [&kind, n](benchmark::State& state) { search_hard_case(state, kind, n); });
    benchmark::RunSpecifiedBenchmarks();
}
