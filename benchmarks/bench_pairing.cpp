// Time of the order search, worst of 15 random cases each, and its ratio to trying all orders.
#include "matching/ordersearch.h"

#include "tests/support/pairinglists.h"
#include "tests/support/plain_trafo3d.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

namespace
{

constexpr double meter = 1000.0;
constexpr int case_count = 15;
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

void print_row(const Row& row)
{
    for (int n : row.counts) {
        std::vector<double> times;
        int failures = 0;
        for (int c = 0; c < case_count; ++c) {
            bool found;
            times.push_back(search_time(row, n, unsigned(100 * n + c), &found));
            failures += !found;
        }
        std::sort(times.begin(), times.end());
        std::printf("%-36s %3d %10.2f %10.2f", row.title, n, times[case_count / 2], times.back());
        std::printf(failures ? "  %d without result\n" : "\n", failures);
        std::fflush(stdout);
    }
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
        if (plain::start_trafo(T, lists.reference, candidate) == 0
            && plain::fit_trafo(T, nullptr, lists.reference, candidate, n, &residual) == 0
            && (best < 0.0 || best > residual))
            best = residual;
    } while (std::next_permutation(order, order + n));
    return milliseconds_since(start);
}

void print_ratio(const Row& row)
{
    PairingLists lists(exhaustive_count, 1);
    row.make(lists);
    const double exhaustive = exhaustive_time(lists);
    bool found;
    const double search = search_time(row, exhaustive_count, 1, &found);
    std::printf("%-36s %3d %10.2f %10.2f %8.0f\n", row.title, exhaustive_count, search, exhaustive,
                exhaustive / search);
}

} // namespace

int main()
{
    bool found;
    search_time(rows[0], exhaustive_count, 0, &found); // the first search builds a table
    std::printf("Search for the order, 1 m objects, %d random cases, wall time [ms]\n", case_count);
    std::printf("%-36s %3s %10s %10s\n", "lists", "n", "median", "worst");
    for (const Row& row : rows)
        print_row(row);
    std::printf("\nAgainst trying all orders with the plain fit, one case each [ms]\n");
    std::printf("%-36s %3s %10s %10s %8s\n", "lists", "n", "search", "all", "ratio");
    for (const Row& row : rows)
        print_ratio(row);
}
