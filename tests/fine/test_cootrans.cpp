// The fine tab by itself: numbers, limits, guards, and the 3D view that follows them.
#include "SourceFiles/abcGLCanvas.h"
#include "controller/roomadjustmentdata.h"
#include "fine/cootrans.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QAction>
#include <QClipboard>
#include <QtTest>

class TestCooTrans : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void init()
    {
        controller.reset(new FakeController);
        versions = backend(1, 20);
        data = RoomAdjustmentData();
        tab.reset(new CooTrans(controller.get(), &versions, &data, nullptr, nullptr));
        apply.reset(new QSignalSpy(tab.get(), SIGNAL(do_btn_apply_enable(bool))));
    }

    void shows_the_negated_translation_and_the_transposed_rotation()
    {
        data.translation[1] = 12.345;
        const double quarter_about_z[9] = {0, -1, 0, 1, 0, 0, 0, 0, 1};
        std::copy(quarter_about_z, quarter_about_z + 9, data.rotation);
        tab->do_update();
        QVERIFY(std::abs(box("doubleSpinBox_y")->value() + 12.345) < 0.006);
        QCOMPARE(box("doubleSpinBox_rz")->value(), 90.0);
        QCOMPARE(apply->count(), 0);
        tab->updateGlobalData();
        for (int i = 0; i < 9; ++i)
            QCOMPARE(data.rotation[i], quarter_about_z[i]);
    }

    void a_third_decimal_counts_as_unsaved()
    {
        data.translation[0] = 1.001;
        tab->do_update();
        QVERIFY(!tab->controlValuesEqualsGlobalData());
        data.translation[0] = 1.5;
        tab->do_update();
        QVERIFY(tab->controlValuesEqualsGlobalData());
        box("doubleSpinBox_scalingFactor")->setValue(1.01);
        QVERIFY(tab->controlValuesEqualsGlobalData()); // the scaling is not looked at
        box("doubleSpinBox_rx")->setValue(0.01);
        QVERIFY(!tab->controlValuesEqualsGlobalData());
    }

    void numbers_are_taken_alike_in_every_language()
    {
        const double refused = 7.0; // what stood there before
        const struct
        {
            QString pasted;
            double value;
        } rows[] = {
            {"100.25", 100.25},
            {"2500,75", 2500.75},
            {QString(QChar(0x2212)) + "5", -5.0}, // the typographic minus
            {QString(QChar(0xa0)) + "-1.5\n", -1.5},
            {"1.234,5", refused},
            {"1,234.5", refused},
            {"1 000", refused},
            {"1e3", refused},
            {"nan", refused},
            {QString(QChar(0x665)), refused}, // a digit of another script
            {"1.234", refused},               // too many decimals
        };
        for (QLocale::Language language : {QLocale::C, QLocale::German}) {
            QLocale::setDefault(QLocale(language));
            init();
            const auto boxes =
                tab->findChildren<QDoubleSpinBox*>(QRegularExpression("^doubleSpinBox_"));
            QCOMPARE(boxes.size(), 7);
            for (QDoubleSpinBox* typed : boxes) {
                typed->selectAll();
                QTest::keyClicks(typed, "1,02");
                QCOMPARE(typed->text(), QString("1.02"));
                QCOMPARE(typed->value(), 1.02);
            }
            QDoubleSpinBox* x = box("doubleSpinBox_x");
            for (const auto& row : rows) {
                x->setValue(refused);
                x->selectAll();
                QApplication::clipboard()->setText(row.pasted);
                QTest::keyClick(x, Qt::Key_V, Qt::ControlModifier);
                QTest::keyClick(x, Qt::Key_Return);
                QVERIFY2(x->value() == row.value, qPrintable(row.pasted));
                QCOMPARE(x->text(), QString::number(row.value, 'f', 2));
            }
        }
        QLocale::setDefault(QLocale::c());
    }

    void scaling_limits()
    {
        const struct
        {
            const char* reply; // null is a failed query
            double minimum, value;
            const char* label;
            int apply_signals;
        } rows[] = {
            {"1.02", 0.95, 1.02, "Scaling (+/- 5%)", 1},
            {"0.95", 0.95, 0.95, "Scaling (+/- 5%)", 1},
            {"0.90", 0.1, 0.9, "Scaling", 1},
            {nullptr, 0.95, 1.0, "Scaling (+/- 5%)", 0},
        };
        for (const auto& row : rows) {
            init();
            answer("tracking extra_scaling", row.reply);
            tab->do_update();
            QCOMPARE(box("doubleSpinBox_scalingFactor")->minimum(), row.minimum);
            QCOMPARE(box("doubleSpinBox_scalingFactor")->value(), row.value);
            QCOMPARE(tab->findChild<QLabel*>("label_scaling_2")->text(), QString(row.label));
            QCOMPARE(apply->count(), row.apply_signals);
        }
    }

    void apply_follows_real_changes_and_two_of_the_resets()
    {
        tab->do_update();
        apply->clear();
        tab->findChild<QPushButton*>("btn_resetScaling")->click();
        QCOMPARE(apply->count(), 0);
        tab->findChild<QPushButton*>("btn_resetAngles")->click();
        tab->findChild<QPushButton*>("btn_resetVector")->click();
        QCOMPARE(apply->count(), 2);
        tab->setAngleValues(90.0, 0.0, -90.0);
        QCOMPARE(apply->count(), 4);
        box("doubleSpinBox_x")->setValue(3.0);
        QCOMPARE(apply->count(), 5);
        tab->setControlsDefaultValues();
        QCOMPARE(box("doubleSpinBox_x")->value(), 0.0);
        QCOMPARE(box("doubleSpinBox_rz")->value(), 0.0);
    }

    void the_view_moves_by_the_difference_to_loading()
    {
        data.translation[0] = -100.0;
        tab->do_update();
        AbcGLCanvas* canvas = tab->findChild<AbcGLCanvas*>();
        box("doubleSpinBox_x")->setValue(130.0);
        box("doubleSpinBox_rz")->setValue(90.0);
        canvas->saveCurrentRoom();
        const bsMatrix& moved = canvas->getRoomTransformation();
        QVERIFY(bsVector(moved.getColumn(3)) == bsVector(30.0, 0.0, 0.0));
        QVERIFY(moved.getColumn(0) == bsVector(0.0, 1.0, 0.0));
        QVERIFY(canvas->isRoomModified());
    }

    void the_step_of_the_offset_follows_the_size_of_the_room()
    {
        tab->do_update();
        QCOMPARE(box("doubleSpinBox_x")->singleStep(), 3.0); // 900 mm away
        data.translation[2] = 10000.0;
        tab->do_update();
        QCOMPARE(box("doubleSpinBox_z")->singleStep(), 3.0); // the view has no size yet
        tab->show();
        QVERIFY(QTest::qWaitForWindowExposed(tab.get()));
        tab->do_update();
        QVERIFY(box("doubleSpinBox_z")->singleStep() > 90.0);
    }

    void the_licence_gates_the_matching_button()
    {
        const QPushButton* button = tab->findChild<QPushButton*>("w_bodyMatchingButton");
        QSet<QString> reasons;
        for (const char* reply : {"1", "0", static_cast<const char*>(nullptr)}) {
            answer("licence measurementtool", reply);
            tab->do_update();
            QCOMPARE(button->isEnabled(), reply && *reply == '1');
            QCOMPARE(button->whatsThis() == "Open matching dialog", button->isEnabled());
            reasons << button->whatsThis();
        }
        QCOMPARE(reasons.size(), 3);
    }

    void context_menu_starts_with_the_xy_plane()
    {
        QStringList texts;
        QStringList checked;
        for (QAction* action : tab->findChildren<QAction*>()) {
            if (!action->isCheckable())
                continue;
            texts << action->text();
            if (action->isChecked())
                checked << action->text();
        }
        QCOMPARE(texts.join(", "),
                 QString("Long axes, Show XY plane, Show YZ plane, Show XZ plane"));
        QCOMPARE(checked, QStringList{"Show XY plane"});
    }

private:
    QDoubleSpinBox* box(const char* name) { return tab->findChild<QDoubleSpinBox*>(name); }

    /// Null lets the query fail.
    void answer(const char* query, const char* reply)
    {
        controller->values.erase(query);
        if (reply)
            controller->values[query] = reply;
    }

    std::unique_ptr<FakeController> controller;
    BackendVersions versions;
    RoomAdjustmentData data;
    std::unique_ptr<CooTrans> tab;
    std::unique_ptr<QSignalSpy> apply;
};

QTEST_MAIN(TestCooTrans)
#include "test_cootrans.moc"
