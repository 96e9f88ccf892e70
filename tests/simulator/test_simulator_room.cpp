#include "simulator/model/roomlayout.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <cmath>

using namespace simulator;

namespace
{

double length(const Vec3& v) { return std::sqrt(dot(v, v)); }

} // namespace

class TestSimulatorRoom : public QObject
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
};

QTEST_APPLESS_MAIN(TestSimulatorRoom)
#include "test_simulator_room.moc"
