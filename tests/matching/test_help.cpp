#include "matching/helpdialog.h"
#include "matching/matchinghelp.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <QtWidgets>

namespace
{

QString words(const QLabel& label)
{
    QTextDocument document;
    document.setHtml(label.text());
    return document.toPlainText().simplified();
}

QLabel& label(const QDialog& dialog, const char* name) { return *dialog.findChild<QLabel*>(name); }

// Every label has the room that its text or image needs at the width it got.
void verify_nothing_is_cut(const QDialog& dialog)
{
    for (const QLabel* shown : dialog.findChildren<QLabel*>()) {
        const int needed =
            shown->wordWrap() ? shown->heightForWidth(shown->width()) : shown->sizeHint().height();
        QVERIFY2(shown->height() >= needed, qPrintable(shown->objectName()));
        if (!shown->wordWrap())
            QVERIFY2(shown->width() >= shown->sizeHint().width(), qPrintable(shown->objectName()));
    }
}

} // namespace

class TestHelp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void imagesAreThere()
    {
        const std::pair<QSize, QStringList> images[] = {
            {{206, 206}, {"background", "normal", "powerwall_standing", "mid_camera"}},
            {{19, 19}, {"grey", "green", "red"}},
            {{180, 135}, {"panning", "rotation", "zooming"}},
            {{48, 48}, {"lock"}}};
        for (const auto& [size, names] : images)
            for (const QString& name : names)
                QCOMPARE(QImage(":/" + name + ".png").size(), size);
    }

    void matchingHelpTellsTheStepsInOrder()
    {
        MatchingHelp help(nullptr);
        QCOMPARE(help.objectName(), QString("MatchingHelpClass"));
        QCOMPARE(help.windowTitle(), QString("Room Adjustment Based On Reference Points Help"));
        QCOMPARE(help.minimumSize(), QSize(500, 600));
        QString all;
        int bottom = -1;
        help.show();
        for (const char* name : {"label", "label_2", "label_3", "label_5", "label_6", "label_4"}) {
            const QLabel& shown = label(help, name);
            all += words(shown) + ' ';
            QVERIFY(qstrcmp(name, "label_6") == 0 || shown.y() > bottom);
            bottom = shown.geometry().bottom();
        }
        int from = 0;
        for (const char* text :
             {"based of reference points", "Purpose:", "(indicated with \"O\")", "object\u2019s",
              "Step 1:", "the object's coordinate system (T)", "button 'add' or load",
              "1. Column: Number", "4. Column: Z coordinate of the reference point",
              "one or more whitespaces", "Step 2:", "can be started by:", "button 'Measure'",
              "assigned Wandstick", "Step 3:", "closes the dialogue box."}) {
            const int at = all.indexOf(QString::fromUtf8(text), from);
            QVERIFY2(at >= from, text);
            from = at;
        }
        QVERIFY(!label(help, "label_2").pixmap(Qt::ReturnByValue).isNull());
        QVERIFY(!label(help, "label_5").pixmap(Qt::ReturnByValue).isNull());
    }

    void viewHelpNamesTheGestures()
    {
        HelpDialog help(nullptr);
        QVERIFY(!help.isModal());
        QVERIFY(help.minimumSize() == QSize(768, 299) && help.maximumSize() == QSize(768, 10000));
        QCOMPARE(int(help.windowFlags()), Qt::Dialog | 12288);
        const QGridLayout* grid = help.findChild<QGridLayout*>();
        const QStringList cells = {"label_9 label_10 label_11", "label_5 label_3 label_7",
                                   "label_4 label_2 label_6"};
        for (int cell = 0; cell < 9; ++cell) {
            QLayoutItem* item = grid->itemAtPosition(cell / 3, cell % 3);
            const QLabel* shown = qobject_cast<QLabel*>(item->widget());
            QCOMPARE(shown->objectName(), cells[cell / 3].section(' ', cell % 3, cell % 3));
            if (cell / 3 == 1)
                QVERIFY(item->alignment() == 132
                        && shown->pixmap(Qt::ReturnByValue).size() == QSize(180, 135));
        }
        QCOMPARE(label(help, "label_6").text(),
                 QString("Ctrl + mouse wheel<br>\nShift + left mouse button"));
    }

    void everythingFitsAndExitCloses()
    {
        MatchingHelp matching(nullptr);
        HelpDialog view(nullptr);
        for (QDialog* dialog : {static_cast<QDialog*>(&matching), static_cast<QDialog*>(&view)}) {
            dialog->show();
            QVERIFY(QTest::qWaitForWindowExposed(dialog));
            verify_nothing_is_cut(*dialog);
            QVERIFY(dialog->height() < 740);
            QPushButton* exit = dialog->findChild<QPushButton*>();
            QCOMPARE(exit->text(), QString("E&xit"));
            QTest::mouseClick(exit, Qt::LeftButton);
            QVERIFY(!dialog->isVisible());
        }
    }
};

QTEST_MAIN(TestHelp)
#include "test_help.moc"
