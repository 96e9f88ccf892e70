// The fine tab by itself: numbers, limits, guards, and the 3D view that follows them.
#include "SourceFiles/abcGLCanvas.h"
#include "controller/roomadjustmentdata.h"
#include "fine/cootrans.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>
#include <QtWidgets/QAction>

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

    void scaling_limits_data()
    {
        QTest::addColumn<QString>("reply");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("apply_signals");
        QTest::newRow("inside") << "1.02" << 0.95 << 1.02 << "Scaling (+/- 5%)" << 1;
        QTest::newRow("at the lower limit") << "0.95" << 0.95 << 0.95 << "Scaling (+/- 5%)" << 1;
        QTest::newRow("outside keeps the wide range") << "0.90" << 0.1 << 0.9 << "Scaling" << 1;
        QTest::newRow("no answer leaves the box alone")
            << "" << 0.95 << 1.0 << "Scaling (+/- 5%)" << 0;
    }

    void scaling_limits()
    {
        QFETCH(QString, reply);
        if (reply.isEmpty())
            controller->values.erase("tracking extra_scaling");
        else
            controller->values["tracking extra_scaling"] = reply.toStdString();
        tab->do_update();
        QTEST(box("doubleSpinBox_scalingFactor")->minimum(), "minimum");
        QTEST(box("doubleSpinBox_scalingFactor")->value(), "value");
        QTEST(tab->findChild<QLabel*>("label_scaling_2")->text(), "label");
        QTEST(apply->count(), "apply_signals");
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

    void the_licence_gates_the_matching_button_data()
    {
        QTest::addColumn<QString>("reply");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("licensed") << "1" << true;
        QTest::newRow("not licensed") << "0" << false;
        QTest::newRow("no answer") << "" << false;
    }

    void the_licence_gates_the_matching_button()
    {
        QFETCH(QString, reply);
        if (reply.isEmpty())
            controller->values.erase("licence measurementtool");
        else
            controller->values["licence measurementtool"] = reply.toStdString();
        tab->do_update();
        const QPushButton* button = tab->findChild<QPushButton*>("w_bodyMatchingButton");
        QTEST(button->isEnabled(), "enabled");
        QCOMPARE(button->whatsThis() == "Open matching dialog", button->isEnabled());
        QVERIFY(!button->whatsThis().isEmpty());
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
        QCOMPARE(texts,
                 (QStringList{"Long axes", "Show XY plane", "Show YZ plane", "Show XZ plane"}));
        QCOMPARE(checked, QStringList{"Show XY plane"});
    }

private:
    QDoubleSpinBox* box(const char* name) { return tab->findChild<QDoubleSpinBox*>(name); }

    std::unique_ptr<FakeController> controller;
    BackendVersions versions;
    RoomAdjustmentData data;
    std::unique_ptr<CooTrans> tab;
    std::unique_ptr<QSignalSpy> apply;
};

QTEST_MAIN(TestCooTrans)
#include "test_cootrans.moc"
