#include "simulator/model/numbers.h"
#include "tests/simulator/conversation.h"
#include "tests/support/fatal_logger.h"

#include <cmath>

using namespace simulator;

namespace
{

const QByteArray nine = "0.36000000 0.48000000 -0.80000000 -0.80000000 0.60000000 0.00000000 "
                        "0.48000000 0.64000000 0.60000000";
const QByteArray turned = "set tracking extra_rotation " + nine;

/// All that requests may change, as it is reported.
QByteArray settings(Simulator& s)
{
    QByteArray all = s.answer("sim state").text;
    for (const char* name : {"extra_rotation", "extra_translation", "extra_scaling"})
        all += s.answer(QByteArray("get tracking ") + name).text;
    return all;
}

} // namespace

class TestSimulatorVocabulary : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void parameters_at_the_start()
    {
        Setup setup;
        setup.cameras = 12;
        setup.tools = 3;
        setup.coordinate_type = "powerwall";
        Simulator s(setup);
        converse(
            s,
            "status active > ok idle; tracking available > ok yes; config is_changeable > ok yes;"
            "camera number_of_cameras > ok 12; tracking has_room c12 > ok 1;"
            "tracking extra_rotation > ok 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
            "0.00000000 0.00000000 0.00000000 1.00000000; tracking extra_scaling > ok 1.00000;"
            "tracking extra_translation > ok 0.000 0.000 0.000; licence measurementtool > ok 1;"
            "roomcal last_coordinate_type > ok powerwall; roomcal coordinate_type > ok powerwall;"
            "measurementtool number_of_tools > ok 3; measurementtool tip_calibrated b03 > ok 1;"
            "measurementtool measurement_tip_tolerance b01 > ok 1.500;"
            "measurementtool measurement_duration b01 > ok 1.000",
            "get ");
    }

    void malformed_requests_change_nothing()
    {
        Simulator s({});
        converse(s, "do data stream 4711;" + turned + ";set tracking extra_scaling 1.03;"
                        + "set tracking extra_translation 1.5 -2.5 3.5");
        const QByteArray before = settings(s);
        refused(s,
                ";tracking start;get;set;do;set tracking available 0;set config is_changeable no");
        refused(s, ";tracking;tracking room; tracking available;Tracking available", "get ");
        refused(s, "c1;c001;c00;c05;b01;c01 ; c01", "get tracking room ");
        refused(s, ";b03;b-1", "get measurementtool tip_calibrated ");
        refused(s, ";0;-1.0;1001;nan;1e400;1,01;0x1p1;1.0 1.0;1.1\t;1.1\xc2\xa0",
                "set tracking extra_scaling ");
        refused(s, "1 2;1 2 3 4;1  2 3;1 2 3 ;1 2 x;1000000.1 0 0",
                "set tracking extra_translation ");
        refused(s,
                "1 0 0 0 1 0 0 0;1 0 0 0 1 0 0 0 -1;1 0 0 0 1 0 0 0 1.0001;1 0 0 0.001 1 0 0 0 1;0 "
                "0 0 0 0 0 0 0 0",
                "set tracking extra_rotation ");
        refused(s, "tracking;tracking start now;zetrak2 tracking start", "do ");
        refused(s, ";b03", "do measurementtool start_measurement ");
        refused(s, ";-1;65536;12 13", "do data stream ");
        refused(s, QByteArray("set tracking extra_scaling 1.1\0", 31));
        refused(s, "get " + QByteArray(100000, 'a'));
        QCOMPARE(settings(s), before);
    }

    void settings_come_back_as_they_were_sent()
    {
        Simulator s({});
        converse(s,
                 turned + ";get tracking extra_rotation > ok " + nine
                     + ";set tracking extra_translation -12.345 0.001 -0.000;"
                       "get tracking extra_translation > ok -12.345 0.001 0.000;"
                       "set tracking extra_scaling 1.04999;"
                       "get tracking extra_scaling > ok 1.04999;"
                       "set tracking extra_scaling 1e-3; get tracking extra_scaling > ok 0.00100");
    }

    void a_locked_configuration_refuses_settings()
    {
        Simulator s({});
        converse(s, "sim lock; get config is_changeable > ok no");
        const QByteArray before = settings(s);
        refused(s,
                turned + ";set tracking extra_translation 1 2 3;set tracking extra_scaling 1.01");
        QCOMPARE(settings(s), before);
        converse(s, "do tracking start; sim unlock;" + turned);
    }

    void older_backends_do_not_know_newer_parameters()
    {
        const struct
        {
            int major, minor;
            const char* requests;
        } table[] = {{0, 9, "get tracking room c01"},
                     {0, 16,
                      "get tracking extra_rotation;get tracking extra_scaling;"
                      "get tracking extra_translation;set tracking extra_scaling 1.1"},
                     {0, 17, "get tracking available"},
                     {1, 9, "get config is_changeable;get roomcal last_coordinate_type"},
                     {1, 18, "get tracking has_room c01"}};
        for (const auto& [major, minor, requests] : table) {
            Setup older, first, much_newer;
            older.version = {major, minor - 1, 0};
            first.version = {major, minor, 0};
            much_newer.version = {major + 1, 0, 0};
            Simulator s(older);
            refused(s, requests);
            for (const QByteArray& request : QByteArray(requests).split(';'))
                for (const Setup& setup : {first, much_newer})
                    QVERIFY2(Simulator(setup).answer(request).text.startsWith("ok"), request);
        }
    }

    // s (R p + t), written out element by element from the nine numbers that were sent.
    void camera_positions_follow_the_extra_transformation()
    {
        Simulator s({});
        const auto position = [&] {
            const QByteArray reply = s.answer("get tracking room c02").text;
            return parse_numbers(reply.mid(3), 12).value_or(std::vector<double>(12, NAN));
        };
        const std::vector<double> before = position();
        converse(s, turned
                        + ";set tracking extra_translation 100.5 -200.25 300.125;"
                          "set tracking extra_scaling 1.025");
        const std::vector<double> after = position();
        const double r[9] = {0.36, 0.48, -0.8, -0.8, 0.6, 0.0, 0.48, 0.64, 0.6};
        const double t[3] = {100.5, -200.25, 300.125};
        for (size_t i = 0; i < 12; ++i) {
            const double* column = &before[i / 3 * 3];
            const double* row = r + i % 3;
            const double rotated = row[0] * column[0] + row[3] * column[1] + row[6] * column[2];
            const double expected = i < 3 ? 1.025 * (rotated + t[i]) : rotated;
            QVERIFY(std::abs(after[i] - expected) < (i < 3 ? 2e-3 : 1e-7));
        }
    }

    void tracking_runs_only_when_it_can()
    {
        Simulator s({});
        converse(s, "do measurementtool start_measurement b01 > error;"
                    "do tracking start; do tracking start; get status active > ok mea;"
                    "do tracking stop; do tracking stop; get status active > ok idle;"
                    "do tracking start; sim available 0; get status active > ok idle;"
                    "get tracking available > ok no; do tracking start > error;"
                    "sim available 1; do tracking start; sim licence 0;"
                    "get licence measurementtool > ok 0");
    }

    void a_lost_calibration_shows_everywhere()
    {
        Simulator s({});
        converse(s, "do tracking start; sim roomcal none; get status active > ok idle;"
                    "do tracking start > error; get tracking has_room c01 > ok 0;"
                    "get tracking room c01 > ok none;"
                    "get roomcal last_coordinate_type > ok none;"
                    "sim truth > error; sim tip > error; sim move 0 0 0 > error;"
                    "sim roomcal powerwall loaded; get roomcal last_coordinate_type > ok none;"
                    "get roomcal coordinate_type > ok powerwall; sim camera 2 0;"
                    "get tracking has_room c02 > ok 0; get tracking room c02 > ok none;"
                    "get tracking has_room c01 > ok 1; sim roomcal mid_camera;"
                    "get roomcal last_coordinate_type > ok mid_camera");
    }
};

QTEST_APPLESS_MAIN(TestSimulatorVocabulary)
#include "test_simulator_vocabulary.moc"
