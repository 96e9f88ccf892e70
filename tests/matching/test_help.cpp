#include "matching/helpdialog.h"
#include "matching/matchinghelp.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <QtWidgets>

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

    void everythingFitsAndExitCloses()
    {
        MatchingHelp matching(nullptr);
        HelpDialog view(nullptr);
        QCOMPARE(int(view.windowFlags()), Qt::Dialog | 12288);
        for (int column = 0; column < 3; ++column)
            QVERIFY(view.findChild<QGridLayout*>()->itemAtPosition(1, column)->alignment() == 132);
        for (QDialog* dialog : {static_cast<QDialog*>(&matching), static_cast<QDialog*>(&view)}) {
            dialog->show();
            QVERIFY(QTest::qWaitForWindowExposed(dialog));
            for (const QLabel* label : dialog->findChildren<QLabel*>()) {
                const QSize hint = label->sizeHint();
                const bool wraps = label->wordWrap();
                QVERIFY2(label->height()
                                 >= (wraps ? label->heightForWidth(label->width()) : hint.height())
                             && (wraps || label->width() >= hint.width()) && !hint.isEmpty(),
                         qPrintable(label->objectName()));
            }
            QVERIFY(dialog->height() < 740);
            QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
            QVERIFY(!dialog->isVisible());
        }
    }
};

QTEST_MAIN(TestHelp)
#include "test_help.moc"
