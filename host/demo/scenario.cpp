// Long because it is the script of the demonstration: one function for each of its scenes.
#include "host/demo/scenario.h"

#include "host/demo/failure.h"
#include "host/demo/simulatedperson.h"
#include "host/demo/stepper.h"
#include "host/demo/widgetdriver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QMainWindow>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <thread>

namespace
{

const QString adjustment = QStringLiteral("RoomAdjustmentDlgClass");
const QString matching = QStringLiteral("AbcMatchingDialogClass");
constexpr int coarse_tab = 0;
constexpr int fine_tab = 1;

// The noise lets the fit work without going beyond the tolerance of a tool.
constexpr double noise = 0.2;       // mm, standard deviation per axis
constexpr double frame_rate = 60.0; // Hz
constexpr int settle_time = 250;    // ms, until the view has caught up with what was done
constexpr std::chrono::milliseconds hold_time(50); // for which a button is pressed
constexpr int measurement_limit = 20000;           // ms
constexpr std::size_t fewest_points = 4;
constexpr int start_ways = 4;
constexpr int typed_points = 2; // the others come from a file
constexpr int shown_decimals = 2;

// What the numbers sent may differ from those shown: half a unit of the last decimal, and for the
// rotation the fineness of the constant between degrees and radians.
constexpr double translation_fineness = 0.0006;
constexpr double rotation_fineness = 2e-6;
constexpr double scaling_fineness = 6e-6;

const std::array<const char*, 3> offset_boxes = {"doubleSpinBox_x", "doubleSpinBox_y",
                                                 "doubleSpinBox_z"};
const std::array<const char*, 3> angle_boxes = {"doubleSpinBox_rx", "doubleSpinBox_ry",
                                                "doubleSpinBox_rz"};
const char scaling_box[] = "doubleSpinBox_scalingFactor";

QDoubleSpinBox& box(const char* name)
{
    return driver::find<QDoubleSpinBox>(adjustment, QLatin1String(name));
}

std::vector<double> values(const std::array<const char*, 3>& boxes)
{
    std::vector<double> numbers;
    for (const char* name : boxes)
        numbers.push_back(box(name).value());
    return numbers;
}

/// A text of the module's menu in the language that is loaded, without its mnemonic.
QString module_text(const char* text)
{
    return QCoreApplication::translate("RoomAdjustmentModule2g", text).remove(QLatin1Char('&'));
}

void click(const QString& window, const char* button)
{
    driver::click(driver::find<QPushButton>(window, QLatin1String(button)));
}

bool is_enabled(const QString& window, const char* button)
{
    return driver::find<QPushButton>(window, QLatin1String(button)).isEnabled();
}

QTabWidget& tabs() { return driver::find<QTabWidget>(adjustment, QStringLiteral("tabWidget")); }

QTableWidget& reference_table()
{
    return driver::find<QTableWidget>(matching, QStringLiteral("tableWidget_referencePoints"));
}

QString report()
{
    return driver::find<QTextEdit>(matching, QStringLiteral("w_trafoText")).toPlainText();
}

QString unexpected_box()
{
    const QMessageBox* box = driver::message_box();
    return box ? QStringLiteral("unexpected message \"%1\"").arg(box->text()) : QString();
}

void require(bool condition, const char* text)
{
    if (!condition)
        throw DemoFailure(QString::fromUtf8(text));
}

// Every point in an order that is not the object's, the same at each run.
std::vector<int> shuffled(int count)
{
    std::vector<int> order;
    for (int i = 0; i < count; ++i)
        order.push_back(i % 2 ? i / 2 : count - 1 - i / 2);
    return order;
}

void print_comparison(const Point& reference, const Point& reported, double deviation,
                      double allowed)
{
    std::printf("  reference (%8.2f %8.2f %8.2f)  reported (%8.2f %8.2f %8.2f)  deviation %.3f mm, "
                "allowed %.3f mm\n",
                reference[0], reference[1], reference[2], reported[0], reported[1], reported[2],
                deviation, allowed);
}

} // namespace

