// The matching dialog's tables, buttons, tool list and report.
#include "tests/matching/matchingfixture.h"

#include <stdexcept>

namespace
{

const char* const count_message = "Cannot evaluate the transformation : number of reference and "
                                  "measured points is different.";
const char* const few_message = "Cannot evaluate the transformation : not enough points.";

} // namespace

class TestAbcMatchingDialog : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void init() { start(); }
    void cleanup() { stop(); }

    void a_new_dialog_offers_what_makes_sense()
    {
        exec([this] {
            QCOMPARE(enabled_buttons(),
                     (QStringList{"w_loadButton", "pushButton_addRefPoint", "w_measureButton",
                                  "pushButton_help", "w_closeButton"}));
            QVERIFY(!child<QLabel>("label_error")->isVisible());
            QCOMPARE(child<QComboBox>("comboBox_meatool")->count(), 2);
            // Untracked until data says otherwise; the timer's first tick tells.
            QTRY_VERIFY(!button("w_measureButton")->isEnabled());
            tool->frame();
            QTRY_VERIFY(button("w_measureButton")->isEnabled());
            child<QComboBox>("comboBox_meatool")->setCurrentIndex(-1);
            QTRY_VERIFY(!button("w_measureButton")->isEnabled());
        });
    }

    void rows_of_the_reference_table()
    {
        exec([this] {
            add_reference(1.25, -2.0, 3.0);
            add_reference(4.0, 5.0, 6.0);
            QTableWidget* table = references();
            for (QTableWidget* any : {table, measurements()})
                for (int column = 0; column < 3; ++column)
                    QCOMPARE(any->horizontalHeaderItem(column)->text(),
                             QString("xyz").mid(column, 1) + "[mm]");
            QCOMPARE(table->item(0, 0)->text(), QString("1.25"));
            QCOMPARE(table->rowHeight(0), 22);
            QVERIFY(table->item(0, 0)->textAlignment() & Qt::AlignRight);
            QVERIFY(dialog->getRP(1) == bsVector(4.0, 5.0, 6.0));
            QVERIFY(button("pushButton_save")->isEnabled());
            QVERIFY_EXCEPTION_THROWN(dialog->getRP(2), std::out_of_range);

            table->setCurrentCell(0, 1);
            QVERIFY(dialog->isRPSelected(0));
            dialog->on_tableWidget_referencePoints_clicked(QModelIndex());
            BoxAnswer no(QMessageBox::No);
            button("pushButton_removeRefPoint")->click();
            QCOMPARE(no.text, QString("Remove row 1?"));
            QCOMPARE(no.default_button, int(QMessageBox::No));
            QCOMPARE(dialog->getRPCount(), 2u);
            BoxAnswer yes(QMessageBox::Yes);
            button("pushButton_removeRefPoint")->click();
            QCOMPARE(dialog->getRPCount(), 1u);
            QVERIFY(dialog->getRP(0) == bsVector(4.0, 5.0, 6.0));
            QVERIFY(!button("pushButton_removeRefPoint")->isEnabled());
        });
    }

    void a_dozen_points_fit_the_width()
    {
        exec([this] {
            for (int i = 0; i < 12; ++i)
                button("pushButton_addRefPoint")->click();
            QTableWidget* table = references();
            QTRY_VERIFY(table->verticalScrollBar()->isVisible());
            QTRY_VERIFY(!table->horizontalScrollBar()->isVisible());
            dialog->resize(dialog->minimumSizeHint());
            QTRY_COMPARE(dialog->size(), dialog->minimumSizeHint());
            QTRY_VERIFY(!table->horizontalScrollBar()->isVisible());
            QFont large = dialog->font(); // would make the rows higher
            large.setPointSize(24);
            table->setFont(large);
            button("pushButton_addRefPoint")->click();
            QCOMPARE(table->rowHeight(12), 22);
        });
    }

    void typing_into_a_cell_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("becomes");
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("complains");
        QTest::newRow("cut, not rounded") << "12.349"
                                          << "12.34" << 12.34 << false;
        QTest::newRow("a decimal comma") << "-3,5"
                                         << "-3.50" << -3.5 << false;
        QTest::newRow("a word") << "abc"
                                << "0.00" << 0.0 << true;
        QTest::newRow("nothing") << ""
                                 << "0.00" << 0.0 << true;
    }

    void typing_into_a_cell()
    {
        QFETCH(QString, typed);
        QFETCH(bool, complains);
        exec([&] {
            add_reference(1.0, 2.0, 3.0);
            BoxAnswer answer(QMessageBox::Ok);
            QTableWidgetItem* item = references()->item(0, 2);
            item->setText(typed);
            QTEST(item->text(), "becomes");
            QTEST(dialog->getRP(0).z, "value");
            QCOMPARE(answer.seen, complains);
            if (complains)
                QCOMPARE(answer.text, QString("'%1' is not a number!").arg(typed));
            else
                dialog->on_pushButton_removeRefPoint_clicked(); // uses up the answer
        });
    }

    void report_and_ok_follow_every_change()
    {
        exec([this] {
            const bsVector points[4] = {bsVector(1, 2, 3), bsVector(101, 2, 3.5),
                                        bsVector(1, 202, 3), bsVector(1, 2, 303)};
            add_reference(1, 2, 3);
            QCOMPARE(report(), QString(few_message));
            add_reference(101, 2, 3.5);
            add_reference(1, 202, 3);
            QCOMPARE(report(), QString(count_message));
            for (int i : {1, 2, 0}) // another order
                tool->measure(points[i].x, points[i].y, points[i].z);
            QVERIFY(dialog->checkApplyTrafo());
            QVERIFY(report().startsWith("Transformation evaluation report :\nResidual error : "));
            QVERIFY(
                report().contains("\n Point 1 -> 3 : (1.00, 2.00, 3.00) ; distance to "
                                  "reference point = 0.00\n Point 2 -> 1 : (101.00, 2.00, 3.50"));
            QVERIFY(report().endsWith("\nAll values are in [mm]"));
            QVERIFY(dialog->getTransformationMatrix() == bsMatrix::getIdentityMatrix());
            QCOMPARE(dialog->getTPCount(), 3u);

            child<QCheckBox>("w_orderCheckBox")->click();
            QVERIFY(report().contains("Point 1 -> 1"));
            child<QCheckBox>("w_orderCheckBox")->click();
            add_reference(1, 2, 303);
            QCOMPARE(report(), QString(count_message));
            QVERIFY(!dialog->checkApplyTrafo());
            QCOMPARE(dialog->getTPCount(), 0u);
        });
    }

    void a_moved_object_gives_its_pose()
    {
        exec([this] {
            // Turned by 90 degrees about z, then moved.
            const double points[4][3] = {{0, 0, 0}, {150, 0, 0}, {0, 200, 0}, {30, 40, 250}};
            for (const double(&p)[3] : points) {
                add_reference(p[0], p[1], p[2]);
                tool->measure(1000.0 - p[1], -500.0 + p[0], 700.0 + p[2]);
            }
            const bsMatrix pose = dialog->getTransformationMatrix();
            QVERIFY(pose.getColumn(0) == bsVector(0, 1, 0));
            QVERIFY(pose.getColumn(1) == bsVector(-1, 0, 0));
            QVERIFY(pose.getColumn(3) == bsVector(1000, -500, 700));
            int applied = 0;
            connect(dialog.get(), &AbcMatchingDialog::applyTrafoRequest,
                    [&applied](const bsMatrix&) { ++applied; });
            button("w_applyButton")->click();
            QCOMPARE(applied, 1);
            QVERIFY(!dialog->isVisible());
        });
    }

    // Neither Return nor the window's own button leaves the number behind that was being typed.
    void what_is_being_typed_counts_data()
    {
        QTest::addColumn<bool>("by_return");
        QTest::newRow("Return ends the editing alone") << true;
        QTest::newRow("closing ends it first") << false;
    }

    void what_is_being_typed_counts()
    {
        QFETCH(bool, by_return);
        connect(dialog.get(), &AbcMatchingDialog::applyTrafoRequest,
                [](const bsMatrix&) { QFAIL("applied"); });
        exec([&] {
            for (const bsVector& p :
                 {bsVector(0, 0, 0), bsVector(100, 0, 0), bsVector(0, 200, 0)}) {
                add_reference(p.x, p.y, p.z);
                tool->measure(p.x, p.y, p.z);
            }
            QVERIFY(dialog->checkApplyTrafo() && button("w_applyButton")->isDefault());
            QLineEdit* editor = edit(1, 0, "130");
            if (by_return) {
                QTest::keyClick(editor, Qt::Key_Return);
                QTRY_COMPARE(dialog->getRP(1).x, 130.0);
                QVERIFY(dialog->isVisible());
            }
        });
        QCOMPARE(dialog->getRP(1).x, 130.0);
        QVERIFY(!report().contains("(100.00, 0.00, 0.00)"));
    }

    void measured_points_can_be_replaced_removed_and_cleared()
    {
        exec([this] {
            QCheckBox* replace = child<QCheckBox>("w_replaceCheckBox");
            QTableWidget* table = measurements();
            tool->measure(1, 1, 1);
            tool->measure(2, 2, 2);
            QVERIFY(!replace->isEnabled() && !replace->isChecked());
            table->setCurrentCell(0, 0);
            QVERIFY(replace->isEnabled() && dialog->isMPSelected(0));
            replace->setChecked(true);
            tool->measure(7.125, 7, 7);
            QCOMPARE(dialog->getMPCount(), 2u);
            QVERIFY(dialog->getMP(0) == bsVector(7.125, 7, 7));
            QVERIFY(table->item(0, 0)->text().startsWith("7.1"));
            BoxAnswer remove(QMessageBox::Yes);
            button("w_removeButton")->click();
            QCOMPARE(remove.text, QString("Remove row 1?"));
            QVERIFY(dialog->getMP(0) == bsVector(2, 2, 2));
            BoxAnswer clear(QMessageBox::Yes);
            button("pushButton_clearMeaPoints")->click();
            QCOMPARE(clear.text, QString("Remove all measured points?"));
            QCOMPARE(dialog->getMPCount(), 0u);
            QVERIFY(!replace->isEnabled() && !replace->isChecked());
            QVERIFY(!button("pushButton_clearMeaPoints")->isEnabled());
        });
    }

    void tool_list_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("reply"); // none is a failed query
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<QString>("message");
        const QString number = "number_of_tools", first = "tip_calibrated b01";
        const QString no_number = "Error : Unable to get number of measurement tools";
        QTest::newRow("both") << first << "1" << QStringList{"M1", "M2"} << "";
        QTest::newRow("one calibrated") << first << "0" << QStringList{"M2"} << "";
        QTest::newRow("one query fails")
            << first << "" << QStringList{"M2"} << "Error : Unable to get info of tip calibration";
        for (const char* reply : {"", "-1", "4097", "2147483647"})
            QTest::addRow("'%s' tools", reply) << number << reply << QStringList{} << no_number;
    }

    void tool_list()
    {
        QFETCH(QString, query);
        QFETCH(QString, reply);
        QFETCH(QStringList, items);
        QFETCH(QString, message);
        answer("measurementtool " + query, reply);
        exec([&] {
            QComboBox* box = child<QComboBox>("comboBox_meatool");
            QStringList texts;
            for (int i = 0; i < box->count(); ++i)
                texts << box->itemText(i);
            QCOMPARE(texts, items);
            QCOMPARE(box->isEnabled(), !items.isEmpty());
            QCOMPARE(child<QProgressBar>("progressBar")->isEnabled(), !items.isEmpty());
            QCOMPARE(child<QLabel>("label_error")->isVisible(), items.isEmpty());
            if (items.isEmpty())
                QCOMPARE(child<QLabel>("label_error")->text(),
                         QString("<b><font color=red>No Measurement Tool available!</font></b>"));
        });
        for (const std::string& shown : controller->messages())
            QCOMPARE(QString::fromStdString(shown), message);
        QCOMPARE(controller->messages().empty(), message.isEmpty());
    }

    void the_tool_is_remembered_while_it_is_in_the_list()
    {
        exec([this] { child<QComboBox>("comboBox_meatool")->setCurrentIndex(1); });
        exec([this] { QCOMPARE(child<QComboBox>("comboBox_meatool")->currentIndex(), 1); });
        controller->values["measurementtool tip_calibrated b02"] = "0";
        exec([this] { QCOMPARE(child<QComboBox>("comboBox_meatool")->currentIndex(), 0); });
    }

    void escape_closes_and_everything_survives()
    {
        exec([this] {
            add_reference(1, 2, 3);
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
            QVERIFY(!dialog->isVisible());
        });
        exec([this] {
            QCOMPARE(dialog->getRPCount(), 1u);
            QCOMPARE(report(), QString(few_message));
        });
    }

private:
    QStringList enabled_buttons()
    {
        QStringList names;
        for (const char* name :
             {"w_loadButton", "pushButton_save", "pushButton_addRefPoint",
              "pushButton_removeRefPoint", "w_measureButton", "w_removeButton",
              "pushButton_clearMeaPoints", "pushButton_help", "w_applyButton", "w_closeButton"})
            if (button(name)->isEnabled())
                names << name;
        return names;
    }
};

QTEST_MAIN(TestAbcMatchingDialog)
#include "test_abcmatchingdialog.moc"
