#include "coarse/coarseadjustment.h"
#include "controller/roomadjustmentdata.h"
#include "controller/roomangles.h"
#include "controller/rotationangles.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>
#include <QtWidgets/QStackedWidget>

#include <algorithm>
#include <tuple>

namespace
{

const char last_type[] = "roomcal last_coordinate_type";
const char current_type[] = "roomcal coordinate_type";

using Angles = std::tuple<double, double, double>;

/// Keeps the fine tab's three angles.
struct KeptAngles : public RoomAngles
{
    void get_angles(double& rx, double& ry, double& rz) override { std::tie(rx, ry, rz) = angles; }
    void set_angles(double rx, double ry, double rz) override
    {
        angles = Angles(rx, ry, rz);
        ++times_set;
    }

    Angles angles{0.0, 0.0, 0.0};
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
        const QStringList d = {"x", "-x", "y", "-y", "z", "-z"};
        for (int i = 0; i < 36 * 12; ++i) {
            const bool choose_right = i < 36 * 6;
            int right = i / 6 % 6, up = i % 6, out = -1;
            if (right / 2 == up / 2)
                continue;
            stage.tab.do_update();
            stage.right()->setCurrentIndex(right);
            stage.top()->setCurrentIndex(up);
            stage.apply_signals = stage.dialog.times_set = 0;

            const int choice = i / 36 % 6;
            int& chosen = choose_right ? right : up;
            const bool changes = chosen != choice;
            chosen = choice;
            (choose_right ? stage.right() : stage.top())->setCurrentIndex(choice);
            calculator.adjust_coordinate_desc(right, up, out, choose_right);
            const QStringList shown = {d[right ^ 1], d[right], d[up],
                                       d[up ^ 1],    d[out],   d[out ^ 1]};
            QCOMPARE(stage.shown(), shown.join(' '));
            int rx = 0, ry = 0, rz = 0;
            calculator.get_angle_from_coord_desc({-1, right, up, -1, out, -1}, rx, ry, rz);
            QCOMPARE(stage.dialog.angles, Angles(rx, ry, rz));
            QCOMPARE(stage.apply_signals > 0, changes);
        }
    }

    void angles_are_rounded_up_before_the_test()
    {
        Stage stage("powerwall");
        stage.tab.do_update();
        const struct
        {
            Angles angles;
            bool fits;
            const char* shown;
        } rows[] = {{Angles(89.5, 89.2, -0.5), true, "-z z x -x y -y"},
                    {Angles(90.5, 0.0, 0.0), false, "-x x y -y z -z"},
                    {Angles(90.0, 0.0, 0.0), true, "-x x -z z y -y"}};
        for (const auto& row : rows) {
            stage.dialog.angles = row.angles;
            stage.tab.update_from_data();
            QCOMPARE(stage.get<QFrame>("frame")->isEnabled(), row.fits);
            QCOMPARE(stage.shown(), QString(row.shown));
        }
    }

    // A refresh never writes back, not even in a disabled tab, where it shows the angles, too.
    void only_reset_of_a_usable_tab_writes()
    {
        const struct
        {
            const char* type;
            bool enabled;
            Angles angles;
            const char *shown, *after_reset;
        } rows[] = {{"normal", true, Angles(90, 0, -90), "-y y -x x z -z", "-x x z -z -y y"},
                    {"powerwall", true, Angles(0, 0, 90), "y -y x -x z -z", "-x x y -y z -z"},
                    {"powerwall", false, Angles(0, 0, 90), "y -y x -x z -z", nullptr},
                    {"none", true, Angles(0, 0, 90), "y -y x -x z -z", nullptr}};
        QVector<QImage> sketches;
        for (const auto& row : rows) {
            Stage stage(row.type);
            stage.tab.setEnabled(row.enabled);
            stage.dialog.angles = row.angles;
            stage.tab.do_update();
            QCOMPARE(stage.shown(), QString(row.shown));
            QCOMPARE(stage.dialog.times_set + stage.apply_signals, 0);
            sketches << stage.sketch();
            double rotation[9], rx, ry, rz;
            std::tie(rx, ry, rz) = row.angles;
            angles_to_rotation(rx, ry, rz, rotation);
            stage.tab.updateRaData();
            QVERIFY(std::equal(rotation, rotation + 9, stage.data.rotation));

            stage.get<QPushButton>("pushButton_reset")->click();
            const int signals_of_first = stage.apply_signals;
            QMetaObject::invokeMethod(&stage.tab, "on_pushButton_reset_clicked");
            QCOMPARE(stage.shown(), QString(row.after_reset ? row.after_reset : row.shown));
            QCOMPARE(stage.dialog.angles, row.after_reset ? Angles(0, 0, 0) : row.angles);
            QVERIFY(stage.apply_signals == signals_of_first
                    && (stage.apply_signals > 0) == (row.after_reset != nullptr));
        }
        QCOMPARE(sketches[2], sketches[1]);
        QVERIFY(sketches[3] != sketches[1]);
    }
};

QTEST_MAIN(TestCoarseAdjustment)
#include "test_coarseadjustment.moc"