Scenario::Scenario(Stepper& stepper, SimulatedPerson& person, QMainWindow& main_window,
                   const QString& screenshot_folder)
    : m_stepper(stepper), m_person(person), m_main_window(main_window), m_folder(screenshot_folder)
{
}

void Scenario::plan()
{
    prepare_simulator();
    m_stepper.set_alarm(unexpected_box);
    plan_opening();
    plan_coarse();
    plan_fine();
    plan_unsaved_question();
    plan_reference_points();
    plan_measurements();
    plan_result();
    plan_end();
}

void Scenario::prepare_simulator()
{
    m_person.act("shake 0");
    m_person.act("noise " + QByteArray::number(noise));
    m_person.act("tool 1");
    m_points = m_person.object_points();
    require(m_points.size() >= fewest_points, "the simulator's object has too few points");
}

void Scenario::plan_opening()
{
    const QString menu = module_text("&Calibration");
    m_stepper.pause(settle_time);
    m_stepper.act("open the menu", [=] { driver::open_menu(m_main_window, menu); });
    plan_picture("menu");
    m_stepper.act("choose the menu entry", [=] {
        driver::close_menus();
        driver::menu_entry(m_main_window, menu, module_text("Room a&djustment")).trigger();
    });
    m_stepper.await("room adjustment dialog", [] { return driver::visible_window(adjustment); });
}

void Scenario::plan_coarse()
{
    m_stepper.await("coarse tab", [] { return tabs().isEnabled() && tabs().currentIndex() == 0; });
    m_stepper.act("choose the axis to the right", [] {
        driver::choose(driver::find<QComboBox>(adjustment, "comboBox_right"), "z");
    });
    m_stepper.act("choose the axis to the top", [] {
        driver::choose(driver::find<QComboBox>(adjustment, "comboBox_top"), "-x");
    });
    plan_picture("coarse");
    m_stepper.act("go to the fine tab", [] { driver::show_tab(tabs(), fine_tab); });
    m_stepper.act("compare the angles", [] {
        const std::vector<double> angles = values(angle_boxes);
        std::printf("Angles of the coarse tab: %g %g %g\n", angles[0], angles[1], angles[2]);
        require(angles != std::vector<double>(3, 0.0), "the coarse tab has not set any angle");
    });
}

void Scenario::plan_fine()
{
    m_stepper.act("type an offset", [] {
        driver::type_number(box("doubleSpinBox_x"), 120.5);
        driver::type_number(box("doubleSpinBox_y"), -35.25);
        driver::type_number(box("doubleSpinBox_z"), 80.0);
    });
    m_stepper.act("type an angle", [] { driver::type_number(box("doubleSpinBox_rz"), 12.34); });
    m_stepper.act("type a scaling", [] { driver::type_number(box(scaling_box), 1.0125); });
    m_stepper.act("turn the view", [] {
        driver::drag(driver::find_by_class(adjustment, "QGLWidget"), Qt::RightButton,
                     Qt::ControlModifier, QPoint(60, 40));
    });
    plan_picture("fine");
    m_stepper.act("apply", [] { click(adjustment, "btn_apply"); });
    m_stepper.act("compare with the controller", [this] { require_controller_holds_fine_tab(); });
    m_stepper.act("go to the coarse tab", [] { driver::show_tab(tabs(), coarse_tab); });
    m_stepper.pause(settle_time);
    m_stepper.act("go back with a key",
                  [] { driver::press_key(driver::window(adjustment), Qt::Key_F5); });
    m_stepper.await("fine tab", [] { return tabs().currentIndex() == fine_tab; });
}

