#include "simulator/numbers.h"
#include "simulator/simulator.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <cmath>

using namespace simulator;

namespace
{

Setup with_version(int major, int minor)
{
    Setup setup;
    setup.version = {major, minor, 0};
    return setup;
}

/// The setting's three values as they are reported.
QByteArray settings(Simulator& s)
{
    return s.answer("get tracking extra_rotation").text + '|'
           + s.answer("get tracking extra_translation").text + '|'
           + s.answer("get tracking extra_scaling").text;
}

const char turned[] = "set tracking extra_rotation 0.36000000 0.48000000 -0.80000000 -0.80000000 "
                      "0.60000000 0.00000000 0.48000000 0.64000000 0.60000000";

} // namespace

class TestSimulatorVocabulary : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void parameters_at_the_start_data();
    void parameters_at_the_start();
    void malformed_requests_change_nothing_data();
    void malformed_requests_change_nothing();
    void settings_come_back_as_they_were_sent();
    void a_locked_configuration_refuses_settings();
    void older_backends_do_not_know_newer_parameters_data();
    void older_backends_do_not_know_newer_parameters();
    void camera_positions_follow_the_extra_transformation();
    void tracking_runs_only_when_it_can();
    void a_lost_calibration_shows_everywhere();
};

void TestSimulatorVocabulary::parameters_at_the_start_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("reply");
    const char* const table[][2] = {
        {"status active", "ok idle"},
        {"tracking available", "ok yes"},
        {"config is_changeable", "ok yes"},
        {"camera number_of_cameras", "ok 12"},
        {"tracking has_room c01", "ok 1"},
        {"tracking has_room c12", "ok 1"},
        {"tracking extra_rotation", "ok 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                                    "0.00000000 0.00000000 0.00000000 1.00000000"},
        {"tracking extra_translation", "ok 0.000 0.000 0.000"},
        {"tracking extra_scaling", "ok 1.00000"},
        {"roomcal last_coordinate_type", "ok powerwall"},
        {"roomcal coordinate_type", "ok powerwall"},
        {"licence measurementtool", "ok 1"},
        {"measurementtool number_of_tools", "ok 3"},
        {"measurementtool tip_calibrated b03", "ok 1"},
        {"measurementtool measurement_tip_tolerance b01", "ok 1.500"},
        {"measurementtool measurement_duration b01", "ok 1.000"},
    };
    for (const auto& row : table)
        QTest::newRow(row[0]) << QByteArray(row[0]) << QByteArray(row[1]);
}

void TestSimulatorVocabulary::parameters_at_the_start()
{
    Setup setup;
    setup.cameras = 12;
    setup.tools = 3;
    setup.coordinate_type = "powerwall";
    Simulator s(setup);
    QFETCH(QByteArray, name);
    QTEST(s.answer("get " + name).text, "reply");
}

void TestSimulatorVocabulary::malformed_requests_change_nothing_data()
{
    QTest::addColumn<QByteArray>("request");
    const char* const requests[] = {
        "",
        "get",
        "get ",
        "get tracking",
        "get tracking room",
        "get tracking room c1",
        "get tracking room c001",
        "get tracking room c00",
        "get tracking room c05",
        "get tracking room b01",
        "get tracking room c01 ",
        "get tracking  room c01",
        "get Tracking available",
        "get measurementtool tip_calibrated b03",
        "get measurementtool tip_calibrated b-1",
        "set tracking extra_scaling",
        "set tracking extra_scaling ",
        "set tracking extra_scaling 0",
        "set tracking extra_scaling -1.0",
        "set tracking extra_scaling 1001",
        "set tracking extra_scaling nan",
        "set tracking extra_scaling inf",
        "set tracking extra_scaling 1e400",
        "set tracking extra_scaling 1,01",
        "set tracking extra_scaling 0x1p1",
        "set tracking extra_scaling 1.0 1.0",
        "set tracking extra_translation 1 2",
        "set tracking extra_translation 1 2 3 4",
        "set tracking extra_translation 1  2 3",
        "set tracking extra_translation 1 2 3 ",
        "set tracking extra_translation 1 2 x",
        "set tracking extra_translation 1000000.1 0 0",
        "set tracking extra_rotation 1 0 0 0 1 0 0 0",
        "set tracking extra_rotation 1 0 0 0 1 0 0 0 -1",
        "set tracking extra_rotation 1 0 0 0 1 0 0 0 1.0001",
        "set tracking extra_rotation 0 0 0 0 0 0 0 0 0",
        "set tracking available 0",
        "set config is_changeable no",
        "do",
        "do tracking",
        "do tracking start now",
        "do zetrak2 tracking start",
        "do measurementtool start_measurement",
        "do measurementtool start_measurement b03",
        "do data stream",
        "do data stream -1",
        "do data stream 65536",
        "do data stream 12 13",
        "tracking start",
        "set tracking extra_scaling 1.1\t",
        "set tracking extra_scaling 1.1\xc2\xa0",
    };
    for (const char* request : requests)
        QTest::newRow(request) << QByteArray(request);
    QTest::newRow("embedded zero") << QByteArray("set tracking extra_scaling 1.1\0", 31);
    QTest::newRow("endless") << QByteArray("get ") + QByteArray(100000, 'a');
}

