#include "coarse/coarseadjustment.h"
#include "controller/roomadjustmentdata.h"
#include "controller/roomangles.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>
#include <QtWidgets/QStackedWidget>

#include <cmath>
#include <tuple>

namespace
{

const char last_type[] = "roomcal last_coordinate_type";
const char current_type[] = "roomcal coordinate_type";

/// Keeps the fine tab's three angles.
class KeptAngles : public RoomAngles
{
public:
    void get_angles(double& rx, double& ry, double& rz) override
    {
        std::tie(rx, ry, rz) = std::tie(angles[0], angles[1], angles[2]);
    }
    void set_angles(double rx, double ry, double rz) override
    {
        angles = {rx, ry, rz};
        ++times_set;
    }

    QVector<double> angles = {0.0, 0.0, 0.0};
    int times_set = 0;
};

// The tab with what surrounds it.
struct Stage
{
    explicit Stage(const char* type = "normal")
    {
        controller.values[last_type] = controller.values[current_type] = type;
        tab.setRoomAngles(&dialog);
        QObject::connect(&tab, &CoarseAdjustment::do_btn_apply_enable,
                         [this](bool on) { apply_signals += on; });
    }

    template <typename Widget = QLabel>
    Widget* get(const char* name)
    {
        return tab.findChild<Widget*>(name);
    }
    QComboBox* right() { return get<QComboBox>("comboBox_right"); }
    QComboBox* top() { return get<QComboBox>("comboBox_top"); }

    // What the six widgets show, in the order left, right, up, down, out, in.
    QString shown()
    {
        const QString boxes = right()->currentText() + ' ' + top()->currentText() + ' ';
        return get("label_left")->text() + ' ' + boxes + get("label_bottom")->text() + ' '
               + get("label_bottom_left")->text() + ' ' + get("label_top_right")->text();
    }
    QImage sketch()
    {
        return get<QStackedWidget>("stackedWidget")->currentWidget()->grab().toImage();
    }

    FakeController controller;
    BackendVersions versions = backend(1, 9);
    RoomAdjustmentData data;
    KeptAngles dialog;
    CoarseAdjustment tab{&controller, &versions, &data, nullptr};
    int apply_signals = 0;
};

QString described(const CoordinateAxix& axis)
{
    CoordinateCalculator calculator(5);
    QStringList texts;
    for (int code : {axis.left, axis.right, axis.up, axis.down, axis.out, axis.in})
        texts << calculator.convert_int_to_desc(code);
    return texts.join(' ');
}

} // namespace

