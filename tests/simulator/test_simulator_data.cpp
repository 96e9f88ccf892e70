#include "simulator/simulator.h"
#include "tests/simulator/frames.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <cmath>

using namespace simulator;

namespace
{

constexpr unsigned int measuring_bit = 1;

/// Obeys the requests, of which none may fail, in order.
void obey(Simulator& s, std::initializer_list<const char*> requests)
{
    for (const char* request : requests)
        QVERIFY2(s.answer(request).text.startsWith("ok"), request);
}

/// The next frame; counter 0 if none is sent.
FrameRecord next_frame(Simulator& s)
{
    const std::vector<QByteArray> datagrams = s.step();
    return datagrams.size() == 1 ? read_frame(datagrams[0]) : FrameRecord();
}

struct Spread
{
    std::array<double, 3> mean = {};
    double deviation = 0.0; ///< per axis
};

Spread measure_spread(Simulator& s, int tool)
{
    constexpr int frames = 4000;
    Spread spread;
    double squares = 0.0;
    std::array<double, 3> first = next_frame(s).tools.at(tool).position;
    for (int i = 0; i < frames; ++i) {
        const auto position = next_frame(s).tools.at(tool).position;
        for (size_t k = 0; k < 3; ++k) {
            spread.mean[k] += position[k] / frames;
            squares += (position[k] - first[k]) * (position[k] - first[k]) / frames;
        }
    }
    for (size_t k = 0; k < 3; ++k)
        squares -= (spread.mean[k] - first[k]) * (spread.mean[k] - first[k]);
    spread.deviation = std::sqrt(std::max(squares, 0.0) / 3.0);
    return spread;
}

} // namespace

class TestSimulatorData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void data_flow_only_while_tracking_runs();
    void positions_follow_the_extra_transformation();
    void noise_has_the_deviation_asked_for();
    void the_same_seed_gives_the_same_data();
    void the_measuring_flag_outlasts_the_duration_data();
    void the_measuring_flag_outlasts_the_duration();
    void a_second_start_counts_the_duration_anew();
    void a_lost_tool_is_not_tracked_and_stops_measuring();
    void stopping_tracking_breaks_a_measurement_off();
    void buttons_show_as_bits();
    void mad_lines_travel_once_and_as_they_are();
    void a_torn_datagram_ends_inside_a_line();
};

void TestSimulatorData::data_flow_only_while_tracking_runs()
{
    Simulator s({});
    QVERIFY(s.step().empty());
    obey(s, {"do tracking start"});
    const FrameRecord first = next_frame(s);
    const FrameRecord second = next_frame(s);
    QVERIFY(first.counter > 0);
    QCOMPARE(second.counter, first.counter + 1);
    QVERIFY(std::abs(second.time - first.time - 1.0 / 60.0) < 1.1e-6);
    QCOMPARE(first.tools_defined, 2);
    QCOMPARE(first.tools.size(), 2);
    QCOMPARE(first.sticks.size(), 1);
    QCOMPARE(first.tools[1].id, 1);
    QCOMPARE(first.tools[1].buttons, 4);
    QCOMPARE(first.tools[1].quality, 1.0);
    obey(s, {"do tracking stop"});
    QVERIFY(s.step().empty());
    obey(s, {"do tracking start"});
    QVERIFY(next_frame(s).time > second.time + 1.5 / 60.0);
}

void TestSimulatorData::positions_follow_the_extra_transformation()
{
    Simulator s({});
    obey(s, {"sim noise 0", "sim move 100 200 300", "do tracking start",
             "set tracking extra_rotation 0 1 0 0 0 1 1 0 0",
             "set tracking extra_translation 10 -20 30", "set tracking extra_scaling 1.1"});
    // This rotation takes x to y, y to z, z to x.
    const std::array<double, 3> expected = {1.1 * (300 + 10), 1.1 * (100 - 20), 1.1 * (200 + 30)};
    const ObjectRecord tool = next_frame(s).tools.at(0);
    for (size_t k = 0; k < 3; ++k)
        QVERIFY(std::abs(tool.position[k] - expected[k]) < 1e-3);
    // The tool's axes are those of the world: x right, y up, z to the viewer; the room has z up.
    const std::array<double, 9> axes = {0, 1, 0, 1, 0, 0, 0, 0, -1};
    for (size_t k = 0; k < 9; ++k)
        QVERIFY(std::abs(tool.rotation[k] - axes[k]) < 1e-6);
    QCOMPARE(s.answer("sim tip").text, QByteArray("ok 341.000 88.000 253.000"));
}

