// What a person waits for: the dialog's opening with 16 cameras on a local simulator, split into
// the controller's answers and our own work; a turn of a spin box; a data line up to its signals.
#include "contract/backendversions.h"
#include "fine/cootrans.h"
#include "host/connection/controllerlink.h"
#include "host/connection/controllerprocess.h"
#include "host/connection/gateway.h"
#include "host/connection/subscriptions.h"
#include "matching/abcmatchingdialog.h"
#include "module/roomadjustmentdlg.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QTabWidget>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace
{

typedef std::chrono::steady_clock Clock;

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Passes everything on to the gateway and adds up the time that the answers take.
class TimedController : public IOManager
{
public:
    explicit TimedController(IOManager& gateway) : gateway(gateway) {}

    double seconds = 0.0;

#define TIMED(call)                                                                                \
    char text[500];                                                                                \
    va_list arguments;                                                                             \
    va_start(arguments, format);                                                                   \
    std::vsnprintf(text, sizeof text, format, arguments);                                          \
    va_end(arguments);                                                                             \
    const Clock::time_point start = Clock::now();                                                  \
    const int result = gateway.call;                                                               \
    seconds += seconds_since(start);                                                               \
    return result

    int send_command(char* reply, const char* format, ...) override
    {
        TIMED(send_command(reply, "%s", text));
    }
    int get_param_string(char* value, const char* format, ...) override
    {
        TIMED(get_param_string(value, "%s", text));
    }
    int get_param_int(int* value, const char* format, ...) override
    {
        TIMED(get_param_int(value, "%s", text));
    }
    int get_param_double(double* value, const char* format, ...) override
    {
        TIMED(get_param_double(value, "%s", text));
    }
    int get_param_bool(bool* value, const char* format, ...) override
    {
        TIMED(get_param_bool(value, "%s", text));
    }
    int get_param_doubles(double* values, int count, const char* format, ...) override
    {
        TIMED(get_param_doubles(values, count, "%s", text));
    }
    int set_param_value(const char* format, ...) override { TIMED(set_param_value("%s", text)); }

#undef TIMED

    int subscribe_data(const char*, Requester*) override { return 0; }
    int unsubscribe_data(const char*, Requester*) override { return 0; }
    int add_requester(Requester*) override { return 0; }
    int remove_requester(Requester*) override { return 0; }
    int show_message(const char*, const char*, int, const char* text) override
    {
        std::fprintf(stderr, "%s\n", text);
        return 0;
    }

private:
    IOManager& gateway;
};

/// A dialog on a simulator of its own.
struct Bench
{
    ControllerProcess process;
    Subscriptions subscriptions;
    std::unique_ptr<ControllerLink> link;
    std::unique_ptr<Gateway> gateway;
    std::unique_ptr<TimedController> controller;
    BackendVersions versions = {{0, 0, 0}, 1, 20, 0};
    std::unique_ptr<RoomAdjustmentDlg2g> dialog;

    Bench()
    {
        const QString program =
            QCoreApplication::applicationDirPath() + "/../bin/tracking-simulator";
        if (!process.launch(program, {"--headless", "--cameras", "16", "--exit-with-parent"})) {
            std::fprintf(stderr, "%s\n", qPrintable(process.error_text()));
            std::exit(1);
        }
        link.reset(new ControllerLink(process.host(), process.port()));
        gateway.reset(new Gateway(*link, subscriptions,
                                  [](const QString&, const QString&, int, const QString&) {}));
        controller.reset(new TimedController(*gateway));
        dialog.reset(new RoomAdjustmentDlg2g(controller.get(), nullptr, &versions, "v2.0.5"));
    }
};

/// From the menu entry to the painted dialog, in seconds.
double open_once(Bench& bench)
{
    double seconds = 0.0;
    const Clock::time_point start = Clock::now();
    QTimer::singleShot(0, [&] {
        // The window is there; what it shows is drawn in this call.
        QApplication::processEvents();
        seconds = seconds_since(start);
        bench.dialog->close();
    });
    bench.dialog->update_and_exec();
    return seconds;
}

void opening(benchmark::State& state)
{
    Bench bench;
    double total = 0.0;
    double answers = 0.0;
    for (auto _ : state) {
        bench.controller->seconds = 0.0;
        const double seconds = open_once(bench);
        state.SetIterationTime(seconds);
        total += seconds;
        answers += bench.controller->seconds;
    }
    const double per_opening = 1e3 / state.iterations();
    state.counters["answers_ms"] = answers * per_opening;
    state.counters["own_ms"] = (total - answers) * per_opening;
}

void first_opening(benchmark::State& state)
{
    double answers = 0.0;
    for (auto _ : state) {
        Bench bench;
        bench.controller->seconds = 0.0;
        state.SetIterationTime(open_once(bench));
        answers += bench.controller->seconds;
    }
    state.counters["answers_ms"] = answers * 1e3 / state.iterations();
}

/// One step of the offset: the picture is drawn when the box's handler returns.
void spin_box_step(benchmark::State& state)
{
    Bench bench;
    QTimer::singleShot(0, [&] {
        bench.dialog->findChild<QTabWidget*>("tabWidget")->setCurrentIndex(1);
        QApplication::processEvents();
        QDoubleSpinBox* x = bench.dialog->findChild<QDoubleSpinBox*>("doubleSpinBox_x");
        double value = 0.0;
        for (auto _ : state)
            x->setValue(value += 1.0);
        bench.dialog->close();
    });
    bench.dialog->update_and_exec();
}

const char* const tools_line =
    "6dmt2 4 4 [0 1.000 4 0.000][1203.125 -884.250 310.007]"
    "[0.936293 -0.275096 0.218351 0.289629 0.956425 -0.036957 -0.198669 0.097843 0.975170][0]"
    "[0.1010 0.2020 0.3030 0.0010 0.0020 0.0030] [1 1.000 4 0.000][203.125 -84.250 1310.007]"
    "[0.936293 -0.275096 0.218351 0.289629 0.956425 -0.036957 -0.198669 0.097843 0.975170][0]"
    "[0.1010 0.2020 0.3030 0.0010 0.0020 0.0030] [2 1.000 4 0.000][-1203.125 884.250 10.007]"
    "[0.936293 -0.275096 0.218351 0.289629 0.956425 -0.036957 -0.198669 0.097843 0.975170][0]"
    "[0.1010 0.2020 0.3030 0.0010 0.0020 0.0030] [3 1.000 4 0.000][-3.125 -4.250 1710.007]"
    "[0.936293 -0.275096 0.218351 0.289629 0.956425 -0.036957 -0.198669 0.097843 0.975170][0]"
    "[0.1010 0.2020 0.3030 0.0010 0.0020 0.0030]";
const char* const sticks_line =
    "6df2 2 2 [0 1.000 6 2][1203.125 -884.250 310.007]"
    "[0.936293 -0.275096 0.218351 0.289629 0.956425 -0.036957 -0.198669 0.097843 0.975170]"
    "[0 0.25 -0.75][1 1.000 6 2][-203.125 84.250 710.007]"
    "[0.936293 -0.275096 0.218351 0.289629 0.956425 -0.036957 -0.198669 0.097843 0.975170]"
    "[0 0.50 0.125]";

/// The numbers of a line behind its keyword, with blanks between them only.
std::string numbers_of(const char* line)
{
    std::string numbers = std::strchr(line, ' ');
    for (char& c : numbers)
        if (c == '[' || c == ']')
            c = ' ';
    return numbers;
}

/// The loop that the data path is held against: strtod over the numbers and no more.
double convert_all(const char* text)
{
    double sum = 0.0;
    char* end;
    for (double value = std::strtod(text, &end); end != text; value = std::strtod(text, &end)) {
        sum += value;
        text = end;
    }
    return sum;
}

/// From set_ascii_data to the emitted signals, in turns with the strtod loop.
void data_line(benchmark::State& state, const char* line_type, const char* line)
{
    Bench bench;
    AbcMatchingDialog dialog(bench.gateway.get(), &bench.versions, nullptr);
    QTimer::singleShot(0, &dialog, [&dialog] { dialog.close(); });
    dialog.update_and_exec(); // selects a tool
    dialog.set_ascii_data("6dmt2", tools_line);
    int signals_seen = 0;
    QObject::connect(&dialog, &AbcMatchingDialog::do_updateProgressbar,
                     [&signals_seen](const double&) { ++signals_seen; });
    const std::string numbers = numbers_of(line);
    const int turn = 1000;
    double ours = 0.0;
    double theirs = 0.0;
    for (auto _ : state) {
        Clock::time_point start = Clock::now();
        for (int i = 0; i < turn; ++i)
            dialog.set_ascii_data(line_type, line);
        const double seconds = seconds_since(start);
        state.SetIterationTime(seconds);
        ours += seconds;
        start = Clock::now();
        for (int i = 0; i < turn; ++i)
            benchmark::DoNotOptimize(convert_all(numbers.c_str()));
        theirs += seconds_since(start);
    }
    if (!signals_seen)
        state.SkipWithError("no signal came");
    state.counters["us_per_line"] = 1e6 * ours / turn / state.iterations();
    state.counters["to_strtod"] = ours / theirs;
}

} // namespace

BENCHMARK(opening)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(first_opening)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(spin_box_step)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK_CAPTURE(data_line, tools_6dmt2, "6dmt2", tools_line)->UseManualTime()->Iterations(200);
BENCHMARK_CAPTURE(data_line, sticks_6df2, "6df2", sticks_line)->UseManualTime()->Iterations(200);

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
