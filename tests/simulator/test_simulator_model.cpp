// What the simulator knows and how it answers, without its program.
#include "simulator/model/numbers.h"
#include "simulator/model/roomlayout.h"
#include "tests/simulator/conversation.h"
#include "tests/support/fatal_logger.h"

#include <cmath>

using namespace simulator;

namespace
{

const QByteArray nine = "0.36000000 0.48000000 -0.80000000 -0.80000000 0.60000000 0.00000000 "
                        "0.48000000 0.64000000 0.60000000";
const QByteArray turned = "set tracking extra_rotation " + nine;

double length(const Vec3& v) { return std::sqrt(dot(v, v)); }

std::vector<double> values(Simulator& s, const QByteArray& request, int count)
{
    return parse_numbers(s.answer(request).text.mid(3), count)
        .value_or(std::vector<double>(size_t(count), NAN));
}

/// All that requests may change, as it is reported.
QByteArray everything(Simulator& s)
{
    QByteArray all;
    for (const char* request :
         {"sim state", "sim tip", "get tracking extra_rotation", "get tracking extra_translation",
          "get tracking extra_scaling", "get tracking room c01",
          "get measurementtool measurement_duration b01"})
        all += s.answer(request).text;
    return all;
}

} // namespace

class TestSimulatorModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    // A search over all pairings must have one clear winner: any two triangles differ somewhere.
    void points_can_be_told_apart_by_their_distances()
    {
        const std::vector<Vec3> points = object_points();
        QVERIFY(points.size() >= 8);
        std::vector<std::array<double, 3>> triangles; // side lengths in order
        for (size_t i = 0; i < points.size(); ++i)
            for (size_t j = 0; j < i; ++j)
                for (size_t k = 0; k < j; ++k) {
                    triangles.push_back({length(points[i] - points[j]),
                                         length(points[j] - points[k]),
                                         length(points[k] - points[i])});
                    std::sort(triangles.back().begin(), triangles.back().end());
                }
        for (size_t a = 0; a < triangles.size(); ++a)
            for (size_t b = 0; b < a; ++b) {
                double most = 0.0;
                for (size_t k = 0; k < 3; ++k)
                    most = std::max(most, std::abs(triangles[a][k] - triangles[b][k]));
                QVERIFY(most > 2.0);
            }
    }

    void the_object_stands_in_the_room_for_every_seed()
    {
        for (unsigned int seed = 0; seed < 200; ++seed)
            for (const Vec3& point : object_points()) {
                const Vec3 p = place_object(seed) * point;
                QVERIFY(p.y > 0.0 && std::abs(p.x) < room_half_width
                        && std::abs(p.z) < room_half_depth);
            }
        QVERIFY(length(place_object(1).position - place_object(2).position) > 1.0);
    }

    void cameras_hang_on_the_walls_and_look_inside()
    {
        for (int count : {0, 1, 7, 200}) {
            const std::vector<Pose> cameras = mount_cameras(count);
            QCOMPARE(int(cameras.size()), count);
            for (const Pose& camera : cameras) {
                const double out_of_middle =
                    std::max(std::abs(camera.position.x) / room_half_width,
                             std::abs(camera.position.z) / room_half_depth);
                QVERIFY(std::abs(out_of_middle - 1.0) < 1e-12);
                QVERIFY(is_rotation(camera.rotation, 1e-12));
                QVERIFY(dot(camera.rotation.column(2), Vec3{} - camera.position) > 0.0);
            }
        }
    }

    void calibrations_put_axes_and_origin()
    {
        const std::tuple<const char*, Vec3, Vec3> table[] = {
            {"normal", {0, 0, 0}, {0, 0, 1}}, // the origin in the world, and a step upwards
            {"powerwall", {0, 1200, -room_half_depth}, {0, 1, 0}},
            {"powerwall_standing", {0, 0, -room_half_depth}, {0, 1, 0}},
            {"mid_camera", {0, 2300, -room_half_depth}, {0, 1, 0}}};
        for (const auto& [type, origin, above] : table) {
            const Pose T_room_world = calibration(type, mount_cameras(6));
            QVERIFY2(length(T_room_world * origin) < 1e-9, type);
            QVERIFY2(length(T_room_world * (origin + Vec3{0, 1, 0}) - above) < 1e-9, type);
            QVERIFY2(length(T_room_world * (origin + Vec3{1, 0, 0}) - Vec3{1, 0, 0}) < 1e-9, type);
            QVERIFY2(is_rotation(T_room_world.rotation, 1e-12), type);
        }
    }

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
        const QByteArray before = everything(s);
        refused(s, "sim;SIM lose;;tracking start;get;set;do;set tracking available 0;set config "
                   "is_changeable no");
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
        refused(s,
                "tracking;tracking start now;zetrak2 tracking start;"
                "measurementtool start_measurement ;measurementtool start_measurement b03;"
                "data stream ;data stream -1;data stream 65536;data stream 12 13",
                "do ");
        refused(s, QByteArray("set tracking extra_scaling 1.1\0", 31));
        refused(s, "get " + QByteArray(100000, 'a'));
        refused(s,
                ";dance;touch;touch 0;touch 9;touch 1 2;touch +1;move 1 2;move 1 2 x;move 1 2 inf;"
                "tool 3;press;press tool;press tool 0;press tool 4;press leg;press stick 6;"
                "press stick -1;shake -1;noise;noise 1e9;lose 1;lock now;licence 2;roomcal;"
                "roomcal Normal;roomcal none none;camera 5 0;camera 1;camera 1 2;duration 0;"
                "duration 61;delay -1;delay 60001;fail every -1;fail every x;stop it; lose",
                "sim ");
        QCOMPARE(everything(s), before);
        QVERIFY(!s.is_stopped());
    }

    void conversations_go_as_they_should()
    {
        for (const QByteArray& rows : QList<QByteArray>{
                 "do measurementtool start_measurement b01 > error;do tracking start;"
                 " do tracking start; get status active > ok mea;do tracking stop;"
                 " do tracking stop; get status active > ok idle;do tracking start;"
                 " sim available 0; get status active > ok idle;get tracking available > ok no;"
                 " do tracking start > error;sim available 1; do tracking start; sim licence 0;"
                 "get licence measurementtool > ok 0",
                 "do tracking start; sim roomcal none; get status active > ok idle;"
                 "do tracking start > error; get tracking has_room c01 > ok 0;"
                 "get tracking room c01 > ok none;get roomcal last_coordinate_type > ok none;"
                 "sim truth > error; sim tip > error; sim move 0 0 0 > error;"
                 "sim roomcal powerwall loaded; get roomcal last_coordinate_type > ok none;"
                 "get roomcal coordinate_type > ok powerwall; sim camera 2 0;"
                 "get tracking has_room c02 > ok 0; get tracking room c02 > ok none;"
                 "get tracking has_room c01 > ok 1; sim roomcal mid_camera;"
                 "get roomcal last_coordinate_type > ok mid_camera",
                 "sim move 1 2 3; sim tool 2; sim move -4.5 5 6e1;"
                 "sim tip > ok -4.500 5.000 60.000; sim duration 2.5; sim tolerance 0.25;"
                 "sim tool 1; sim tip > ok 1.000 2.000 3.000;"
                 "get measurementtool measurement_duration b01 > ok 1.000;"
                 "get measurementtool measurement_duration b02 > ok 2.500;"
                 "get measurementtool measurement_tip_tolerance b02 > ok 0.250",
                 turned + ";get tracking extra_rotation > ok " + nine
                     + ";set tracking extra_translation -12.345 0.001 -0.000;"
                       "get tracking extra_translation > ok -12.345 0.001 0.000;"
                       "set tracking extra_scaling 1.04999;"
                       "get tracking extra_scaling > ok 1.04999;set tracking extra_scaling 1e-3;"
                       " get tracking extra_scaling > ok 0.00100",
                 "sim lock; get config is_changeable > ok no;" + turned
                     + " > error; set tracking extra_translation 1 2 3 > error;"
                       "set tracking extra_scaling 1.01 > error;"
                       "get tracking extra_translation > ok 0.000 0.000 0.000;"
                       "get tracking extra_scaling > ok 1.00000;do tracking start; sim unlock;"
                     + turned,
                 QByteArray("sim fail set tracking extra_sc; sim fail do tracking;"
                            "set tracking extra_scaling 1.1 > error; do tracking start > error;"
                            "get tracking extra_scaling > ok 1.00000; get status active > ok idle;"
                            "set tracking extra_translation 1 2 3; sim fail;"
                            "set tracking extra_scaling 1.1; do tracking start")
                     + ";" + QByteArray("sim fail x;").repeated(Faults::max_prefixes)
                     + "sim fail get > error; get status active > ok mea"}) {
            Simulator s({});
            converse(s, rows);
        }
    }

    void older_backends_do_not_know_newer_parameters()
    {
        const std::tuple<int, int, QByteArray> table[] = {
            {0, 9, "get tracking room c01"},
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
            for (const QByteArray& request : requests.split(';'))
                for (const Setup& setup : {first, much_newer})
                    QVERIFY2(Simulator(setup).answer(request).text.startsWith("ok"), request);
        }
    }

    // s (R p + t), written out element by element from the nine numbers that were sent.
    void camera_positions_follow_the_extra_transformation()
    {
        Simulator s({});
        const std::vector<double> before = values(s, "get tracking room c02", 12);
        converse(s, turned
                        + ";set tracking extra_translation 100.5 -200.25 300.125;"
                          "set tracking extra_scaling 1.025");
        const std::vector<double> after = values(s, "get tracking room c02", 12);
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

QTEST_APPLESS_MAIN(TestSimulatorModel)
#include "test_simulator_model.moc"