class TestCoarseAdjustment : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        install_fatal_logger();
        Q_INIT_RESOURCE(roomadjustment);
    }

    void type_is_asked_in_the_order_of_the_version()
    {
        const std::string last = std::string("get ") + last_type, fails = " -> failed";
        const std::string current = std::string("get ") + current_type;
        const std::string error = "message Error: Cannot require room calibration coordinate type.";
        using Log = std::vector<std::string>;
        const struct
        {
            int minor;
            const char *last, *current; // an empty one fails
            Log log;
            int type;
        } rows[] = {
            {9, "mid_camera", "", {last}, 3},
            {9, "powerwall_standing", "", {last}, 2},
            {9, "none", "powerwall", {last, current}, 1},
            {9, "none", "none", {last, current}, 5},
            {9, "", "normal", {last + fails, error}, -1},
            {9, "none", "", {last, current + fails, error}, -1},
            {9, "none ", "", {last}, -1},
            {8, "", "normal", {current}, 0},
            {8, "", "none", {current, current}, 5},
        };
        for (const auto& row : rows) {
            Stage stage(row.last);
            stage.versions.minor = row.minor;
            stage.controller.values[current_type] = row.current;
            for (const char* query : {last_type, current_type})
                if (stage.controller.values[query].empty())
                    stage.controller.values.erase(query);
            QCOMPARE(stage.tab.get_roomcal_coord_type(), row.type);
            QCOMPARE(stage.controller.log, row.log);

            stage.tab.do_update();
            const bool usable = row.type >= 0 && row.type != 5;
            QCOMPARE(stage.right()->isEnabled() && stage.top()->isEnabled(), usable);
            QCOMPARE(stage.shown(), QString(row.type == 0 ? "-x x z -z -y y" : "-x x y -y z -z"));
            const QImage sketch = stage.sketch();
            QCOMPARE(sketch != QImage(":/background.png").convertToFormat(sketch.format()), usable);
        }
    }

    // From every assignment to every value of either box, against the calculator.
    void every_choice_reaches_the_fine_tab()
    {
        Stage stage;
        CoordinateCalculator calculator(0);
        for (int start = 0; start < 36; ++start)
            for (int choice = 0; choice < 12; ++choice) {
                const bool choose_right = choice < 6;
                int right = start / 6, up = start % 6, out = -1;
                if (right / 2 == up / 2)
                    continue;
                stage.tab.do_update();
                stage.right()->setCurrentIndex(right);
                stage.top()->setCurrentIndex(up);
                stage.apply_signals = stage.dialog.times_set = 0;

                int& chosen = choose_right ? right : up;
                const bool changes = chosen != choice % 6;
                chosen = choice % 6;
                (choose_right ? stage.right() : stage.top())->setCurrentIndex(chosen);
                calculator.adjust_coordinate_desc(right, up, out, choose_right);
                const CoordinateAxix axis = {right ^ 1, right, up, up ^ 1, out, out ^ 1};
                QCOMPARE(stage.shown(), described(axis));
                int rx = 0, ry = 0, rz = 0;
                calculator.get_angle_from_coord_desc(axis, rx, ry, rz);
                QCOMPARE(stage.dialog.angles,
                         (QVector<double>{double(rx), double(ry), double(rz)}));
                QCOMPARE(stage.apply_signals > 0, changes);
            }
    }

    void refresh_never_writes_back()
    {
        Stage stage;
        stage.dialog.angles = {90.0, 0.0, -90.0};
        stage.tab.do_update();
        QCOMPARE(stage.shown(), QString("-y y -x x z -z"));
        QCOMPARE(stage.dialog.times_set + stage.apply_signals, 0);
    }

    void angles_are_rounded_up_before_the_test()
    {
        Stage stage("powerwall");
        stage.tab.do_update();
        const struct
        {
            QVector<double> angles;
            bool fits;
            const char* shown;
        } rows[] = {{{89.5, 0.0, -0.5}, true, "-x x -z z y -y"},
                    {{90.5, 0.0, 0.0}, false, "-x x y -y z -z"},
                    {{90.0, 0.0, 0.0}, true, "-x x -z z y -y"}};
        for (const auto& row : rows) {
            stage.dialog.angles = row.angles;
            stage.tab.update_from_data();
            QCOMPARE(stage.get<QFrame>("frame")->isEnabled(), row.fits);
            QCOMPARE(stage.shown(), QString(row.shown));
        }
    }

    void disabled_tab_still_shows_the_angles()
    {
        Stage enabled("powerwall"), locked("powerwall"), typeless("none");
        locked.tab.setEnabled(false);
        for (Stage* stage : {&enabled, &locked, &typeless}) {
            stage->dialog.angles = {0.0, 0.0, 90.0};
            stage->tab.do_update();
            if (stage != &enabled)
                QMetaObject::invokeMethod(&stage->tab, "on_pushButton_reset_clicked");
            QCOMPARE(stage->shown(), QString("y -y x -x z -z"));
            QCOMPARE(stage->dialog.times_set, 0);
        }
        QCOMPARE(locked.sketch(), enabled.sketch());
        QVERIFY(typeless.sketch() != enabled.sketch());
    }

    void reset_goes_to_the_standard_axes_once()
    {
        Stage stage;
        stage.dialog.angles = {0.0, 0.0, 90.0};
        stage.tab.do_update();
        stage.get<QPushButton>("pushButton_reset")->click();
        QCOMPARE(stage.shown(), QString("-x x z -z -y y"));
        QCOMPARE(stage.dialog.angles, (QVector<double>{0.0, 0.0, 0.0}));
        QVERIFY(stage.apply_signals > 0);
        stage.apply_signals = 0;
        stage.get<QPushButton>("pushButton_reset")->click();
        QCOMPARE(stage.apply_signals, 0);
    }

    void rotation_is_written_transposed()
    {
        Stage stage("powerwall");
        stage.dialog.angles = {0.0, 0.0, 90.0};
        stage.tab.do_update();
        stage.tab.updateRaData();
        const double expected[9] = {0, -1, 0, 1, 0, 0, 0, 0, 1};
        for (int i = 0; i < 9; ++i)
            QVERIFY(std::abs(stage.data.rotation[i] - expected[i]) < 1e-6);
    }
};

QTEST_MAIN(TestCoarseAdjustment)
#include "test_coarseadjustment.moc"
