// What is asked and shown when the dialog opens.
#include "tests/module/dialogfixture.h"

class TestRoomAdjustmentDlgOpening : public QObject, private DialogFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void init() { start(); }
    void cleanup() { stop(); }

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
            start();
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
};

QTEST_MAIN(TestRoomAdjustmentDlgOpening)
#include "test_roomadjustmentdlg_opening.moc"
