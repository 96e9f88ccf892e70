// Ways through the dialog, with everything that is said to the controller on each.
#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QTableView>

typedef std::vector<std::string> Log;

namespace
{

const Log subscriptions = {"subscribe ts", "subscribe 6dmt2", "subscribe 6dmt", "subscribe 6df2",
                           "subscribe 6df"};
const Log unsubscriptions = {"unsubscribe ts", "unsubscribe 6dmt2", "unsubscribe 6dmt",
                             "unsubscribe 6df2", "unsubscribe 6df"};
const Log camera_table = {"get camera number_of_cameras", "get tracking room c01",
                          "get tracking room c02"};
const Log record = {"get tracking extra_rotation", "get tracking extra_translation",
                    "get tracking extra_scaling"};
const std::string identity_text = "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                                  "0.00000000 0.00000000 0.00000000 1.00000000";
// -0 is what the negation of a zero offset writes; it reads back as zero.
const Log default_settings = {"set tracking extra_rotation " + identity_text,
                              "set tracking extra_translation -0.000 -0.000 -0.000",
                              "set tracking extra_scaling 1.00000"};

/// How often a window was brought to the front.
class RaiseCounter : public QObject
{
public:
    int count = 0;

    explicit RaiseCounter(QObject* window) { window->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::ZOrderChange;
        return false;
    }
};

Log join(std::initializer_list<Log> parts)
{
    Log all;
    for (const Log& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// What is said at an opening, by backend version.
Log opening(const BackendVersions& v)
{
    const bool v0_9 = v.major > 0 || v.minor >= 9;
    const bool v0_16 = v.major > 0 || v.minor >= 16;
    const bool v0_17 = v.major > 0 || v.minor >= 17;
    const bool v1_9 = v.major > 1 || (v.major == 1 && v.minor >= 9);
    const bool v1_18 = v.major > 1 || (v.major == 1 && v.minor >= 18);
    Log log;
    if (v0_17)
        log.push_back("get tracking available");
    log.push_back("get camera number_of_cameras");
    for (const char* camera : {"c01", "c02"})
        log.push_back(std::string("get tracking ") + (v1_18 ? "has_room " : "room ") + camera);
    if (v0_9)
        log = join({log, camera_table});
    if (v1_9)
        log.push_back("get config is_changeable");
    if (v0_16) {
        log = join({log, record, {"get licence measurementtool", "get tracking extra_scaling"}});
        log.push_back(v1_9 ? "get roomcal last_coordinate_type" : "get roomcal coordinate_type");
    }
    log.push_back("do zetrak2 tracking start");
    return join({log, subscriptions});
}

} // namespace

class TestRoomAdjustmentDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void init()
    {
        controller.reset(new FakeController);
        versions = backend(1, 20);
        dialog.reset(
            new RoomAdjustmentDlg2g(controller.get(), nullptr, &versions, QString("v2.0.5")));
    }

    void cleanup()
    {
        close_all_dialogs();
        dialog.reset();
    }

    void opening_by_version_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<bool>("usable");
        QTest::newRow("before the camera table") << 0 << 8 << false;
        QTest::newRow("camera table") << 0 << 9 << false;
        QTest::newRow("just before the extra transformation") << 0 << 15 << false;
        QTest::newRow("extra transformation") << 0 << 16 << true;
        QTest::newRow("tracking available") << 0 << 17 << true;
        QTest::newRow("before the configuration lock") << 1 << 8 << true;
        QTest::newRow("configuration lock") << 1 << 9 << true;
        QTest::newRow("before has_room") << 1 << 17 << true;
        QTest::newRow("has_room") << 1 << 18 << true;
        QTest::newRow("far ahead") << 2 << 0 << true;
    }

