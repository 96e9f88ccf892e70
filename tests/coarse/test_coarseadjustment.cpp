#include "coarse/coarseadjustment.h"
#include "module/roomadjustmentdata.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtGui/QStandardItemModel>
#include <QtTest/QtTest>
#include <QtWidgets/QDialog>

#include <cmath>

// Stands in for the real dialog, which is not linked: it keeps the fine tab's three angles.
class RoomAdjustmentDlg2g : public QDialog
{
public:
    void setCooTransAngleValues(const double& rx, const double& ry, const double& rz);
    void getCooTransAngleValues(double& rx, double& ry, double& rz);

    QVector<double> angles = {0.0, 0.0, 0.0};
    int times_set = 0;
};

void RoomAdjustmentDlg2g::setCooTransAngleValues(const double& rx, const double& ry,
                                                 const double& rz)
{
    angles = {rx, ry, rz};
    ++times_set;
}

void RoomAdjustmentDlg2g::getCooTransAngleValues(double& rx, double& ry, double& rz)
{
    rx = angles[0];
    ry = angles[1];
    rz = angles[2];
}

namespace
{

const char last_type[] = "roomcal last_coordinate_type";
const char current_type[] = "roomcal coordinate_type";

// The tab in a dialog of its own, with what surrounds it.
struct Stage
{
    explicit Stage(const char* type = "normal")
    {
        controller.values[last_type] = controller.values[current_type] = type;
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
    RoomAdjustmentDlg2g dialog;
    CoarseAdjustment tab{&controller, &versions, &data, &dialog};
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
    void initTestCase();
    void type_is_asked_in_the_order_of_the_version_data();
    void type_is_asked_in_the_order_of_the_version();
    void every_choice_reaches_the_fine_tab();
    void repair_reports_from_both_handlers();
    void refresh_never_writes_back();
    void angles_are_rounded_up_before_the_test();
    void disabled_tab_still_shows_the_angles();
    void reset_goes_to_the_standard_axes_once();
    void columns_share_the_table();
    void rotation_is_written_transposed();
};

void TestCoarseAdjustment::initTestCase()
{
    install_fatal_logger();
    Q_INIT_RESOURCE(roomadjustment);
}

void TestCoarseAdjustment::type_is_asked_in_the_order_of_the_version_data()
{
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<int>("type");
    const QString last = QString("get ") + last_type, current = QString("get ") + current_type;
    const QString fails = " -> failed";
    const QString error = "message Error: Cannot require room calibration coordinate type.";
    const QStringList once = {last}, both = {last, current}, old = {current};
    const QStringList twice = {current, current};
    const QStringList none = {last + fails, error}, half = {last, current + fails, error};
    const struct
    {
        int minor;
        const char *last, *current; // an empty one fails
        QStringList log;
        int type;
    } rows[] = {
        {9, "mid_camera", "", once, 3},    {9, "powerwall_standing", "", once, 2},
        {9, "none", "powerwall", both, 1}, {9, "none", "none", both, 5},
        {9, "", "normal", none, -1},       {9, "none", "", half, -1},
        {9, "Normal", "", once, -1},       {9, "none ", "", once, -1},
        {8, "", "normal", old, 0},         {8, "", "none", twice, 5},
    };
    for (const auto& row : rows)
        QTest::addRow("1.%d, '%s' then '%s'", row.minor, row.last, row.current)
            << row.minor << QString(row.last) << QString(row.current) << row.log << row.type;
}

void TestCoarseAdjustment::type_is_asked_in_the_order_of_the_version()
{
    QFETCH(int, minor);
    QFETCH(QString, last);
    QFETCH(QString, current);
    QFETCH(int, type);
    Stage stage(qPrintable(last));
    stage.versions.minor = minor;
    stage.controller.values[current_type] = current.toStdString();
    for (const char* query : {last_type, current_type})
        if (stage.controller.values[query].empty())
            stage.controller.values.erase(query);
    QCOMPARE(stage.tab.get_roomcal_coord_type(), type);
    QStringList log;
    for (const std::string& entry : stage.controller.log)
        log << QString::fromStdString(entry);
    QTEST(log, "log");

    stage.tab.do_update();
    const bool usable = type >= 0 && type != 5;
    QCOMPARE(stage.right()->isEnabled() && stage.top()->isEnabled(), usable);
    QCOMPARE(stage.shown(), QString(type == 0 ? "-x x z -z -y y" : "-x x y -y z -z"));
    QCOMPARE(stage.sketch() == QImage(":/background.png").convertToFormat(stage.sketch().format()),
             !usable);
}

// From every assignment to every value of either box, against the calculator.
void TestCoarseAdjustment::every_choice_reaches_the_fine_tab()
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
            QCOMPARE(stage.dialog.angles, (QVector<double>{double(rx), double(ry), double(rz)}));
            QCOMPARE(stage.apply_signals > 0, changes);
        }
}

