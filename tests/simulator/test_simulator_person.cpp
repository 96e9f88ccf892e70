#include "simulator/numbers.h"
#include "simulator/simulator.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <cmath>

using namespace simulator;

namespace
{

std::vector<double> values(const QByteArray& reply, int count)
{
    return parse_numbers(reply.mid(3), count).value_or(std::vector<double>(size_t(count), NAN));
}

/// R p + t with the nine numbers of "sim truth", row after row.
std::array<double, 3> to_room(const std::vector<double>& truth, const double* p)
{
    std::array<double, 3> q;
    for (size_t i = 0; i < 3; ++i)
        q[i] =
            truth[3 * i] * p[0] + truth[3 * i + 1] * p[1] + truth[3 * i + 2] * p[2] + truth[9 + i];
    return q;
}

} // namespace

class TestSimulatorPerson : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void touching_a_point_agrees_with_the_true_pose_data();
    void touching_a_point_agrees_with_the_true_pose();
    void each_tool_is_moved_by_itself();
    void without_tools_nothing_can_be_held();
    void malformed_actions_change_nothing_data();
    void malformed_actions_change_nothing();
    void switches_reach_the_controller();
    void named_requests_fail_until_told_otherwise();
    void every_nth_request_fails();
    void answers_are_delayed_but_not_the_persons();
    void the_version_is_told();
};

void TestSimulatorPerson::touching_a_point_agrees_with_the_true_pose_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char* type : {"normal", "powerwall", "powerwall_standing", "mid_camera"})
        QTest::newRow(type) << QByteArray(type);
}

void TestSimulatorPerson::touching_a_point_agrees_with_the_true_pose()
{
    QFETCH(QByteArray, type);
    for (unsigned int seed : {1u, 5u, 99u}) {
        Setup setup;
        setup.seed = seed;
        setup.coordinate_type = type;
        Simulator s(setup);
        const QByteArray object = s.answer("sim object").text;
        const int count = (object.count(' ')) / 3;
        const std::vector<double> points = values(object, 3 * count);
        const std::vector<double> truth = values(s.answer("sim truth").text, 12);
        QVERIFY(count >= 8);
        for (int i = 0; i < count; ++i) {
            QCOMPARE(s.answer("sim touch " + QByteArray::number(i + 1)).text, QByteArray("ok"));
            const std::vector<double> tip = values(s.answer("sim tip").text, 3);
            const auto expected = to_room(truth, &points[size_t(3 * i)]);
            for (size_t k = 0; k < 3; ++k)
                QVERIFY(std::abs(tip[k] - expected[k]) < 2e-3);
        }
    }
}

void TestSimulatorPerson::each_tool_is_moved_by_itself()
{
    Simulator s({});
    s.answer("sim move 1 2 3");
    s.answer("sim tool 2");
    s.answer("sim move -4.5 5 6e1");
    QCOMPARE(s.answer("sim tip").text, QByteArray("ok -4.500 5.000 60.000"));
    s.answer("sim duration 2.5");
    s.answer("sim tolerance 0.25");
    s.answer("sim tool 1");
    QCOMPARE(s.answer("sim tip").text, QByteArray("ok 1.000 2.000 3.000"));
    QCOMPARE(s.answer("get measurementtool measurement_duration b01").text, QByteArray("ok 1.000"));
    QCOMPARE(s.answer("get measurementtool measurement_duration b02").text, QByteArray("ok 2.500"));
    QCOMPARE(s.answer("get measurementtool measurement_tip_tolerance b02").text,
             QByteArray("ok 0.250"));
}

void TestSimulatorPerson::without_tools_nothing_can_be_held()
{
    Setup setup;
    setup.tools = 0;
    setup.cameras = 0;
    Simulator s(setup);
    for (const char* request :
         {"sim touch 1", "sim move 0 0 0", "sim tool 1", "sim press tool 1", "sim measure",
          "sim lose", "sim find", "sim tip", "sim duration 1", "sim tip_calibrated 1"})
        QVERIFY2(s.answer(request).text.startsWith("error "), request);
    QVERIFY(s.answer("sim state").text.contains(" tool=0"));
    QCOMPARE(s.answer("do tracking start").text, QByteArray("ok"));
    QVERIFY(s.step().at(0).contains("6dmt2 0 0\n"));
}

