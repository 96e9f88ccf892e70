// The dialog against an empty one of its size: from the call to the painted window, and a repaint.
// The controller is in the process, so that its answers take no time. Both run in turns.
#include "module/roomadjustmentdlg.h"
#include "tests/support/fake_controller.h"

#include <QApplication>
#include <QTabWidget>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <chrono>

namespace
{

typedef std::chrono::steady_clock Clock;

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

struct Pair
{
    FakeController controller;
    BackendVersions versions = backend(1, 20);
    RoomAdjustmentDlg2g dialog{&controller, nullptr, &versions, "v2.0.5"};
    QDialog empty;

    explicit Pair(int tab)
    {
        open(dialog, [&] { dialog.update_and_exec(); }); // the first time loads fonts and images
        dialog.findChild<QTabWidget*>("tabWidget")->setCurrentIndex(tab);
        empty.resize(dialog.size());
    }

    /// From the call to the painted window, in seconds.
    template <typename Run>
    double open(QDialog& shown, Run run)
    {
        double seconds = 0.0;
        const Clock::time_point start = Clock::now();
        QTimer::singleShot(0, [&] {
            QApplication::processEvents();
            seconds = seconds_since(start);
            shown.close();
        });
        run();
        return seconds;
    }
};

/// Both times and their ratio as counters.
template <typename Ours, typename Theirs>
void compare(benchmark::State& state, Ours ours, Theirs theirs)
{
    double our_time = 0.0, their_time = 0.0;
    for (auto _ : state) {
        const double seconds = ours();
        state.SetIterationTime(seconds);
        our_time += seconds;
        their_time += theirs();
    }
    state.counters["empty_ms"] = 1e3 * their_time / state.iterations();
    state.counters["to_empty"] = our_time / their_time;
}

void opening(benchmark::State& state)
{
    Pair pair(0);
    compare(
        state, [&] { return pair.open(pair.dialog, [&] { pair.dialog.update_and_exec(); }); },
        [&] { return pair.open(pair.empty, [&] { pair.empty.exec(); }); });
}

double repaint(QWidget& widget)
{
    const Clock::time_point start = Clock::now();
    widget.repaint();
    for (QWidget* child : widget.findChildren<QWidget*>())
        if (child->isVisible())
            child->repaint();
    return seconds_since(start);
}

/// Argument: the tab, 0 coarse and 1 fine, its 3D view included.
void repainting(benchmark::State& state)
{
    Pair pair(static_cast<int>(state.range(0)));
    pair.empty.show();
    QTimer::singleShot(0, [&] {
        pair.dialog.findChild<QTabWidget*>("tabWidget")->setCurrentIndex(state.range(0));
        QApplication::processEvents();
        compare(
            state, [&] { return repaint(pair.dialog); }, [&] { return repaint(pair.empty); });
        pair.dialog.close();
    });
    pair.dialog.update_and_exec();
}

} // namespace

BENCHMARK(opening)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(repainting)
    ->ArgName("tab")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(100);

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