void Scenario::plan_unsaved_question()
{
    m_stepper.act("change without applying", [] {
        driver::type_number(box("doubleSpinBox_y"), 10.0);
        click(adjustment, "btn_resetScaling");
    });
    m_stepper.act("start matching", [] { click(adjustment, "w_bodyMatchingButton"); });
    m_stepper.await("question about unsaved data", [] { return driver::message_box(); });
    plan_picture("question");
    m_stepper.act("want to save", [] { driver::answer(QMessageBox::Yes); });
    m_stepper.await("end of the question", [] { return !driver::message_box(); });
    m_stepper.act("apply", [] { click(adjustment, "btn_apply"); });
    m_stepper.act("compare with the controller", [this] { require_controller_holds_fine_tab(); });
    m_stepper.act("start matching again", [] { click(adjustment, "w_bodyMatchingButton"); });
    m_stepper.await("matching dialog", [] { return driver::visible_window(matching); });
}

void Scenario::plan_reference_points()
{
    for (int row = 0; row < typed_points; ++row)
        m_stepper.act("type a reference point", [this, row] {
            click(matching, "pushButton_addRefPoint");
            const Point& point = m_points[static_cast<std::size_t>(row)];
            for (int column = 0; column < 3; ++column)
                driver::type_number(reference_table(), row, column,
                                    point[static_cast<std::size_t>(column)]);
        });
    plan_picture("typed-points");
    m_stepper.act("save the reference points in the simulator",
                  [this] { m_points_file = m_person.save_points(); });
    m_stepper.act("load reference points", [] { click(matching, "w_loadButton"); });
    m_stepper.await("file dialog", [] {
        return QApplication::activeModalWidget() != driver::visible_window(matching);
    });
    m_stepper.act("choose the file", [this] { driver::choose_file(m_points_file); });
    m_stepper.await("reference points in the table",
                    [this] { return reference_table_holds_points(); });
    m_stepper.act("let the order be found", [] {
        auto& ordered = driver::find<QCheckBox>(matching, "w_orderCheckBox");
        if (ordered.isChecked())
            driver::click(ordered);
    });
}

