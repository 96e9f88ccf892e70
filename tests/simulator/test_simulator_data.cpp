#include "tests/simulator/conversation.h"
#include "tests/simulator/frames.h"
#include "tests/support/fatal_logger.h"

#include <cmath>

using namespace simulator;

namespace
{

/// The next frame; counter 0 if none is sent.
FrameRecord next_frame(Simulator& s)
{
    const std::vector<QByteArray> datagrams = s.step();
    return datagrams.size() == 1 ? read_frame(datagrams[0]) : FrameRecord();
}

/// Standard deviation per axis from where the tool is held.
double deviation(Simulator& s, int tool, const std::array<double, 3>& held)
{
    constexpr int frames = 4000;
    double squares = 0.0;
    for (int i = 0; i < frames; ++i) {
        const auto position = next_frame(s).tools.at(tool).position;
        for (size_t k = 0; k < 3; ++k)
            squares += (position[k] - held[k]) * (position[k] - held[k]) / frames;
    }
    return std::sqrt(squares / 3.0);
}

} // namespace

class TestSimulatorData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void data_flow_only_while_tracking_runs()
    {
        Simulator s({});
        QVERIFY(s.step().empty());
        converse(s, "do tracking start");
        const FrameRecord first = next_frame(s), second = next_frame(s);
        QVERIFY(first.counter > 0);
        QCOMPARE(second.counter, first.counter + 1);
        QVERIFY(std::abs(second.time - first.time - 1.0 / 60.0) < 1.1e-6);
        QVERIFY(first.tools_defined == 2 && first.tools.size() == 2 && first.sticks.size() == 1);
        const ObjectRecord tool = first.tools[1];
        QVERIFY(tool.id == 1 && tool.buttons == 4 && tool.quality == 1.0);
        converse(s, "do tracking stop");
        QVERIFY(s.step().empty());
        converse(s, "do tracking start");
        QVERIFY(next_frame(s).time > second.time + 1.5 / 60.0);
    }

    void positions_follow_the_extra_transformation()
    {
        Simulator s({});
        converse(s, "sim noise 0; sim move 100 200 300; do tracking start;"
                    "set tracking extra_rotation 0 1 0 0 0 1 1 0 0;"
                    "set tracking extra_translation 10 -20 30; set tracking extra_scaling 1.1");
        // This rotation takes x to y, y to z, z to x.
        const double expected[] = {1.1 * (300 + 10), 1.1 * (100 - 20), 1.1 * (200 + 30)};
        const ObjectRecord tool = next_frame(s).tools.at(0);
        for (size_t k = 0; k < 3; ++k)
            QVERIFY(std::abs(tool.position[k] - expected[k]) < 1e-3);
        // The axes of the tool are those of the world: x right, y up; the room has z up.
        const double axes[] = {0, 1, 0, 1, 0, 0, 0, 0, -1};
        for (size_t k = 0; k < 9; ++k)
            QVERIFY(std::abs(tool.rotation[k] - axes[k]) < 1e-6);
        converse(s, "sim tip > ok 341.000 88.000 253.000");
    }

    void noise_has_the_deviation_asked_for()
    {
        Simulator s({});
        const std::array<double, 3> held = {1000, -500, 250};
        converse(s, "sim move 1000 -500 250; do tracking start");
        const auto table = next_frame(s).tools.at(1).position;
        QVERIFY(std::abs(deviation(s, 0, held) - 0.1) < 0.005);
        converse(s, "sim noise 0; sim shake 3");
        QVERIFY(std::abs(deviation(s, 0, held) - 3.0) < 0.15);
        QVERIFY(deviation(s, 1, table) < 1.0); // lies on the table
        converse(s, "sim noise 4");
        QVERIFY(std::abs(deviation(s, 0, held) - 5.0) < 0.25);
    }

    void the_same_seed_gives_the_same_data()
    {
        Simulator a({}), b({});
        for (Simulator* s : {&a, &b})
            converse(*s, "sim move 0 0 0; do tracking start");
        for (int i = 0; i < 10; ++i)
            QCOMPARE(a.step(), b.step());
    }

    void the_measuring_flag_outlasts_the_duration()
    {
        const QByteArray command = "do measurementtool start_measurement b01";
        for (const auto& [start, duration] :
             {std::pair(command, 0.001), std::pair(command, 0.5), std::pair(command, 1.01),
              std::pair(QByteArray("sim measure"), 2.0)}) {
            Simulator s({});
            converse(s, "sim duration " + QByteArray::number(duration) + "; do tracking start");
            QCOMPARE(next_frame(s).tools[0].bits, 0u);
            converse(s, start);
            double first = -1.0, last = -1.0;
            for (int i = 0; i < 200; ++i) {
                const FrameRecord frame = next_frame(s);
                QCOMPARE(frame.tools[1].bits, 0u);
                if (frame.tools[0].bits == 1u)
                    last = frame.time, first = first < 0.0 ? last : first;
            }
            QVERIFY(last - first >= duration && last - first < duration + 3.0 / 60.0);
        }
    }

    void a_stop_breaks_off_and_a_second_start_counts_anew()
    {
        Simulator s({});
        converse(s, "do tracking start; sim measure");
        QCOMPARE(next_frame(s).tools[0].bits, 1u);
        converse(s, "do tracking stop; do tracking start");
        QCOMPARE(next_frame(s).tools[0].bits, 0u); // stopping has broken it off
        converse(s, "sim measure");
        unsigned int flagged = 0;
        for (int i = 0; i < 200; ++i) {
            if (i == 30)
                converse(s, "do measurementtool start_measurement b01");
            flagged += next_frame(s).tools[0].bits;
        }
        QCOMPARE(flagged, 30u + 62u);
    }

    void a_lost_tool_is_not_tracked_and_stops_measuring()
    {
        for (const QByteArray words : {"lose;find", "tip_calibrated 0;tip_calibrated 1"}) {
            Simulator s({});
            converse(s, "do tracking start; sim press tool 2; sim measure");
            QCOMPARE(next_frame(s).tools[0].bits, 5u);
            converse(s, "sim " + words.split(';')[0]);
            const FrameRecord frame = next_frame(s);
            const ObjectRecord lost = frame.tools[0];
            QVERIFY(lost.quality == -1.0 && lost.bits == 0 && frame.tools[1].quality == 1.0);
            QCOMPARE(lost.position, (std::array<double, 3>{}));
            converse(s, "sim measure > error; do measurementtool start_measurement b01 > error;"
                        "do measurementtool start_measurement b02; sim "
                            + words.split(';')[1]);
            const ObjectRecord found = next_frame(s).tools[0];
            QCOMPARE(found.quality, 1.0);
            QCOMPARE(found.bits, 4u); // the measurement does not go on
        }
    }

    void buttons_show_as_bits()
    {
        Simulator s({});
        converse(s, "do tracking start; sim tool 2");
        for (const char* which : {"tool 1", "tool 2", "tool 3", "stick 0", "stick 1", "stick 5"}) {
            const unsigned int bit = 1u << (which[qstrlen(which) - 1] - '0');
            converse(s, QByteArray("sim press ") + which);
            const FrameRecord frame = next_frame(s);
            QCOMPARE(frame.tools[0].bits, 0u);
            QCOMPARE(frame.tools[1].bits, which[0] == 't' ? bit : 0u);
            QCOMPARE(frame.sticks[0].bits, which[0] == 's' ? bit : 0u);
            QCOMPARE(frame.sticks[0].buttons, 6);
            converse(s, QByteArray("sim release ") + which);
        }
    }

    void mad_lines_travel_once_and_as_they_are()
    {
        Simulator s({});
        for (const char* line : {"6dmt2 1 99999 [", R"(a\nb\0c\\n\q)", ""})
            QCOMPARE(s.answer((QByteArray("sim line ") + line).trimmed()).text, QByteArray("ok"));
        const std::vector<QByteArray> expected = {"6dmt2 1 99999 [\n",
                                                  QByteArray("a\nb\0c\\n\\q\n", 10), "\n"};
        QCOMPARE(s.step(), expected);
        QVERIFY(s.step().empty());

        const QByteArray longest = "sim line " + QByteArray(Faults::max_line_length, 'x');
        refused(s, longest + 'x');
        for (int i = 0; i < Faults::max_waiting_lines; ++i)
            converse(s, longest);
        refused(s, "sim line one more");
        QCOMPARE(s.step().size(), size_t(Faults::max_waiting_lines));
    }

    void a_torn_datagram_ends_inside_a_line()
    {
        Simulator torn({}), whole({});
        converse(torn, "do tracking start; sim torn");
        converse(whole, "do tracking start");
        const QByteArray cut = torn.step().at(0), complete = whole.step().at(0);
        QVERIFY(complete.startsWith(cut));
        QVERIFY(!cut.endsWith('\n') && complete[cut.size()] != '\n');
        QCOMPARE(torn.step(), whole.step());
    }
};

QTEST_APPLESS_MAIN(TestSimulatorData)
#include "test_simulator_data.moc"
