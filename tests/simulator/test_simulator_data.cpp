#include "tests/simulator/conversation.h"
#include "tests/simulator/frames.h"
#include "tests/support/fatal_logger.h"

#include <cmath>

using namespace simulator;

namespace
{

/// The next frame; counter 0 if none is sent.
ZetrakParser next_frame(Simulator& s)
{
    const std::vector<QByteArray> datagrams = s.step();
    return datagrams.size() == 1 ? read_frame(datagrams[0]) : ZetrakParser();
}

/// Bits of a tool's or stick's buttons in the next frame.
template <typename Record>
unsigned int bits_of(const Record& record)
{
    unsigned int bits = 0;
    for (int i = 0; i < record.num_button; ++i)
        bits |= unsigned(record.button[i]) << i;
    return bits;
}

unsigned int tool_bits(Simulator& s, int tool = 0)
{
    return bits_of(*next_frame(s).getMeaTool(tool));
}

/// Standard deviation per axis from where the tool is held, from 300 samples.
double deviation(Simulator& s, int tool, const std::array<double, 3>& held)
{
    double squares = 0.0;
    for (int i = 0; i < 100; ++i) {
        ZetrakParser frame = next_frame(s);
        for (size_t k = 0; k < 3; ++k)
            squares += std::pow(frame.getMeaTool(tool)->loc[k] - held[k], 2) / 300;
    }
    return std::sqrt(squares);
}

} // namespace