void TestCoarseAdjustment::repair_reports_from_both_handlers()
{
    Stage stage;
    stage.tab.do_update();
    stage.right()->setCurrentIndex(4);
    QCOMPARE(stage.shown(), QString("-z z x -x y -y"));
    QCOMPARE(stage.apply_signals, 2);
    QCOMPARE(stage.dialog.times_set, 2);
}

void TestCoarseAdjustment::refresh_never_writes_back()
{
    Stage stage;
    stage.dialog.angles = {90.0, 0.0, -90.0};
    stage.tab.do_update();
    stage.tab.do_update();
    QCOMPARE(stage.shown(), QString("-y y -x x z -z"));
    QCOMPARE(stage.dialog.times_set + stage.apply_signals, 0);
    QVERIFY(stage.tab.update_enabled);
}

void TestCoarseAdjustment::angles_are_rounded_up_before_the_test()
{
    Stage stage("powerwall");
    stage.dialog.angles = {89.5, 0.0, -0.5};
    stage.tab.do_update();
    QVERIFY(stage.get<QFrame>("frame")->isEnabled());
    QCOMPARE(stage.shown(), QString("-x x -z z y -y"));
    const QImage turned = stage.sketch();

    stage.dialog.angles = {90.5, 0.0, 0.0};
    stage.tab.update_enabled = false;
    stage.tab.update_from_data();
    QVERIFY(!stage.get<QFrame>("frame")->isEnabled());
    QCOMPARE(stage.shown(), QString("-x x y -y z -z"));

    stage.dialog.angles = {90.0, 0.0, 0.0};
    stage.tab.update_from_data();
    QVERIFY(stage.get<QFrame>("frame")->isEnabled());
    QCOMPARE(stage.shown(), QString("-x x -z z y -y"));
    QCOMPARE(stage.sketch(), turned);
}

void TestCoarseAdjustment::disabled_tab_still_shows_the_angles()
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

void TestCoarseAdjustment::reset_goes_to_the_standard_axes_once()
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

void TestCoarseAdjustment::columns_share_the_table()
{
    Stage stage;
    QStandardItemModel model(30, 4);
    stage.tab.setModel(&model);
    for (int width : {825, 1100}) {
        stage.tab.resize(width, 520);
        stage.dialog.show();
        QCoreApplication::processEvents();
        QTableView* table = stage.get<QTableView>("tableView");
        for (int column = 0; column < 4; ++column)
            QCOMPARE(table->columnWidth(column), table->width() / 4 - 1);
        QCOMPARE(table->rowHeight(29), 22);
    }
}

void TestCoarseAdjustment::rotation_is_written_transposed()
{
    Stage stage("powerwall");
    stage.dialog.angles = {0.0, 0.0, 90.0};
    stage.tab.do_update();
    stage.tab.updateRaData();
    const double expected[9] = {0, -1, 0, 1, 0, 0, 0, 0, 1};
    for (int i = 0; i < 9; ++i)
        QVERIFY(std::abs(stage.data.rotation[i] - expected[i]) < 1e-6);
}

QTEST_MAIN(TestCoarseAdjustment)
#include "test_coarseadjustment.moc"