void TestSimulatorPerson::malformed_actions_change_nothing_data()
{
    QTest::addColumn<QByteArray>("request");
    for (const char* request : {"sim",
                                "sim ",
                                "sim dance",
                                "sim touch",
                                "sim touch 0",
                                "sim touch 9",
                                "sim touch 1 2",
                                "sim touch +1",
                                "sim move 1 2",
                                "sim move 1 2 x",
                                "sim move 1 2 inf",
                                "sim tool 3",
                                "sim press",
                                "sim press tool",
                                "sim press tool 0",
                                "sim press tool 4",
                                "sim press leg",
                                "sim shake -1",
                                "sim press stick 6",
                                "sim press stick -1",
                                "sim noise",
                                "sim noise 1e9",
                                "sim lose 1",
                                "sim lock now",
                                "sim licence 2",
                                "sim roomcal",
                                "sim roomcal Normal",
                                "sim roomcal none none",
                                "sim camera 5 0",
                                "sim camera 1",
                                "sim camera 1 2",
                                "sim duration 0",
                                "sim duration 61",
                                "sim delay -1",
                                "sim delay 60001",
                                "sim fail every -1",
                                "sim fail every x",
                                "sim stop it",
                                "sim  lose",
                                "SIM lose"})
        QTest::newRow(request) << QByteArray(request);
}

void TestSimulatorPerson::malformed_actions_change_nothing()
{
    Simulator s({});
    const auto everything = [&] {
        return s.answer("sim state").text + s.answer("sim tip").text
               + s.answer("get tracking room c01").text
               + s.answer("get measurementtool measurement_duration b01").text;
    };
    const QByteArray before = everything();
    QFETCH(QByteArray, request);
    QVERIFY(s.answer(request).text.startsWith("error "));
    QCOMPARE(everything(), before);
    QVERIFY(!s.is_stopped());
}

void TestSimulatorPerson::switches_reach_the_controller()
{
    const char* const table[][3] = {
        {"sim licence 0", "get licence measurementtool", "ok 0"},
        {"sim lock", "get config is_changeable", "ok no"},
        {"sim available 0", "get tracking available", "ok no"},
        {"sim tip_calibrated 0", "get measurementtool tip_calibrated b01", "ok 0"},
        {"sim roomcal mid_camera", "get roomcal last_coordinate_type", "ok mid_camera"},
        {"sim camera 3 0", "get tracking has_room c03", "ok 0"},
    };
    for (const auto& row : table) {
        Simulator s({});
        QVERIFY(s.answer(row[1]).text != row[2]);
        QCOMPARE(s.answer(row[0]).text, QByteArray("ok"));
        QCOMPARE(s.answer(row[1]).text, QByteArray(row[2]));
    }
}

void TestSimulatorPerson::named_requests_fail_until_told_otherwise()
{
    Simulator s({});
    s.answer("sim fail set tracking extra_sc");
    s.answer("sim fail do tracking");
    QVERIFY(s.answer("set tracking extra_scaling 1.1").text.startsWith("error "));
    QVERIFY(s.answer("do tracking start").text.startsWith("error "));
    QCOMPARE(s.answer("get tracking extra_scaling").text, QByteArray("ok 1.00000"));
    QCOMPARE(s.answer("get status active").text, QByteArray("ok idle"));
    QCOMPARE(s.answer("set tracking extra_translation 1 2 3").text, QByteArray("ok"));
    s.answer("sim fail");
    QCOMPARE(s.answer("set tracking extra_scaling 1.1").text, QByteArray("ok"));
    QCOMPARE(s.answer("do tracking start").text, QByteArray("ok"));

    for (int i = 0; i < Faults::max_prefixes; ++i)
        QCOMPARE(s.answer("sim fail x").text, QByteArray("ok"));
    QVERIFY(s.answer("sim fail get").text.startsWith("error "));
    QCOMPARE(s.answer("get status active").text, QByteArray("ok mea"));
}

void TestSimulatorPerson::every_nth_request_fails()
{
    Simulator s({});
    s.answer("sim fail every 3");
    QByteArray pattern;
    for (int i = 0; i < 7; ++i) {
        s.answer("sim tip"); // does not count
        s.answer("do data stream 0");
        pattern += s.answer("get status active").text.left(1);
    }
    QCOMPARE(pattern, QByteArray("ooeooeo"));
    s.answer("sim fail every 0");
    for (int i = 0; i < 4; ++i)
        QCOMPARE(s.answer("get status active").text, QByteArray("ok idle"));
}

void TestSimulatorPerson::answers_are_delayed_but_not_the_persons()
{
    Simulator s({});
    QCOMPARE(s.answer("sim delay 250").delay_ms, 0);
    QCOMPARE(s.answer("get status active").delay_ms, 250);
    QCOMPARE(s.answer("nonsense").delay_ms, 250);
    s.answer("sim fail get");
    QCOMPARE(s.answer("get status active").delay_ms, 250);
    QCOMPARE(s.answer("sim tip").delay_ms, 0);
    s.answer("sim delay 0");
    QCOMPARE(s.answer("get status active").delay_ms, 0);
}

void TestSimulatorPerson::the_version_is_told()
{
    Setup setup;
    setup.version = {0, 16, 3};
    Simulator s(setup);
    QCOMPARE(s.answer("sim version").text, QByteArray("ok 0 16 3"));
}

QTEST_APPLESS_MAIN(TestSimulatorPerson)
#include "test_simulator_person.moc"