class TestSimulatorData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void data_flow_whole_or_torn_only_while_tracking_runs()
    {
        Simulator s({}), same({});
        QVERIFY(s.step().empty() && same.step().empty());
        converse(s, "do tracking start");
        converse(same, "do tracking start");
        ZetrakParser first = next_frame(s), second = next_frame(s);
        QVERIFY(first.getFrameCounter() > 0);
        QCOMPARE(second.getFrameCounter(), first.getFrameCounter() + 1);
        QVERIFY(std::abs(second.getTimeStamp() - first.getTimeStamp() - 1.0 / 60.0) < 1.1e-6);
        QVERIFY(first.getNumMeaTool() == 2 && first.getNumWandStick() == 1);
        const auto* tool = first.getMeaTool(1);
        QVERIFY(tool->id == 1 && tool->num_button == 4 && tool->quality == 1.0);
        same.step(), same.step();
        QCOMPARE(s.step(), same.step()); // the same seed gives the same data
        converse(s, "sim torn");
        const QByteArray cut = s.step().at(0), complete = same.step().at(0);
        QVERIFY(complete.startsWith(cut) && !cut.endsWith('\n') && complete[cut.size()] != '\n');
        QCOMPARE(s.step(), same.step());
        converse(s, "do tracking stop");
        QVERIFY(s.step().empty());
        converse(s, "do tracking start");
        QVERIFY(next_frame(s).getTimeStamp() > second.getTimeStamp() + 1.5 / 60.0);
    }

    void positions_follow_the_extra_transformation()
    {
        Simulator s({});
        converse(s, "sim noise 0; sim move 100 200 300; do tracking start;"
                    "set tracking extra_rotation 0 1 0 0 0 1 1 0 0;"
                    "set tracking extra_translation 10 -20 30; set tracking extra_scaling 1.1");
        // This rotation takes x to y, y to z, z to x.
        const double expected[] = {1.1 * (300 + 10), 1.1 * (100 - 20), 1.1 * (200 + 30)};
        ZetrakParser frame = next_frame(s);
        // The axes of the tool are those of the world: x right, y up; the room has z up.
        const double axes[] = {0, 1, 0, 1, 0, 0, 0, 0, -1};
        for (size_t k = 0; k < 9; ++k) {
            QVERIFY(std::abs(frame.getMeaTool(0)->rot[k] - axes[k]) < 1e-6);
            QVERIFY(k > 2 || std::abs(frame.getMeaTool(0)->loc[k] - expected[k]) < 1e-3);
        }
        converse(s, "sim tip > ok 341.000 88.000 253.000");
    }

    void noise_has_the_deviation_asked_for()
    {
        Simulator s({});
        const std::array<double, 3> held = {1000, -500, 250};
        converse(s, "sim move 1000 -500 250; do tracking start");
        ZetrakParser frame = next_frame(s);
        const double* const table = frame.getMeaTool(1)->loc;
        for (const auto& [requests, expected] : {std::pair("sim find", 0.1),
                                                 {"sim noise 0; sim shake 3", 3.0},
                                                 {"sim noise 4", 5.0}}) {
            converse(s, requests);
            QVERIFY(std::abs(deviation(s, 0, held) / expected - 1.0) < 0.2);
            if (expected == 3.0) // this tool lies on the table
                QVERIFY(deviation(s, 1, {table[0], table[1], table[2]}) < 1.0);
        }
    }

    void the_measuring_flag_outlasts_the_duration()
    {
        const QByteArray command = "do measurementtool start_measurement b01";
        for (const auto& [start, duration] : {std::pair(command, 0.001), std::pair(command, 1.01),
                                              std::pair(QByteArray("sim measure"), 2.0)}) {
            Simulator s({});
            converse(s, "sim duration " + QByteArray::number(duration) + "; do tracking start");
            QCOMPARE(tool_bits(s), 0u);
            converse(s, start);
            double first = -1.0, last = -1.0;
            for (int i = 0; i < 200; ++i) {
                ZetrakParser frame = next_frame(s);
                QCOMPARE(bits_of(*frame.getMeaTool(1)), 0u);
                if (bits_of(*frame.getMeaTool(0)) == 1u)
                    last = frame.getTimeStamp(), first = first < 0.0 ? last : first;
            }
            QVERIFY(last - first >= duration && last - first < duration + 3.0 / 60.0);
        }
    }

    void a_stop_breaks_off_and_a_second_start_counts_anew()
    {
        Simulator s({});
        converse(s, "do tracking start; sim measure");
        QCOMPARE(tool_bits(s), 1u);
        converse(s, "do tracking stop; do tracking start");
        QCOMPARE(tool_bits(s), 0u); // stopping has broken it off
        converse(s, "sim measure");
        unsigned int flagged = 0;
        for (int i = 0; i < 200; ++i) {
            if (i == 30)
                converse(s, "do measurementtool start_measurement b01");
            flagged += tool_bits(s);
        }
        QCOMPARE(flagged, 30u + 62u);
        converse(s, "sim measured > ok 0");
    }

    void a_lost_tool_is_not_tracked_and_stops_measuring()
    {
        for (const QByteArray words : {"lose;find", "tip_calibrated 0;tip_calibrated 1"}) {
            Simulator s({});
            converse(s, "do tracking start; sim press tool 2; sim measure");
            QCOMPARE(tool_bits(s), 5u);
            converse(s, "sim " + words.split(';')[0]);
            ZetrakParser frame = next_frame(s);
            const auto* lost = frame.getMeaTool(0);
            QVERIFY(lost->quality == -1.0 && bits_of(*lost) == 0 && lost->loc[0] == 0.0);
            QCOMPARE(frame.getMeaTool(1)->quality, 1.0);
            converse(s, "sim measure > error; do measurementtool start_measurement b01 > error;"
                        "do measurementtool start_measurement b02; sim measured; sim "
                            + words.split(';')[1]);
            QCOMPARE(tool_bits(s), 4u); // the measurement does not go on
        }
    }

    void buttons_show_as_bits()
    {
        Simulator s({});
        converse(s, "do tracking start; sim tool 2");
        for (const char* which : {"tool 1", "tool 3", "stick 0", "stick 5"}) {
            const unsigned int bit = 1u << (which[qstrlen(which) - 1] - '0');
            converse(s, QByteArray("sim press ") + which);
            ZetrakParser frame = next_frame(s);
            QCOMPARE(bits_of(*frame.getMeaTool(0)), 0u);
            QCOMPARE(bits_of(*frame.getMeaTool(1)), which[0] == 't' ? bit : 0u);
            QCOMPARE(bits_of(*frame.getWandStick(0)), which[0] == 's' ? bit : 0u);
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
};

QTEST_APPLESS_MAIN(TestSimulatorData)
#include "test_simulator_data.moc"
