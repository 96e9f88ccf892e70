// Time of the order search, worst of 15 random cases each, and its ratio to trying all orders.
#include "pairing/ordersearch.h"

#include "tests/support/pairinglists.h"
#include "tests/support/plain_trafo3d.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
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

double milliseconds_since(std::chrono::steady_clock::time_point start)
{
    const std::chrono::duration<double, std::milli> passed =
        std::chrono::steady_clock::now() - start;
    return passed.count();
}

double search_time(const Row& row, int n, unsigned seed, bool* found)
{
    PairingLists lists(n, seed);
    row.make(lists);
    int order[trafo3d_max_points];
    const auto start = std::chrono::steady_clock::now();
    *found = find_best_order(lists.reference, lists.measured, n, order);
    return milliseconds_since(start);
}

/// One iteration goes through all cases of a row. The time of a case is the shortest of three
/// runs, so that a time slice lost to another program is not taken for work.
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
    const auto start = std::chrono::steady_clock::now();
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
    benchmark::RunSpecifiedBenchmarks();
}