void TestSimulatorData::noise_has_the_deviation_asked_for()
{
    Simulator s({});
    obey(s, {"sim move 1000 -500 250", "do tracking start"});
    const Spread still = measure_spread(s, 0);
    QVERIFY(std::abs(still.deviation - 0.1) < 0.005);
    QVERIFY(std::abs(still.mean[0] - 1000) < 0.01 && std::abs(still.mean[1] + 500) < 0.01
            && std::abs(still.mean[2] - 250) < 0.01);

    obey(s, {"sim noise 0", "sim shake 3"});
    QVERIFY(std::abs(measure_spread(s, 0).deviation - 3.0) < 0.15);
    QVERIFY(measure_spread(s, 1).deviation < 1e-3); // lies on the table
    obey(s, {"sim noise 4"});
    QVERIFY(std::abs(measure_spread(s, 0).deviation - 5.0) < 0.25);
}

void TestSimulatorData::the_same_seed_gives_the_same_data()
{
    Setup other_seed;
    other_seed.seed = 2;
    Simulator a({}), b({}), other(other_seed);
    for (Simulator* s : {&a, &b, &other})
        obey(*s, {"sim move 0 0 0", "do tracking start"});
    for (int i = 0; i < 10; ++i) {
        const auto frame = a.step();
        QCOMPARE(frame, b.step());
        QVERIFY(frame != other.step());
    }
}

void TestSimulatorData::the_measuring_flag_outlasts_the_duration_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<double>("duration");
    const QByteArray command = "do measurementtool start_measurement b01";
    QTest::newRow("a moment") << command << 0.001;
    QTest::newRow("whole frames") << command << 0.5;
    QTest::newRow("a second") << command << 1.0;
    QTest::newRow("between frames") << command << 1.01;
    QTest::newRow("by the tool itself") << QByteArray("sim measure") << 2.0;
}

void TestSimulatorData::the_measuring_flag_outlasts_the_duration()
{
    QFETCH(QByteArray, start);
    QFETCH(double, duration);
    Simulator s({});
    s.answer("sim duration " + QByteArray::number(duration));
    obey(s, {"do tracking start"});
    QCOMPARE(next_frame(s).tools[0].bits, 0u);
    QCOMPARE(s.answer(start).text, QByteArray("ok"));
    double first = -1.0, last = -1.0;
    for (int i = 0; i < 200; ++i) {
        const FrameRecord frame = next_frame(s);
        QCOMPARE(frame.tools[1].bits, 0u);
        if (frame.tools[0].bits != measuring_bit)
            continue;
        first = first < 0.0 ? frame.time : first;
        last = frame.time;
    }
    QVERIFY(last - first >= duration);
    QVERIFY(last - first < duration + 3.0 / 60.0);
}

void TestSimulatorData::a_second_start_counts_the_duration_anew()
{
    Simulator s({});
    obey(s, {"do tracking start", "sim measure"});
    int flagged = 0;
    for (int i = 0; i < 200; ++i) {
        if (i == 30)
            obey(s, {"do measurementtool start_measurement b01"});
        flagged += next_frame(s).tools[0].bits == measuring_bit;
    }
    QCOMPARE(flagged, 30 + 62);
}