    void opening_by_version()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        versions = backend(major, minor);
        const Log expected = join({opening(versions), {"get status active"}, unsubscriptions});
        const Log log = exec([this] {
            QTEST(child<QTabWidget>("tabWidget")->isEnabled(), "usable");
            QTEST(child<QPushButton>("btn_ok")->isEnabled(), "usable");
            QVERIFY(!child<QPushButton>("btn_apply")->isEnabled());
            QVERIFY(child<QPushButton>("btn_cancel")->isEnabled());
            controller->values["status active"] = "anything but mea";
            dialog->close();
        });
        compare(log, expected);
        QCOMPARE(dialog->minimumSize(), QSize(1000, 700));
    }

    void unusable_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("minor");
        const char second_room[] = "tracking has_room c02";
        QTest::newRow("no tracking") << "tracking available"
                                     << "no" << 20;
        QTest::newRow("one camera with a room is not enough") << second_room << "0" << 20;
        QTest::newRow("no cameras") << "camera number_of_cameras"
                                    << "0" << 20;
        QTest::newRow("a camera that does not answer does not count") << second_room << "" << 20;
        QTest::newRow("older: one camera without a room") << "tracking room c02"
                                                          << "none" << 17;
    }

    void unusable()
    {
        QFETCH(QString, name);
        QFETCH(QString, value);
        QFETCH(int, minor);
        versions = backend(1, minor);
        if (value.isEmpty())
            controller->values.erase(name.toStdString());
        else
            controller->values[name.toStdString()] = value.toStdString();
        const Log log = exec([this] {
            QVERIFY(!child<QTabWidget>("tabWidget")->isEnabled());
            QVERIFY(!child<QPushButton>("btn_ok")->isEnabled());
            QVERIFY(!child<QLabel>("label_error")->isVisible());
            QTest::keyClick(dialog.get(), Qt::Key_F5);
            QCOMPARE(child<QTabWidget>("tabWidget")->currentIndex(), 1);
            QTest::keyClick(dialog.get(), Qt::Key_F5);
            child<QPushButton>("btn_cancel")->click();
        });
        for (const std::string& entry : log)
            QVERIFY2(entry.find("set ") != 0 && entry.find("do ") != 0, entry.c_str());
        QCOMPARE(controller->messages().size(), std::size_t(0));
    }

    void an_old_backend_passes_over_cameras_that_are_missing_or_silent()
    {
        versions = backend(1, 17);
        for (const char* cameras : {"0", "2"}) {
            controller->values["camera number_of_cameras"] = cameras;
            controller->values.erase("tracking room c02");
            exec([&] {
                QVERIFY(child<QTabWidget>("tabWidget")->isEnabled());
                QCOMPARE(child<QTableView>("tableView")->model()->rowCount(), atoi(cameras));
                dialog->close();
            });
        }
        // Only the camera table tells.
        QCOMPARE(controller->messages(), Log{"Error: Unable to get room cal of camera"});
    }

    void a_locked_configuration_shows_but_does_not_let()
    {
        controller->values["config is_changeable"] = "no";
        controller->values["tracking extra_scaling"] =
            "0.90000"; // makes the fine tab ask for Apply
        controller->values["tracking extra_translation"] = "10.000 0.000 -2.500";
        exec([this] {
            QVERIFY(!child<QTabWidget>("tabWidget")->isEnabled());
            QVERIFY(!child<QPushButton>("btn_apply")->isEnabled());
            QCOMPARE(child<QDoubleSpinBox>("doubleSpinBox_x")->value(), -10.0);
            QCOMPARE(child<QDoubleSpinBox>("doubleSpinBox_z")->value(), 2.5);
            QVERIFY(!dialog->windowIcon().isNull());
            child<QPushButton>("btn_cancel")->click();
        });
        QCOMPARE(controller->values["status active"], std::string("idle"));
        // The lock is asked at each opening.
        controller->values["config is_changeable"] = "yes";
        exec([this] {
            QVERIFY(child<QTabWidget>("tabWidget")->isEnabled());
            dialog->close();
        });
    }

    void camera_table()
    {
        controller->values["tracking room c02"] = "none";
        controller->values["camera number_of_cameras"] = "3";
        controller->failing = {"get tracking room c03"};
        exec([this] {
            const QAbstractItemModel* model = child<QTableView>("tableView")->model();
            const char* const expected[3][4] = {{"c01", "1000.50", "-20.25", "30.13"},
                                                {"c02", "0.00", "0.00", "0.00"},
                                                {"c03", "0.00", "0.00", "0.00"}};
            QCOMPARE(model->rowCount(), 3);
            for (int row = 0; row < 3; ++row)
                for (int column = 0; column < 4; ++column)
                    QCOMPARE(model->index(row, column).data().toString(),
                             QString(expected[row][column]));
            QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QString("x [mm]"));
            QCOMPARE(model->index(0, 1).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight));
            dialog->close();
        });
        QCOMPARE(controller->messages(), Log{"Error: Unable to get room cal of camera"});
    }

    void camera_number_100_is_cut_to_two_digits()
    {
        controller->values["camera number_of_cameras"] = "100";
        for (int camera = 3; camera <= 100; ++camera)
            controller->values
                [QString("tracking room c%1").arg(camera, 2, 10, QChar('0')).toStdString()] =
                "none";
        exec([this] {
            const QAbstractItemModel* model = child<QTableView>("tableView")->model();
            QCOMPARE(model->index(99, 0).data().toString(), QString("c10"));
            dialog->close();
        });
    }

    void apply_then_cancel_brings_back_the_state_at_opening()
    {
        controller->values["tracking extra_translation"] = "1.000 2.000 3.000";
        BoxAnswer answer(QMessageBox::Yes);
        const Log log = exec([this] {
            child<QDoubleSpinBox>("doubleSpinBox_x")->setValue(5.25);
            child<QDoubleSpinBox>("doubleSpinBox_rz")->setValue(90.0);
            child<QPushButton>("btn_apply")->click();
            QVERIFY(!child<QPushButton>("btn_apply")->isEnabled());
            child<QPushButton>("btn_cancel")->click();
        });
        const Log expected =
            join({opening(versions),
                  {"get status active", "do zetrak2 tracking stop",
                   "set tracking extra_rotation 0.00000000 -1.00000000 0.00000000 1.00000000 "
                   "0.00000000 0.00000000 0.00000000 0.00000000 1.00000000",
                   "set tracking extra_translation -5.250 2.000 3.000",
                   "set tracking extra_scaling 1.00000"},
                  ::camera_table,
                  {"do zetrak2 tracking start"},
                  record, // before the question
                  record, // after it
                  {"set tracking extra_rotation " + identity_text,
                   "set tracking extra_translation 1.000 2.000 3.000",
                   "set tracking extra_scaling 1.00000", "get status active",
                   "do zetrak2 tracking stop"},
                  unsubscriptions});
        compare(log, expected);
        QVERIFY(answer.seen);
        QCOMPARE(answer.title, QString("Room Adjustment"));
        QCOMPARE(answer.text, QString("Discard changes?"));
        QCOMPARE(answer.default_button, int(QMessageBox::No));
    }

    void ok_applies_and_leaves_tracking_stopped()
    {
        const Log log = exec([this] {
            child<QDoubleSpinBox>("doubleSpinBox_scalingFactor")->setValue(1.0123);
            child<QPushButton>("btn_ok")->click();
        });
        compare(log, join({opening(versions),
                           {"get status active", "do zetrak2 tracking stop", default_settings[0],
                            default_settings[1], "set tracking extra_scaling 1.01230"},
                           ::camera_table,
                           unsubscriptions}));
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
    }

    void cancel_without_a_change_asks_nothing_and_writes_nothing()
    {
        const Log log = exec([this] { child<QPushButton>("btn_cancel")->click(); });
        compare(log, join({opening(versions),
                           record,
                           record,
                           {"get status active", "do zetrak2 tracking stop"},
                           unsubscriptions}));
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
    }

    void escape_with_an_unapplied_change_asks_and_no_keeps_it()
    {
        BoxAnswer answer(QMessageBox::No);
        const Log log = exec([this] {
            child<QDoubleSpinBox>("doubleSpinBox_y")->setValue(1.0);
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
            QVERIFY(dialog->isVisible());
            QCOMPARE(controller->values["status active"], std::string("mea"));
            dialog->close();
        });
        QVERIFY(answer.seen);
        QCOMPARE(log.back(), std::string("unsubscribe 6df"));
        QCOMPARE(controller->sent(),
                 (Log{"do zetrak2 tracking start", "do zetrak2 tracking stop"}));
    }

    void a_second_opening_raises_the_window_and_changes_nothing()
    {
        controller->values["tracking extra_translation"] = "1.000 2.000 3.000";
        exec([this] {
            child<QDoubleSpinBox>("doubleSpinBox_x")->setValue(5.25);
            child<QPushButton>("btn_apply")->click();
            child<QTabWidget>("tabWidget")->setCurrentIndex(1);
            const Log before = controller->log;
            RaiseCounter raises(dialog.get());
            QCOMPARE(dialog->update_and_exec(), 0);
            QCOMPARE(raises.count, 1);
            QVERIFY(controller->log == before);
            QCOMPARE(child<QTabWidget>("tabWidget")->currentIndex(), 1);
            BoxAnswer answer(QMessageBox::Yes);
            child<QPushButton>("btn_cancel")->click();
        });
        QCOMPARE(controller->values["tracking extra_translation"],
                 std::string("1.000 2.000 3.000"));
    }

    void tab_walks_around_the_dialog_and_back()
    {
        const QStringList order = {"tableView",        "comboBox_top",        "comboBox_right",
                                   "pushButton_reset", "qt_tabwidget_tabbar", "btn_ok",
                                   "btn_cancel"};
        exec([&] {
            child<QTableView>("tableView")->setFocus();
            for (int i = 0; i <= order.size(); ++i) {
                QCOMPARE(dialog->focusWidget()->objectName(), order[i % order.size()]);
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            }
            for (int i = order.size() + 1; i >= 0; --i) {
                QCOMPARE(dialog->focusWidget()->objectName(), order[i % order.size()]);
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Backtab);
            }
            dialog->close();
        });
    }

    void window_close_keeps_what_was_applied()
    {
        exec([this] {
            child<QDoubleSpinBox>("doubleSpinBox_y")->setValue(-4.0);
            child<QPushButton>("btn_apply")->click();
            child<QDoubleSpinBox>("doubleSpinBox_y")->setValue(9.0);
            dialog->close();
        });
        QCOMPARE(controller->values["tracking extra_translation"],
                 std::string("-0.000 4.000 -0.000"));
        QCOMPARE(controller->values["status active"], std::string("idle"));
    }

    void coming_back_to_the_coarse_tab_follows_the_fine_one()
    {
        exec([this] {
            QTabWidget* tabs = child<QTabWidget>("tabWidget");
            QComboBox* right = child<QComboBox>("comboBox_right");
            tabs->setCurrentIndex(1);
            child<QDoubleSpinBox>("doubleSpinBox_rz")->setValue(-90.0);
            QTest::keyClick(dialog.get(), Qt::Key_F5);
            QCOMPARE(tabs->currentIndex(), 0);
            QCOMPARE(right->currentText(), QString("y"));
            // Showing it must not have written anything back.
            QCOMPARE(child<QDoubleSpinBox>("doubleSpinBox_rx")->value(), 0.0);
            right->setCurrentIndex(0);
            QCOMPARE(child<QDoubleSpinBox>("doubleSpinBox_rz")->value(), 0.0);
            dialog->close();
        });
    }

    void all_coarse_assignments_arrive_as_exact_zeros_and_ones()
    {
        controller->values["roomcal last_coordinate_type"] = "normal";
        const QRegularExpression exact("^(-?[01]\\.0{8} ){8}-?[01]\\.0{8}$");
        QSet<QString> seen;
        exec([&] {
            for (int right = 0; right < 6; ++right) {
                for (int up = 0; up < 6; ++up) {
                    if (right / 2 == up / 2)
                        continue;
                    child<QComboBox>("comboBox_right")->setCurrentIndex(right);
                    child<QComboBox>("comboBox_top")->setCurrentIndex(up);
                    child<QComboBox>("comboBox_right")->setCurrentIndex(right);
                    child<QPushButton>("btn_apply")->setEnabled(true);
                    child<QPushButton>("btn_apply")->click();
                    const QString rotation =
                        QString::fromStdString(controller->values["tracking extra_rotation"]);
                    QVERIFY2(exact.match(rotation).hasMatch(), qPrintable(rotation));
                    QVERIFY(!rotation.contains("-0"));
                    seen.insert(rotation);
                }
            }
            dialog->close();
        });
        QCOMPARE(seen.size(), 24);
    }

    void lines_pass_only_while_the_fine_tab_is_current()
    {
        exec([this] {
            QCOMPARE(dialog->set_ascii_data("ts", "ts no number"), 0);
            child<QTabWidget>("tabWidget")->setCurrentIndex(1);
            QCOMPARE(dialog->set_ascii_data("ts", "ts 1.5"), 0);
            QCOMPARE(dialog->set_ascii_data("ts", "ts no number"), -2);
            QCOMPARE(dialog->set_ascii_data("ts", nullptr), -2);
            QCOMPARE(dialog->set_ascii_data(nullptr, "ts 1.5"), -2);
            dialog->close();
        });
    }

    void reading_the_record()
    {
        const char rotation[] = "tracking extra_rotation";
        const char translation[] = "tracking extra_translation";
        const struct
        {
            const char* name;
            const char* reply;
            double expected[4]; // rotation[0], rotation[3], translation[1], scaling
        } rows[] = {
            {rotation, "0.5 2 3 -0.25 5 6 7 8 9", {0.5, -0.25, 0.0, 1.0}},
            {rotation, "0.5 2 3 -0.25 5 6 7 8 9 x", {0.5, -0.25, 0.0, 1.0}},
            {rotation, "0.5 2 3 -0.25 5 6 7 8", {1.0, 0.0, 0.0, 1.0}},
            {translation, "1 x 3", {1.0, 0.0, 0.0, 1.0}},
            {translation, "1 2.125 3", {1.0, 0.0, 2.125, 1.0}},
            {"tracking extra_scaling", "0.97", {1.0, 0.0, 0.0, 0.97}},
        };
        for (const auto& row : rows) {
            init();
            controller->values[row.name] = row.reply;
            RoomAdjustmentData data;
            dialog->getDataFromZtc(data);
            const double read[4] = {data.rotation[0], data.rotation[3], data.translation[1],
                                    data.scaling};
            QVERIFY2(std::equal(read, read + 4, row.expected), row.reply);
            QVERIFY(controller->messages().empty());
        }
    }

    void an_old_backend_leaves_the_passed_record_alone()
    {
        versions = backend(0, 15);
        RoomAdjustmentData data;
        data.scaling = 7.0;
        const std::size_t start = controller->log.size();
        dialog->getDataFromZtc(data);
        dialog->sendDataToZtc();
        QCOMPARE(data.scaling, 7.0);
        QCOMPARE(controller->log.size(), start);
    }

