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
    void init()
    {
        start();
        applied = 0;
        connect(dialog.get(), &AbcMatchingDialog::applyTrafoRequest, [this] { ++applied; });
    }
    void cleanup() { stop(); }

    void a_new_dialog_offers_what_makes_sense()
    {
        exec([this] {
            QStringList enabled;
            for (const QPushButton* any : dialog->findChildren<QPushButton*>())
                if (any->isEnabled())
                    enabled << any->objectName();
            QCOMPARE(enabled, (QStringList{"w_loadButton", "pushButton_addRefPoint",
                                           "w_measureButton", "pushButton_help", "w_closeButton"}));
            // Untracked until data says otherwise; the timer's first tick tells.
            QTRY_VERIFY(!button("w_measureButton")->isEnabled());
            tool->frame();
            QTRY_VERIFY(button("w_measureButton")->isEnabled());
            child<QComboBox>("comboBox_meatool")->setCurrentIndex(-1);
            QTRY_VERIFY(!button("w_measureButton")->isEnabled());
        });
    }

    void reference_points_are_shown_asked_for_and_removed()
    {
        exec([this] {
            add_reference({1.25, -2, 3});
            add_reference({4, 5, 6});
            QTableWidget* table = references();
            for (QTableWidget* any : {table, measurements()})
                for (int column = 0; column < 3; ++column)
                    QCOMPARE(any->horizontalHeaderItem(column)->text(),
                             QString("xyz").mid(column, 1) + "[mm]");
            QCOMPARE(table->item(0, 0)->text(), QString("1.25"));
            QVERIFY(table->item(0, 0)->textAlignment() & Qt::AlignRight);
            QVERIFY(dialog->getRP(1) == bsVector(4, 5, 6));
            QVERIFY_EXCEPTION_THROWN(dialog->getRP(2), std::out_of_range);

            table->setCurrentCell(0, 1);
            QVERIFY(dialog->isRPSelected(0));
            dialog->on_tableWidget_referencePoints_clicked(QModelIndex());
            for (auto pressed : {QMessageBox::No, QMessageBox::Yes}) {
                BoxAnswer answer(pressed);
                button("pushButton_removeRefPoint")->click();
                QCOMPARE(answer.text, QString("Remove row 1?"));
                QCOMPARE(answer.default_button, int(QMessageBox::No));
            }
            QVERIFY(dialog->getRPCount() == 1 && dialog->getRP(0) == bsVector(4, 5, 6));
            QVERIFY(!button("pushButton_removeRefPoint")->isEnabled());
            QVERIFY(button("pushButton_save")->isEnabled());
        });
    }

    void a_dozen_points_fit_the_width()
    {
        exec([this] {
            QTableWidget* table = references();
            for (int i = 0; i < 12; ++i)
                button("pushButton_addRefPoint")->click();
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

    void what_is_entered_becomes_a_number()
    {
        const struct
        {
            const char *typed, *becomes;
            bool complains;
        } rows[] = {{"12.349", "12.34", false}, // cut, not rounded
                    {"-3,5", "-3.50", false},
                    {"abc", "0.00", true},
                    {"", "0.00", true}};
        exec([&] {
            add_reference({1, 2, 3});
            QTableWidgetItem* item = references()->item(0, 2);
            for (const auto& row : rows) {
                BoxAnswer answer(QMessageBox::Ok);
                item->setText(row.typed);
                QCOMPARE(item->text(), QString(row.becomes));
                QCOMPARE(dialog->getRP(0).z, item->text().toDouble());
                const QString complaint = QString("'%1' is not a number!").arg(row.typed);
                QCOMPARE(answer.text, row.complains ? complaint : QString());
            }
        });
    }

    void report_and_ok_follow_every_change()
    {
        exec([this] {
            const bsVector points[3] = {{1, 2, 3}, {101, 2, 3.5}, {1, 202, 3}};
            add_reference(points[0]);
            QCOMPARE(report(), QString(few_message));
            add_reference(points[1]);
            add_reference(points[2]);
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
            for (const char* pair : {"Point 1 -> 1", "Point 1 -> 3"}) {
                child<QCheckBox>("w_orderCheckBox")->click();
                QVERIFY2(report().contains(pair), pair);
            }
            add_reference({1, 2, 303});
            QCOMPARE(report(), QString(count_message));
            QVERIFY(!dialog->checkApplyTrafo());
            QCOMPARE(dialog->getTPCount(), 0u);
        });
    }

    void a_moved_object_gives_its_pose()
    {
        exec([this] {
            // Turned by 90 degrees about z, then moved.
            for (const bsVector& p : {bsVector(0, 0, 0), bsVector(150, 0, 0), bsVector(0, 200, 0),
                                      bsVector(30, 40, 250)}) {
                add_reference(p);
                tool->measure(1000.0 - p.y, -500.0 + p.x, 700.0 + p.z);
            }
            const bsMatrix pose = dialog->getTransformationMatrix();
            QVERIFY(pose.getColumn(0) == bsVector(0, 1, 0));
            QVERIFY(pose.getColumn(1) == bsVector(-1, 0, 0));
            QVERIFY(pose.getColumn(3) == bsVector(1000, -500, 700));
            button("w_applyButton")->click();
            QVERIFY(applied == 1 && !dialog->isVisible());
        });
    }

    // Neither Return nor closing leaves the number behind that was being typed.
    void what_is_being_typed_counts()
    {
        for (bool by_return : {true, false}) {
            init();
            exec([&] {
                for (const bsVector& p :
                     {bsVector(0, 0, 0), bsVector(100, 0, 0), bsVector(0, 200, 0)})
                    add_point(p);
                QVERIFY(dialog->checkApplyTrafo() && button("w_applyButton")->isDefault());
                QLineEdit* editor = edit(1, 0, "130");
                if (by_return) {
                    QTest::keyClick(editor, Qt::Key_Return);
                    QTRY_COMPARE(dialog->getRP(1).x, 130.0);
                    QVERIFY(dialog->isVisible());
                }
            });
            QCOMPARE(dialog->getRP(1).x, 130.0);
            QVERIFY(!report().contains("(100.00, 0.00, 0.00)") && applied == 0);
        }
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

    void tools_are_listed()
    {
        const QString no_tip = "Error : Unable to get info of tip calibration";
        const QString no_number = "Error : Unable to get number of measurement tools";
        const struct
        {
            const char *query, *reply, *items;
            QString message;
        } rows[] = {
            {"tip_calibrated b01", "1", "M1 M2", ""}, {"tip_calibrated b01", "0", "M2", ""},
            {"tip_calibrated b01", "", "M2", no_tip}, {"number_of_tools", "", "", no_number},
            {"number_of_tools", "-1", "", no_number}, {"number_of_tools", "4097", "", no_number}};
        for (const auto& row : rows) {
            start();
            answer(row.query, row.reply);
            exec([&] {
                const QComboBox* box = child<QComboBox>("comboBox_meatool");
                QStringList texts;
                for (int i = 0; i < box->count(); ++i)
                    texts << box->itemText(i);
                QCOMPARE(texts.join(' '), QString(row.items));
                QCOMPARE(box->isEnabled(), !texts.isEmpty());
                QCOMPARE(child<QProgressBar>("progressBar")->isEnabled(), !texts.isEmpty());
                const QLabel* error = child<QLabel>("label_error");
                QCOMPARE(error->isVisible(), texts.isEmpty());
                QCOMPARE(error->text().contains("No Measurement Tool available!"), texts.isEmpty());
            });
            for (const std::string& shown : controller->messages())
                QCOMPARE(QString::fromStdString(shown), row.message);
            QCOMPARE(controller->messages().empty(), row.message.isEmpty());
        }
    }

    void points_and_tool_survive_closing()
    {
        exec([this] {
            child<QComboBox>("comboBox_meatool")->setCurrentIndex(1);
            add_reference({1, 2, 3});
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
            QVERIFY(!dialog->isVisible());
        });
        exec([this] {
            QCOMPARE(child<QComboBox>("comboBox_meatool")->currentIndex(), 1);
            QVERIFY(dialog->getRPCount() == 1 && report() == few_message);
        });
        answer("tip_calibrated b02", "0");
        exec([this] { QCOMPARE(child<QComboBox>("comboBox_meatool")->currentIndex(), 0); });
    }

private:
    int applied = 0;
};

QTEST_MAIN(TestAbcMatchingDialog)
#include "test_abcmatchingdialog.moc"
