// Ways through the dialog, with everything that is said to the controller on each.
#include "tests/module/dialogfixture.h"

namespace
{

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

} // namespace

class TestRoomAdjustmentDlg : public QObject, private DialogFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void init() { start(); }
    void cleanup() { stop(); }

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
};

QTEST_MAIN(TestRoomAdjustmentDlg)
#include "test_roomadjustmentdlg.moc"
