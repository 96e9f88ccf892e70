// Each window of the module in each language, at its prescribed size.
#include "matching/abcmatchingdialog.h"
#include "matching/helpdialog.h"
#include "matching/matchinghelp.h"
#include "module/roomadjustmentdlg.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

namespace
{

// Pixels that the text of a widget lacks.
int missing_room(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->wordWrap())
        return label->heightForWidth(label->width()) - label->height();
    if (label || qobject_cast<const QCheckBox*>(widget))
        return widget->sizeHint().width() - widget->width();
    const int frame = 6;
    if (const auto* button = qobject_cast<const QPushButton*>(widget))
        return button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + frame
               - button->width();
    return 0;
}

QStringList mnemonics(const QWidget* widget)
{
    QStringList keys;
    if (const auto* bar = qobject_cast<const QTabBar*>(widget))
        for (int i = 0; i < bar->count(); ++i)
            keys << QKeySequence::mnemonic(bar->tabText(i)).toString();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        keys << button->shortcut().toString();
    else if (const auto* label = qobject_cast<const QLabel*>(widget))
        keys << (label->buddy() ? QKeySequence::mnemonic(label->text()).toString() : QString());
    return keys;
}

// What a person cannot read, and all mnemonics if one stands twice.
QString faults(QWidget* window)
{
    QStringList found, keys;
    for (const QWidget* widget : window->findChildren<QWidget*>())
        if (widget->isVisibleTo(window)) {
            if (missing_room(widget) > 0)
                found << widget->objectName();
            keys << mnemonics(widget);
        }
    keys.removeAll(QString());
    return (keys.removeDuplicates() > 0 ? found + keys : found).join(' ');
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void everything_can_be_read_and_reached()
    {
        for (const char* code : {"en", "de", "ja"}) {
            const QString language = code;
            QTranslator translator;
            QCOMPARE(translator.load("roomadjustment_" + language, TRANSLATIONS), language != "en");
            QCoreApplication::installTranslator(&translator);
            FakeController controller;
            BackendVersions versions = backend(1, 20);
            QWidget host;
            RoomAdjustmentDlg2g dialog(&controller, &host, &versions, QString());
            HelpDialog view_help;
            MatchingHelp matching_help;
            const QList<QWidget*> windows = {&dialog, &dialog, host.findChild<AbcMatchingDialog*>(),
                                             &view_help, &matching_help};
            for (QWidget* window : windows) {
                window->show();
                QVERIFY(QTest::qWaitForWindowExposed(window));
                QCOMPARE(language + faults(window), language);
                dialog.findChild<QTabWidget*>()->setCurrentIndex(1); // for the second time around
            }
        }
    }
};

QTEST_MAIN(TestTranslations)
#include "test_translations.moc"
