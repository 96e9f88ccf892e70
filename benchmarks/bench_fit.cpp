// Time of one fit (trafo3d_3trafo and trafo3d_opttrafo) against the closed form of Eigen.
#include "registration/trafo3d.h"

#include <Eigen/Geometry>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <vector>

namespace
{

constexpr double object_size = 1000.0; // mm
constexpr double noise = 1.0;          // mm
constexpr int case_count = 15;

struct Case
{
    double reference[trafo3d_max_points][3];
    double measured[trafo3d_max_points][3];
};

Case make_case(int n, std::mt19937& random)
{
    std::uniform_real_distribution<double> place(-object_size / 2.0, object_size / 2.0);
    std::normal_distribution<double> normal;
    const Eigen::Quaterniond turn =
        Eigen::Quaterniond(normal(random), normal(random), normal(random), normal(random))
            .normalized();
    const Eigen::Vector3d shift(2000.0, -1000.0, 500.0);
    Case made;
    for (int i = 0; i < n; ++i) {
        const Eigen::Vector3d point(place(random), place(random), place(random));
        const Eigen::Vector3d moved = turn * point + shift;
        for (int c = 0; c < 3; ++c) {
            made.reference[i][c] = moved[c] + noise * normal(random);
            made.measured[i][c] = point[c];
        }
    }
    return made;
}

/// Shortest mean time of a call in nanoseconds; the shortest, as other programs only add to it.
template <typename Function>
double time_of(Function function)
{
    constexpr int calls = 500;
    constexpr int rounds = 21;
    double best = 1e99;
    for (int round = 0; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (int call = 0; call < calls; ++call)
            function();
        const std::chrono::duration<double, std::nano> passed =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, passed.count() / calls);
    }
    return best;
}

double fit_time(Case& data, int n, volatile double* sink)
{
    return time_of([&] {
        double T[4][4];
        double residual = 0.0;
        trafo3d_3trafo(T, data.reference, data.measured);
        trafo3d_opttrafo(T, nullptr, data.reference, data.measured, n, &residual);
        *sink = residual + T[0][0];
    });
}

double eigen_time(Case& data, int n, volatile double* sink)
{
    using Points = Eigen::Map<const Eigen::Matrix<double, 3, Eigen::Dynamic>>;
    const Points target(&data.reference[0][0], 3, n);
    const Points source(&data.measured[0][0], 3, n);
    return time_of([&] { *sink = Eigen::umeyama(source, target, false)(0, 0); });
}

/// Median over the cases, of both times and of their ratio.
void one_fit(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    std::mt19937 random(n);
    std::vector<double> fits, closed_forms, ratios;
    volatile double sink = 0.0;
    for (auto _ : state) {
        for (int c = 0; c < case_count; ++c) {
            Case data = make_case(n, random);
            fits.push_back(fit_time(data, n, &sink));
            closed_forms.push_back(eigen_time(data, n, &sink));
            ratios.push_back(fits.back() / closed_forms.back());
        }
        for (auto* times : {&fits, &closed_forms, &ratios})
            std::sort(times->begin(), times->end());
        state.SetIterationTime(fits[case_count / 2] * 1e-9);
    }
    state.counters["eigen_ns"] = closed_forms[case_count / 2];
    state.counters["to_eigen"] = ratios[case_count / 2];
}

} // namespace

BENCHMARK(one_fit)
    ->ArgName("n")
    ->Arg(3)
    ->Arg(4)
    ->Arg(6)
    ->Arg(8)
    ->Arg(12)
    ->Arg(20)
    ->Arg(50)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kNanosecond);

BENCHMARK_MAIN();
