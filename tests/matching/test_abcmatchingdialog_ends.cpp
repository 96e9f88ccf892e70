// The dialog's end while something else still runs within it.
#include "tests/matching/matchingfixture.h"

#include "matching/matchinghelp.h"

namespace
{

// A host whose messages run an event loop, and whose operations do.
class BusyHost : public FakeController
{
public:
    std::function<void()> meanwhile;

    int show_message(const char* category, const char* source, int level, const char* text) override
    {
        const int result = FakeController::show_message(category, source, level, text);
        if (meanwhile)
            meanwhile();
        return result;
    }
};

} // namespace

class TestAbcMatchingDialogEnds : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void init()
    {
        start(new BusyHost);
        at_window = [this](QDialog*) { end(); };
    }
    void cleanup() { stop(); }

    void the_dialog_may_end_under_any_window_data()
    {
        QTest::addColumn<QString>("window");
        for (const char* window : {"remove a reference point", "remove a measured point",
                                   "clear measured points", "load", "save", "overwrite",
                                   "bad number", "bad number by Return", "bad number at closing",
                                   "help", "message of the host", "message of the host at opening"})
            QTest::newRow(window) << window;
    }

    void the_dialog_may_end_under_any_window()
    {
        QFETCH(QString, window);
        if (window.endsWith("opening")) {
            end_with_the_next_message("get measurementtool number_of_tools");
            QCOMPARE(dialog->update_and_exec(), int(QDialog::Rejected));
        } else {
            exec([this, window] { open(window); });
        }
        QVERIFY(!dialog);
        QVERIFY(!QApplication::activeModalWidget());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const QWidget* left : QApplication::allWidgets())
            QVERIFY2(!left->inherits("QDialog") && !left->inherits("QTableWidget"), "left behind");
    }

    // Its points stay, whatever is answered afterwards.
    void an_answer_to_a_closed_dialog_changes_nothing_data()
    {
        QTest::addColumn<QString>("window");
        for (const char* window : {"remove a reference point", "remove a measured point",
                                   "clear measured points", "load"})
            QTest::newRow(window) << window;
    }

    void an_answer_to_a_closed_dialog_changes_nothing()
    {
        QFETCH(QString, window);
        QTemporaryFile file;
        QVERIFY(file.open() && file.write("1 1 2 3\n1 4 5 6\n") > 0 && file.flush());
        at_window = [&](QDialog* box) {
            dialog->close();
            if (QLineEdit* name = box->findChild<QLineEdit*>("fileNameEdit"))
                name->setText(file.fileName());
            box->done(window == "load" ? int(QDialog::Accepted) : int(QMessageBox::Yes));
        };
        exec([this, window] { open(window); });
        QVERIFY(dialog->getRPCount() == 1 && dialog->getMPCount() == 1);
    }

    void a_start_does_not_enter_itself()
    {
        controller->failing = {"get measurementtool measurement_tip", "do "};
        exec([] {});
        tool->buttons = 2;
        static_cast<BusyHost&>(*controller).meanwhile = [this] {
            if (controller->messages().size() < 60)
                dialog->set_ascii_data("6dmt2", tool->line().constData());
        };
        dialog->set_ascii_data("6dmt2", tool->line().constData());
        QCOMPARE(controller->messages().size(), std::size_t(2));
    }

private:
    void end()
    {
        tool.reset();
        dialog.reset();
    }

    template <class Window>
    void end_under()
    {
        when_open<Window>([this](Window* box) { at_window(box); });
    }

    void end_with_the_next_message(const char* failing)
    {
        controller->failing.push_back(failing);
        static_cast<BusyHost&>(*controller).meanwhile = [this] { end(); };
    }

    void open(const QString& window)
    {
        add_reference(1, 2, 3);
        tool->measure(1, 2, 3);
        references()->setCurrentCell(0, 0);
        measurements()->setCurrentCell(0, 0);
        if (window == "remove a reference point") {
            end_under<QMessageBox>();
            dialog->on_pushButton_removeRefPoint_clicked();
        } else if (window == "remove a measured point") {
            end_under<QMessageBox>();
            dialog->on_w_removeButton_clicked();
        } else if (window == "clear measured points") {
            end_under<QMessageBox>();
            button("pushButton_clearMeaPoints")->click();
        } else if (window == "load") {
            end_under<QFileDialog>();
            button("w_loadButton")->click();
        } else if (window == "save") {
            end_under<QFileDialog>();
            button("pushButton_save")->click();
        } else if (window == "overwrite") {
            QTemporaryFile file(QDir::tempPath() + "/XXXXXX.txt");
            QVERIFY(file.open());
            choose(file.fileName());
            end_under<QMessageBox>();
            button("pushButton_save")->click();
        } else if (window == "bad number") {
            end_under<QMessageBox>();
            references()->item(0, 0)->setText("bad");
        } else if (window == "bad number by Return") {
            end_under<QMessageBox>();
            QTest::keyClick(edit(0, 0, "bad"), Qt::Key_Return);
            QTRY_VERIFY(!dialog);
        } else if (window == "bad number at closing") {
            end_under<QMessageBox>();
            edit(0, 0, "bad");
            dialog->close();
        } else if (window == "help") {
            end_under<MatchingHelp>();
            button("pushButton_help")->click();
        } else {
            end_with_the_next_message("do zetrak2 measurementtool");
            tool->buttons = 2;
            dialog->set_ascii_data("6dmt2", tool->line().constData());
        }
    }

    std::function<void(QDialog*)> at_window; ///< what happens while a window of the dialog stands
};

QTEST_MAIN(TestAbcMatchingDialogEnds)
#include "test_abcmatchingdialog_ends.moc"