void TestSimulatorVocabulary::malformed_requests_change_nothing()
{
    Simulator s({});
    s.answer("do data stream 4711");
    s.answer(turned);
    s.answer("set tracking extra_translation 1.5 -2.5 3.5");
    s.answer("set tracking extra_scaling 1.03");
    const QByteArray before = settings(s) + s.answer("sim state").text;
    QFETCH(QByteArray, request);
    QVERIFY(s.answer(request).text.startsWith("error "));
    QCOMPARE(settings(s) + s.answer("sim state").text, before);
}

void TestSimulatorVocabulary::settings_come_back_as_they_were_sent()
{
    Simulator s({});
    QCOMPARE(s.answer(turned).text, QByteArray("ok"));
    QCOMPARE(s.answer("set tracking extra_translation -12.345 0.001 -0.000").text,
             QByteArray("ok"));
    QCOMPARE(s.answer("set tracking extra_scaling 1.04999").text, QByteArray("ok"));
    QCOMPARE(settings(s),
             "ok " + QByteArray(turned).mid(28) + "|ok -12.345 0.001 0.000|ok 1.04999");
    QCOMPARE(s.answer("set tracking extra_scaling 1e-3").text, QByteArray("ok"));
    QCOMPARE(s.answer("get tracking extra_scaling").text, QByteArray("ok 0.00100"));
}

void TestSimulatorVocabulary::a_locked_configuration_refuses_settings()
{
    Simulator s({});
    const QByteArray before = settings(s);
    s.answer("sim lock");
    QCOMPARE(s.answer("get config is_changeable").text, QByteArray("ok no"));
    for (const char* request :
         {turned, "set tracking extra_translation 1 2 3", "set tracking extra_scaling 1.01"})
        QVERIFY(s.answer(request).text.startsWith("error "));
    QCOMPARE(settings(s), before);
    QCOMPARE(s.answer("do tracking start").text, QByteArray("ok"));
    s.answer("sim unlock");
    QCOMPARE(s.answer(turned).text, QByteArray("ok"));
}

void TestSimulatorVocabulary::older_backends_do_not_know_newer_parameters_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    const struct
    {
        const char* request;
        int major, minor;
    } table[] = {
        {"get tracking room c01", 0, 9},
        {"get tracking extra_rotation", 0, 16},
        {"get tracking extra_translation", 0, 16},
        {"get tracking extra_scaling", 0, 16},
        {turned, 0, 16},
        {"get tracking available", 0, 17},
        {"get config is_changeable", 1, 9},
        {"get roomcal last_coordinate_type", 1, 9},
        {"get tracking has_room c01", 1, 18},
    };
    for (const auto& row : table)
        QTest::newRow(row.request) << QByteArray(row.request) << row.major << row.minor;
}

void TestSimulatorVocabulary::older_backends_do_not_know_newer_parameters()
{
    QFETCH(QByteArray, request);
    QFETCH(int, major);
    QFETCH(int, minor);
    Simulator older(with_version(major, minor - 1));
    Simulator first(with_version(major, minor));
    Simulator much_newer(with_version(major + 1, 0));
    QVERIFY(older.answer(request).text.startsWith("error "));
    QVERIFY(first.answer(request).text.startsWith("ok"));
    QVERIFY(much_newer.answer(request).text.startsWith("ok"));
}

