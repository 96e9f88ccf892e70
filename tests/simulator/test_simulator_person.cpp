#include "simulator/model/numbers.h"
#include "tests/simulator/conversation.h"
#include "tests/support/fatal_logger.h"

#include <cmath>

using namespace simulator;

namespace
{

std::vector<double> values(Simulator& s, const QByteArray& request, int count)
{
    return parse_numbers(s.answer(request).text.mid(3), count)
        .value_or(std::vector<double>(size_t(count), NAN));
}

} // namespace

class TestSimulatorPerson : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    // R p + t with the nine numbers of "sim truth", row after row.
    void touching_a_point_agrees_with_the_true_pose()
    {
        for (const char* type : {"normal", "powerwall", "powerwall_standing", "mid_camera"})
            for (unsigned int seed : {1u, 5u, 99u}) {
                Setup setup;
                setup.seed = seed;
                setup.coordinate_type = type;
                Simulator s(setup);
                const int count = s.answer("sim object").text.count(' ') / 3;
                QVERIFY(count >= 8);
                const std::vector<double> points = values(s, "sim object", 3 * count);
                const std::vector<double> truth = values(s, "sim truth", 12);
                for (int i = 0; i < count; ++i) {
                    converse(s, "sim touch " + QByteArray::number(i + 1));
                    const std::vector<double> tip = values(s, "sim tip", 3);
                    const double* p = &points[size_t(3 * i)];
                    for (size_t k = 0; k < 3; ++k) {
                        const double* row = &truth[3 * k];
                        const double rotated = row[0] * p[0] + row[1] * p[1] + row[2] * p[2];
                        QVERIFY2(std::abs(tip[k] - rotated - truth[9 + k]) < 2e-3, type);
                    }
                }
            }
    }

    void each_tool_is_moved_by_itself()
    {
        Simulator s({});
        converse(s, "sim move 1 2 3; sim tool 2; sim move -4.5 5 6e1;"
                    "sim tip > ok -4.500 5.000 60.000; sim duration 2.5; sim tolerance 0.25;"
                    "sim tool 1; sim tip > ok 1.000 2.000 3.000;"
                    "get measurementtool measurement_duration b01 > ok 1.000;"
                    "get measurementtool measurement_duration b02 > ok 2.500;"
                    "get measurementtool measurement_tip_tolerance b02 > ok 0.250");
    }

    void without_tools_nothing_can_be_held()
    {
        Setup setup;
        setup.tools = 0;
        setup.cameras = 0;
        Simulator s(setup);
        refused(s, "sim touch 1;sim move 0 0 0;sim tool 1;sim press tool 1;sim measure;sim lose;"
                   "sim find;sim tip;sim duration 1;sim tip_calibrated 1");
        QVERIFY(s.answer("sim state").text.contains(" tool=0"));
        converse(s, "do tracking start");
        QVERIFY(s.step().at(0).contains("6dmt2 0 0\n"));
    }

    void malformed_actions_change_nothing()
    {
        Simulator s({});
        const auto everything = [&] {
            return s.answer("sim state").text + s.answer("sim tip").text
                   + s.answer("get tracking room c01").text
                   + s.answer("get measurementtool measurement_duration b01").text;
        };
        const QByteArray before = everything();
        refused(s, "sim;SIM lose");
        refused(s,
                ";dance;touch;touch 0;touch 9;touch 1 2;touch +1;move 1 2;move 1 2 x;"
                "move 1 2 inf;tool 3;press;press tool;press tool 0;press tool 4;press leg;"
                "press stick 6;press stick -1;shake -1;noise;noise 1e9;lose 1;lock now;"
                "licence 2;roomcal;roomcal Normal;roomcal none none;camera 5 0;camera 1;"
                "camera 1 2;duration 0;duration 61;delay -1;delay 60001;fail every -1;"
                "fail every x;stop it; lose",
                "sim ");
        QCOMPARE(everything(), before);
        QVERIFY(!s.is_stopped());
    }

    void named_requests_fail_until_told_otherwise()
    {
        Simulator s({});
        converse(s, "sim fail set tracking extra_sc; sim fail do tracking;"
                    "set tracking extra_scaling 1.1 > error; do tracking start > error;"
                    "get tracking extra_scaling > ok 1.00000; get status active > ok idle;"
                    "set tracking extra_translation 1 2 3; sim fail;"
                    "set tracking extra_scaling 1.1; do tracking start");
        converse(s, QByteArray("sim fail x;").repeated(Faults::max_prefixes)
                        + "sim fail get > error; get status active > ok mea");
    }

    void every_nth_request_fails()
    {
        Simulator s({});
        converse(s, "sim fail every 3");
        QByteArray pattern;
        for (int i = 0; i < 7; ++i) {
            s.answer("sim tip"); // does not count
            s.answer("do data stream 0");
            pattern += s.answer("get status active").text.left(1);
        }
        QCOMPARE(pattern, QByteArray("ooeooeo"));
        converse(s, "sim fail every 0");
        converse(s, QByteArray("get status active > ok idle;").repeated(4) + "sim find");
    }
};

QTEST_APPLESS_MAIN(TestSimulatorPerson)
#include "test_simulator_person.moc"
