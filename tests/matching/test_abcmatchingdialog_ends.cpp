// The dialog's end while something else still runs within it.
#include "tests/matching/matchingfixture.h"

#include "matching/matchinghelp.h"

#include <map>

namespace
{

// A host whose messages run an event loop, and whose operations do.
class BusyHost : public FakeController
{
public:
    std::function<void()> meanwhile = [] {};

    int show_message(const char* category, const char* source, int level, const char* text) override
    {
        const int result = FakeController::show_message(category, source, level, text);
        meanwhile();
        return result;
    }
};

} // namespace

class TestAbcMatchingDialogEnds : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void init() { start(host = new BusyHost); }
    void cleanup() { stop(); }

    void the_dialog_may_end_under_any_window_data()
    {
        QTest::addColumn<QString>("window");
        for (const auto& window : windows)
            QTest::newRow(qPrintable(window.first)) << window.first;
    }

    void the_dialog_may_end_under_any_window()
    {
        QFETCH(QString, window);
        at_window = [this](QDialog*) {
            tool.reset();
            dialog.reset();
        };
        exec([this, window] { open(window); });
        verify_nothing_is_left();
    }

    void the_dialog_may_end_while_it_opens()
    {
        controller->failing = {"get measurementtool number_of_tools"};
        host->meanwhile = [this] { dialog.reset(); };
        QCOMPARE(dialog->update_and_exec(), int(QDialog::Rejected));
        verify_nothing_is_left();
    }

    void an_answer_to_a_closed_dialog_changes_nothing()
    {
        QTemporaryFile file;
        QVERIFY(file.open() && file.write("1 1 2 3\n1 4 5 6\n") > 0 && file.flush());
        at_window = [&](QDialog* box) {
            dialog->close();
            QLineEdit* name = box->findChild<QLineEdit*>("fileNameEdit");
            if (name)
                name->setText(file.fileName());
            box->done(name ? int(QDialog::Accepted) : int(QMessageBox::Yes));
        };
        for (const char* window :
             {"remove a reference point", "remove a measured point", "clear", "load"}) {
            init();
            exec([this, window] { open(window); });
            QVERIFY2(dialog->getRPCount() == 1 && dialog->getMPCount() == 1, window);
        }
    }

    void a_start_does_not_enter_itself()
    {
        controller->failing = {"get measurementtool measurement_tip", "do "};
        exec();
        tool->buttons = 2;
        const auto press = [this] { dialog->set_ascii_data("6dmt2", tool->line().constData()); };
        host->meanwhile = [&] {
            if (controller->messages().size() < 60)
                press();
        };
        press();
        QCOMPARE(controller->messages().size(), std::size_t(2));
    }

private:
    void open(const QString& window)
    {
        add_point({1, 2, 3});
        references()->setCurrentCell(0, 0);
        measurements()->setCurrentCell(0, 0);
        when_open<QMessageBox>(at_window);
        when_open<MatchingHelp>(at_window);
        if (window != "overwrite")
            when_open<QFileDialog>(at_window);
        windows.at(window)();
    }

    void verify_nothing_is_left()
    {
        QVERIFY(!dialog && !QApplication::activeModalWidget());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const QWidget* left : QApplication::allWidgets())
            QVERIFY2(!left->inherits("QDialog") && !left->inherits("QTableWidget"), "left behind");
    }

    const std::map<QString, std::function<void()>> windows = {
        {"remove a reference point", [this] { dialog->on_pushButton_removeRefPoint_clicked(); }},
        {"remove a measured point", [this] { dialog->on_w_removeButton_clicked(); }},
        {"clear", [this] { button("pushButton_clearMeaPoints")->click(); }},
        {"load", [this] { button("w_loadButton")->click(); }},
        {"save", [this] { button("pushButton_save")->click(); }},
        {"overwrite",
         [this] {
             QTemporaryFile file(QDir::tempPath() + "/XXXXXX.txt");
             QVERIFY(file.open());
             choose(file.fileName());
             button("pushButton_save")->click();
         }},
        {"bad number", [this] { references()->item(0, 0)->setText("bad"); }},
        {"bad number by Return",
         [this] {
             QTest::keyClick(edit(0, 0, "bad"), Qt::Key_Return);
             QTRY_VERIFY(!dialog);
         }},
        {"bad number at closing",
         [this] {
             edit(0, 0, "bad");
             dialog->close();
         }},
        {"help", [this] { button("pushButton_help")->click(); }},
        {"message of the host",
         [this] {
             controller->failing = {"do zetrak2 measurementtool"};
             host->meanwhile = [this] { at_window(nullptr); };
             tool->buttons = 2;
             dialog->set_ascii_data("6dmt2", tool->line().constData());
         }},
    };
    std::function<void(QDialog*)> at_window; ///< what happens while a window of the dialog stands
    BusyHost* host;
};

QTEST_MAIN(TestAbcMatchingDialogEnds)
#include "test_abcmatchingdialog_ends.moc"