void TestSimulatorData::a_lost_tool_is_not_tracked_and_stops_measuring()
{
    for (const auto& [lose, find] : {std::pair("sim lose", "sim find"),
                                     std::pair("sim tip_calibrated 0", "sim tip_calibrated 1")}) {
        Simulator s({});
        obey(s, {"do tracking start", "sim press tool 2", "sim measure"});
        QCOMPARE(next_frame(s).tools[0].bits, 5u);
        obey(s, {lose});
        const FrameRecord frame = next_frame(s);
        QCOMPARE(frame.tools[0].quality, -1.0);
        QCOMPARE(frame.tools[0].bits, 0u);
        QCOMPARE(frame.tools[0].position, (std::array<double, 3>{}));
        QCOMPARE(frame.tools[1].quality, 1.0);
        QVERIFY(s.answer("sim measure").text.startsWith("error "));
        QVERIFY(s.answer("do measurementtool start_measurement b01").text.startsWith("error "));
        obey(s, {"do measurementtool start_measurement b02", find});
        QCOMPARE(next_frame(s).tools[0].quality, 1.0);
        QCOMPARE(next_frame(s).tools[0].bits, 4u); // the measurement does not go on
    }
}

void TestSimulatorData::stopping_tracking_breaks_a_measurement_off()
{
    Simulator s({});
    obey(s, {"do tracking start", "sim measure"});
    QCOMPARE(next_frame(s).tools[0].bits, measuring_bit);
    obey(s, {"do tracking stop", "do tracking start"});
    QCOMPARE(next_frame(s).tools[0].bits, 0u);
}

void TestSimulatorData::buttons_show_as_bits()
{
    Simulator s({});
    obey(s, {"do tracking start", "sim tool 2"});
    for (int button = 1; button <= 3; ++button) {
        s.answer("sim press tool " + QByteArray::number(button));
        QCOMPARE(next_frame(s).tools[1].bits, 1u << button);
        QCOMPARE(next_frame(s).tools[0].bits, 0u);
        s.answer("sim release tool " + QByteArray::number(button));
    }
    for (int button = 0; button <= 5; ++button) {
        s.answer("sim press stick " + QByteArray::number(button));
        QCOMPARE(next_frame(s).sticks[0].bits, 1u << button);
        s.answer("sim release stick " + QByteArray::number(button));
    }
    const FrameRecord frame = next_frame(s);
    QCOMPARE(frame.tools[1].bits, 0u);
    QCOMPARE(frame.sticks[0].bits, 0u);
    QCOMPARE(frame.sticks[0].buttons, 6);
}

void TestSimulatorData::mad_lines_travel_once_and_as_they_are()
{
    Simulator s({});
    obey(s, {"sim line 6dmt2 1 99999 [", R"(sim line a\nb\0c\\n\q)", "sim line"});
    const std::vector<QByteArray> expected = {"6dmt2 1 99999 [\n",
                                              QByteArray("a\nb\0c\\n\\q\n", 10), "\n"};
    QCOMPARE(s.step(), expected);
    QVERIFY(s.step().empty());

    const QByteArray longest = "sim line " + QByteArray(Faults::max_line_length, 'x');
    QVERIFY(s.answer(longest + 'x').text.startsWith("error "));
    for (int i = 0; i < Faults::max_waiting_lines; ++i)
        QCOMPARE(s.answer(longest).text, QByteArray("ok"));
    QVERIFY(s.answer("sim line one more").text.startsWith("error "));
    QCOMPARE(s.step().size(), size_t(Faults::max_waiting_lines));
}

void TestSimulatorData::a_torn_datagram_ends_inside_a_line()
{
    Simulator torn({}), whole({});
    obey(torn, {"do tracking start", "sim torn"});
    obey(whole, {"do tracking start"});
    const QByteArray cut = torn.step().at(0);
    const QByteArray complete = whole.step().at(0);
    QVERIFY(complete.startsWith(cut));
    QVERIFY(!cut.endsWith('\n') && complete[cut.size()] != '\n');
    QCOMPARE(torn.step(), whole.step());
}

QTEST_APPLESS_MAIN(TestSimulatorData)
#include "test_simulator_data.moc"