private:
    template <typename T>
    T* child(const char* name)
    {
        T* found = dialog->findChild<T*>(name);
        if (!found)
            qFatal("no widget %s", name);
        return found;
    }

    /// Opens the dialog, runs `step` in its event loop, returns what was said.
    Log exec(std::function<void()> step)
    {
        const std::size_t start = controller->log.size();
        when_open<RoomAdjustmentDlg2g>([this, step](RoomAdjustmentDlg2g*) {
            step();
            if (QTest::currentTestFailed())
                close_all_dialogs();
        });
        dialog->update_and_exec();
        return controller->log_since(start);
    }

    static void compare(const Log& log, const Log& expected)
    {
        for (std::size_t i = 0; i < std::max(log.size(), expected.size()); ++i) {
            const std::string actual = i < log.size() ? log[i] : "(nothing more)";
            const std::string wanted = i < expected.size() ? expected[i] : "(nothing more)";
            QCOMPARE(QString::fromStdString(actual), QString::fromStdString(wanted));
        }
    }

    std::unique_ptr<FakeController> controller;
    BackendVersions versions;
    std::unique_ptr<RoomAdjustmentDlg2g> dialog;
};

QTEST_MAIN(TestRoomAdjustmentDlg)
#include "test_roomadjustmentdlg.moc"