// s (R p + t), written out element by element from the nine numbers that were sent.
void TestSimulatorVocabulary::camera_positions_follow_the_extra_transformation()
{
    Simulator s({});
    const auto position = [&] {
        const QByteArray reply = s.answer("get tracking room c02").text;
        return parse_numbers(reply.mid(3), 12).value_or(std::vector<double>());
    };
    const std::vector<double> before = position();
    const double r[9] = {0.36, 0.48, -0.8, -0.8, 0.6, 0.0, 0.48, 0.64, 0.6};
    const double t[3] = {100.5, -200.25, 300.125};
    const double scale = 1.025;
    s.answer(turned);
    s.answer("set tracking extra_translation 100.5 -200.25 300.125");
    s.answer("set tracking extra_scaling 1.025");
    const std::vector<double> after = position();
    QCOMPARE(after.size(), size_t(12));
    for (size_t i = 0; i < 3; ++i) {
        const double turned_only = r[i] * before[0] + r[i + 3] * before[1] + r[i + 6] * before[2];
        QVERIFY(std::abs(after[i] - scale * (turned_only + t[i])) < 2e-3);
        for (size_t c = 0; c < 3; ++c) {
            const double* column = &before[3 + 3 * c];
            const double expected = r[i] * column[0] + r[i + 3] * column[1] + r[i + 6] * column[2];
            QVERIFY(std::abs(after[3 + 3 * c + i] - expected) < 1e-7);
        }
    }
}

void TestSimulatorVocabulary::tracking_runs_only_when_it_can()
{
    Simulator s({});
    const auto status = [&] { return s.answer("get status active").text; };
    QVERIFY(s.answer("do measurementtool start_measurement b01").text.startsWith("error "));
    QCOMPARE(s.answer("do tracking start").text, QByteArray("ok"));
    QCOMPARE(s.answer("do tracking start").text, QByteArray("ok"));
    QCOMPARE(status(), QByteArray("ok mea"));
    QCOMPARE(s.answer("do tracking stop").text, QByteArray("ok"));
    QCOMPARE(s.answer("do tracking stop").text, QByteArray("ok"));
    QCOMPARE(status(), QByteArray("ok idle"));

    s.answer("do tracking start");
    s.answer("sim available 0");
    QCOMPARE(status(), QByteArray("ok idle"));
    QCOMPARE(s.answer("get tracking available").text, QByteArray("ok no"));
    QVERIFY(s.answer("do tracking start").text.startsWith("error "));
    s.answer("sim available 1");
    QCOMPARE(s.answer("do tracking start").text, QByteArray("ok"));
}

void TestSimulatorVocabulary::a_lost_calibration_shows_everywhere()
{
    Simulator s({});
    s.answer("do tracking start");
    s.answer("sim roomcal none");
    QCOMPARE(s.answer("get status active").text, QByteArray("ok idle"));
    QVERIFY(s.answer("do tracking start").text.startsWith("error "));
    QCOMPARE(s.answer("get tracking has_room c01").text, QByteArray("ok 0"));
    QCOMPARE(s.answer("get tracking room c01").text, QByteArray("ok none"));
    QCOMPARE(s.answer("get roomcal last_coordinate_type").text, QByteArray("ok none"));
    for (const char* request : {"sim truth", "sim tip", "sim move 0 0 0"})
        QVERIFY(s.answer(request).text.startsWith("error "));

    QCOMPARE(s.answer("sim roomcal powerwall loaded").text, QByteArray("ok"));
    QCOMPARE(s.answer("get roomcal last_coordinate_type").text, QByteArray("ok none"));
    QCOMPARE(s.answer("get roomcal coordinate_type").text, QByteArray("ok powerwall"));
    s.answer("sim camera 2 0");
    QCOMPARE(s.answer("get tracking has_room c02").text, QByteArray("ok 0"));
    QCOMPARE(s.answer("get tracking room c02").text, QByteArray("ok none"));
    QCOMPARE(s.answer("get tracking has_room c01").text, QByteArray("ok 1"));
}

QTEST_APPLESS_MAIN(TestSimulatorVocabulary)
#include "test_simulator_vocabulary.moc"