bool Scenario::reference_table_holds_points() const
{
    const QTableWidget& table = reference_table();
    bool same = table.rowCount() == static_cast<int>(m_points.size());
    for (int row = 0; same && row < table.rowCount(); ++row)
        for (int column = 0; column < 3; ++column) {
            const double coordinate =
                m_points[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            same = same
                   && table.item(row, column)->text()
                          == QString::number(coordinate, 'f', shown_decimals);
        }
    return same;
}

void Scenario::plan_measurements()
{
    int number = 0;
    for (int point : shuffled(static_cast<int>(m_points.size())))
        plan_measurement(number++, point);
    m_stepper.await("a transformation", [] { return is_enabled(matching, "w_applyButton"); });
    m_stepper.act("print the report", [] { std::printf("\n%s\n", qPrintable(report())); });
    plan_picture("report");
    m_stepper.act("accept the transformation", [] { click(matching, "w_applyButton"); });
    m_stepper.await("end of matching", [] { return !driver::visible_window(matching); });
}

void Scenario::plan_measurement(int number, int point)
{
    m_stepper.act("touch a point",
                  [this, point] { m_person.act("touch " + QByteArray::number(point + 1)); });
    m_stepper.pause(settle_time);
    m_stepper.await("a tracked tool", [] { return is_enabled(matching, "w_measureButton"); });
    plan_measurement_start(number % start_ways);
    if (number == 0)
        plan_picture("measuring");
    m_stepper.await(
        "measured point", [this, number] { return is_measured(number + 1); }, measurement_limit);
}

void Scenario::plan_measurement_start(int way)
{
    switch (way) {
    case 0:
        m_stepper.act("press the measure button", [] { click(matching, "w_measureButton"); });
        break;
    case 1:
        m_stepper.act("press a button of the tool", [this] { press_for_a_moment("tool 1"); });
        break;
    case 2:
        m_stepper.act("press a button of the Wandstick", [this] { press_for_a_moment("stick 0"); });
        break;
    default:
        m_stepper.act("let the tool start by itself", [this] { m_person.act("measure"); });
    }
}

// A held button asks for a measurement with every data line. The hand lets go on time, even where
// a slow controller keeps the event loop busy with these.
void Scenario::press_for_a_moment(const QByteArray& button)
{
    m_person.act("press " + button);
    std::this_thread::sleep_for(hold_time);
    m_person.act("release " + button);
}

bool Scenario::is_measured(int rows)
{
    if (report().startsWith(QLatin1String("Measurement failed")))
        throw DemoFailure(report());
    const auto& table = driver::find<QTableWidget>(matching, "tableWidget_measuredPoints");
    require(table.rowCount() <= rows, "more points were measured than the tool has touched");
    return table.rowCount() == rows;
}

void Scenario::plan_result()
{
    m_stepper.await("a result to apply", [] { return is_enabled(adjustment, "btn_apply"); });
    m_stepper.act("adjust the view", [] { click(adjustment, "w_adjustViewButton"); });
    plan_picture("result");
    m_stepper.act("apply the result", [] { click(adjustment, "btn_apply"); });
    m_stepper.act("compare with the controller", [this] { require_controller_holds_fine_tab(); });
    m_stepper.act("compare with the truth", [this] { check_points(true); });
}

void Scenario::plan_end()
{
    m_stepper.act("close the dialog", [] { click(adjustment, "btn_ok"); });
    m_stepper.await("end of the dialog", [] { return !driver::visible_window(adjustment); });
    plan_picture("end");
    m_stepper.act("compare with the truth again", [this] { check_points(false); });
}

void Scenario::require_controller_holds_fine_tab()
{
    std::vector<double> shift = values(offset_boxes);
    for (double& number : shift)
        number = -number;
    const std::vector<double> angles = values(angle_boxes);
    const auto rotation = rotation_from_angles(angles[0], angles[1], angles[2]);
    require(largest_difference(m_person.parameter("tracking extra_translation"), shift)
                < translation_fineness,
            "the controller's translation is not the one shown");
    require(largest_difference(m_person.parameter("tracking extra_rotation"),
                               {rotation.begin(), rotation.end()})
                < rotation_fineness,
            "the controller's rotation is not the one shown");
    require(
        largest_difference(m_person.parameter("tracking extra_scaling"), {box(scaling_box).value()})
            < scaling_fineness,
        "the controller's scaling is not the one shown");
}

void Scenario::check_points(bool print)
{
    const double duration = m_person.parameter("measurementtool measurement_duration b01").front();
    const MeasurementLimits limits = {noise, duration * frame_rate,
                                      static_cast<int>(m_points.size())};
    const Pose room_object = m_person.true_pose();
    double worst = 0.0;
    bool all_right = true;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        m_person.act("touch " + QByteArray::number(static_cast<int>(i) + 1));
        const Point reported = m_person.tip();
        const double deviation = distance(reported, m_points[i]);
        const double allowed = allowed_deviation(limits, room_object(m_points[i]));
        worst = std::max(worst, deviation);
        all_right = all_right && deviation <= allowed;
        if (print)
            print_comparison(m_points[i], reported, deviation, allowed);
    }
    require(all_right, "the points are not where they should be");
    m_result =
        QStringLiteral("the controller reports all points within %1 mm").arg(worst, 0, 'f', 3);
}

void Scenario::plan_picture(const QString& name)
{
    if (m_folder.isEmpty())
        return;
    m_stepper.pause(settle_time);
    m_stepper.act("take a picture", [this, name] { take_picture(name); });
}

void Scenario::take_picture(const QString& name)
{
    const QString file = QStringLiteral("%1/%2-%3.png")
                             .arg(m_folder)
                             .arg(++m_pictures, 2, 10, QLatin1Char('0'))
                             .arg(name);
    const QRect area = driver::occupied_area();
    const QPixmap screen = QApplication::primaryScreen()->grabWindow(0, area.x(), area.y(),
                                                                     area.width(), area.height());
    if (!QDir().mkpath(m_folder) || !screen.save(file))
        throw DemoFailure(QStringLiteral("%1 cannot be written").arg(file));
}
