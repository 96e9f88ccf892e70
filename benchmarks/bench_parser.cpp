// Time to parse a data line, against a loop that only converts the same numbers with strtod.
//
// Both run in turns within one benchmark, so that the counter "to_strtod" (parse time over strtod
// time, lower is better) does not hang on the machine's mood. Data: lines as the controller sends
// them, positions with three decimals and matrix elements with six, and one with all the digits of
// a double, which is the slow road of the conversion.
#include "tracking/zetrakparser.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace
{

class LineWriter
{
public:
    LineWriter& word(const std::string& text)
    {
        line += text;
        return *this;
    }

    LineWriter& group(int count, const char* format, double low, double high)
    {
        line += "[";
        for (int i = 0; i < count; ++i) {
            char number[64];
            std::snprintf(number, sizeof(number), format,
                          std::uniform_real_distribution<double>(low, high)(random));
            line += (i ? " " : "") + std::string(number);
        }
        line += "]";
        return *this;
    }

    LineWriter& pose(const char* loc_format = "%.3f", const char* rot_format = "%.6f")
    {
        return group(3, loc_format, -3000, 3000).group(9, rot_format, -1, 1);
    }

    std::string line;

private:
    std::mt19937 random{1};
};

std::string measurement_tools()
{
    LineWriter writer;
    writer.word("6dmt2 4 4 ");
    for (int i = 0; i < 4; ++i)
        writer.word("[" + std::to_string(i) + " 1.000 4 0.000]")
            .pose()
            .word("[1]")
            .group(6, "%.4f", 0, 0.5);
    return writer.line;
}

std::string pointing_devices()
{
    LineWriter writer;
    writer.word("6df2 2 2 ");
    for (int i = 0; i < 2; ++i)
        writer.word("[" + std::to_string(i) + " 1.000 6 2]").pose().word("[5 0.25 -0.75]");
    return writer.line;
}

std::string bodies_in_full_precision()
{
    LineWriter writer;
    writer.word("6d 4 ");
    for (int i = 0; i < 4; ++i)
        writer.word("[" + std::to_string(i) + " 1.000]").pose("%.17g", "%.17g");
    return writer.line;
}

// The numbers of the line behind its keyword, separated by blanks only.
std::string numbers_of(const std::string& line)
{
    std::string numbers = line.substr(line.find(' '));
    for (char& c : numbers)
        if (c == '[' || c == ']')
            c = ' ';
    return numbers;
}

int convert_all(const char* text, double* sum)
{
    int count = 0;
    char* end;
    for (double value = std::strtod(text, &end); end != text; value = std::strtod(text, &end)) {
        *sum += value;
        text = end;
        ++count;
    }
    return count;
}

template <class Work>
double seconds(Work work)
{
    const int repetitions = 50; // long enough for the clock, short enough to take turns often
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < repetitions; ++i)
        work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count()
           / repetitions;
}

void parse_line(benchmark::State& state, std::string line)
{
    const std::string numbers = numbers_of(line);
    ZetrakParser parser;
    double parse_time = 0.0;
    double strtod_time = 0.0;
    int count = 0;
    for (auto _ : state) {
        const double once = seconds([&] {
            char* cursor = &line[0];
            if (!parser.parseLine(&cursor))
                state.SkipWithError("the line does not parse");
        });
        strtod_time += seconds([&] {
            double sum = 0.0;
            count = convert_all(numbers.c_str(), &sum);
            benchmark::DoNotOptimize(sum);
        });
        parse_time += once;
        state.SetIterationTime(once);
    }
    state.counters["numbers"] = count;
    state.counters["to_strtod"] = parse_time / strtod_time;
}

} // namespace

const int turns = 4000;

BENCHMARK_CAPTURE(parse_line, 6dmt2_four_tools, measurement_tools())
    ->UseManualTime()
    ->Iterations(turns);
BENCHMARK_CAPTURE(parse_line, 6df2_two_devices, pointing_devices())
    ->UseManualTime()
    ->Iterations(turns);
BENCHMARK_CAPTURE(parse_line, 6d_full_precision, bodies_in_full_precision())
    ->UseManualTime()
    ->Iterations(turns);
BENCHMARK_MAIN();
