// The shared library as a host sees it: loading, menu entry, modes, unloading.
#include "contract/moduleinterface.h"
#include "contract/requester.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtCore/QLibrary>
#include <QtCore/QPluginLoader>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QTableWidget>

#include <fstream>
#include <thread>

Q_DECLARE_METATYPE(IOManager*)
Q_DECLARE_METATYPE(BackendVersions*)

namespace
{

/// Resident memory of this process in KiB.
long resident_memory()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == "VmRSS:") {
            long value = 0;
            status >> value;
            return value;
        }
    }
    return 0;
}

bool is_mapped(const std::string& library)
{
    std::ifstream maps("/proc/self/maps");
    const std::string all((std::istreambuf_iterator<char>(maps)), std::istreambuf_iterator<char>());
    return all.find(library) != std::string::npos;
}

bool is_sanitized()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return true;
#else
    return false;
#endif
}

} // namespace

class TestPlugin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void init()
    {
        loader.reset(new QPluginLoader(PLUGIN_FILE));
        // By default Qt keeps what it unloads in the process.
        loader->setLoadHints(QLibrary::LoadHints());
        QVERIFY2(loader->load(), qPrintable(loader->errorString()));
        module = qobject_cast<ModuleInterface*>(loader->instance());
        QVERIFY(module);
        controller.reset(new FakeController);
        versions = backend(1, 20);
        window.reset(new QMainWindow);
    }

    void cleanup()
    {
        close_all_dialogs();
        if (loader && loader->isLoaded()) {
            module->exit_module();
            loader->unload();
        }
        window.reset();
    }

    void only_entry_points_are_exported()
    {
        QProcess nm;
        nm.start("nm", {"-D", "--defined-only", PLUGIN_FILE});
        QVERIFY(nm.waitForFinished());
        QStringList names;
        for (const QByteArray& line : nm.readAllStandardOutput().split('\n'))
            if (!line.isEmpty())
                names << QString::fromLatin1(line.split(' ').last());
        names.sort();
        QCOMPARE(names, (QStringList{"qt_plugin_instance", "qt_plugin_query_metadata",
                                     "qt_plugin_query_verification_data"}));
    }

    void the_verification_text_tells_the_truth()
    {
        typedef const char* (*Query)();
        QLibrary library(PLUGIN_FILE);
        const Query query =
            reinterpret_cast<Query>(library.resolve("qt_plugin_query_verification_data"));
        QVERIFY(query);
        const QStringList lines = QString::fromLatin1(query()).split('\n');
        QCOMPARE(lines.size(), 4);
        QCOMPARE(lines[0], QString("pattern=QT_PLUGIN_VERIFICATION_DATA"));
        QCOMPARE(lines[1], QString("version=") + qVersion());
        QVERIFY(lines[3].startsWith("buildkey=") && lines[3].size() > 9);
    }

    void identity()
    {
        const QString iid = loader->metaData().value("IID").toString();
        QVERIFY(iid.endsWith(".gui.Module/0.2.0"));
        QObject* object = loader->instance();
        QVERIFY(object->qt_metacast("ModuleInterface"));
        QVERIFY(object->qt_metacast(qPrintable(iid)));
        QCOMPARE(object->metaObject()->className(), "RoomAdjustmentModule2g");
        QCOMPARE(loader->instance(), object);
        QCOMPARE(module->get_module_name(), QString("GUI Room Adjustment"));
        QCOMPARE(module->get_module_version(), QString("v2.0.5"));
    }

    void one_menu_entry()
    {
        pass_parameters();
        const QList<_GuiElement*> elements = module->get_gui_elements();
        QCOMPARE(elements.size(), 1);
        const _GuiElement* element = elements[0];
        QCOMPARE(element->menu, QString("&Calibration"));
        QCOMPARE(element->menu_rank, 300);
        QCOMPARE(element->action_rank, 555);
        QCOMPARE(element->element_flags, 0);
        QCOMPARE(element->action->text(), QString("Room a&djustment"));
        QCOMPARE(element->action->shortcut(), QKeySequence("Shift+F5"));
        QCOMPARE(element->action->statusTip(),
                 QString("Perform the room adjustment incl. COOTrans"));
        QCOMPARE(element->action->whatsThis(), QString("Adjust the room coordinate system"));
        QCOMPARE(module->get_gui_elements(), elements);
        QCOMPARE(controller->log, std::vector<std::string>{"add"});
        module->about_to_exit_module();
        QCOMPARE(controller->log.back(), std::string("remove"));
        module->exit_module();
        module->exit_module();
        module->about_to_exit_module();
        QCOMPARE(controller->log.size(), std::size_t(2));
    }

    void observer_mode_builds_nothing()
    {
        pass_parameters();
        module->set_param("ObserverMode", "true"); // converted from what it holds
        module->set_param("observermode", false);  // keys are case-sensitive
        module->set_param("Other", 7);
        QVERIFY(module->get_gui_elements().isEmpty());
        module->about_to_exit_module();
        module->exit_module();
        QVERIFY(controller->log.empty());
        QVERIFY(window->children().size() <= 1); // the window's own layout
    }

    void an_empty_variant_takes_a_parameter_back()
    {
        pass_parameters();
        module->set_param("ModuleParent", QString("not a widget"));
        QVERIFY(!qobject_cast<QWidget*>(module->get_gui_elements()[0]->dialog)->parentWidget());
    }

    void unloading_leaves_nothing_behind()
    {
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        const int children_before = window->findChildren<QObject*>().size();
        for (int round = 0; round < 4; ++round) {
            pass_parameters();
            std::thread data;
            walk({"w_bodyMatchingButton"}, [&] {
                data = std::thread([this] { deliver_lines(1000); });
                QTest::qWait(20);
                data.join();
                close_all_dialogs();
            });
            const bool forgets_to_exit = round == 3;
            if (!forgets_to_exit) {
                module->about_to_exit_module();
                module->exit_module();
            }
            QVERIFY(loader->unload());
            QVERIFY(!is_mapped("libroomadjustment"));
            QCOMPARE(window->findChildren<QObject*>().size(), children_before);
            QTest::qWait(1);
            QVERIFY(loader->load());
            module = qobject_cast<ModuleInterface*>(loader->instance());
        }
    }

    void the_end_comes_while_a_window_stands_data()
    {
        QTest::addColumn<QStringList>("way");
        const QString matching = "w_bodyMatchingButton";
        QTest::newRow("the dialog itself") << QStringList{};
        QTest::newRow("question of Cancel") << QStringList{"edit", "btn_cancel"};
        QTest::newRow("question before matching") << QStringList{"edit", matching};
        QTest::newRow("help of the view") << QStringList{"pushButton_helpView"};
        QTest::newRow("matching") << QStringList{matching};
        QTest::newRow("help of matching") << QStringList{matching, "pushButton_help"};
        QTest::newRow("file box") << QStringList{matching, "w_loadButton"};
        QTest::newRow("message of a table") << QStringList{matching, "cell"};
    }

    void the_end_comes_while_a_window_stands()
    {
        QFETCH(QStringList, way);
        for (const bool window_goes : {false, true}) {
            controller->values["tracking extra_translation"] = "1.000 2.000 3.000";
            window.reset(new QMainWindow);
            pass_parameters();
            bool ended = false;
            walk(way, [&] {
                module->about_to_exit_module();
                if (window_goes)
                    window.reset();
                module->exit_module();
                ended = true;
            });
            QVERIFY(ended);
            // What matching set aside comes back, and nothing starts tracking for nobody.
            QCOMPARE(controller->values["tracking extra_translation"],
                     std::string("1.000 2.000 3.000"));
            QVERIFY(controller->log.back() != "do zetrak2 tracking start");
            module->exit_module();
        }
    }

    void memory_does_not_grow()
    {
        pass_parameters();
        const int openings = is_sanitized() ? 20 : 400;
        const auto open_and_apply = [this](QDialog* dialog) {
            dialog->findChild<QTabWidget*>("tabWidget")->setCurrentIndex(1);
            QDoubleSpinBox* x = dialog->findChild<QDoubleSpinBox*>("doubleSpinBox_x");
            x->setValue(x->value() == 0.0 ? 10.0 : 0.0);
            dialog->findChild<QPushButton*>("btn_apply")->click();
            dialog->close();
        };
        for (int i = 0; i < openings / 10; ++i)
            open_and(open_and_apply);
        controller->log.clear();
        controller->log.shrink_to_fit();
        const long before = resident_memory();
        for (int i = 0; i < openings; ++i) {
            open_and(open_and_apply);
            controller->log.clear();
        }
        const long grown = resident_memory() - before;
        std::printf("memory grew by %ld KiB over %d openings\n", grown, openings);
        if (!is_sanitized())
            QVERIFY(grown < 2048);
    }

private:
    void pass_parameters()
    {
        module->set_param("CommandManager", QVariant::fromValue<IOManager*>(controller.get()));
        module->set_param("ModuleParent", QVariant::fromValue<QWidget*>(window.get()));
        module->set_param("BackendVersions", QVariant::fromValue(&versions));
    }

    void deliver_lines(int count)
    {
        for (int i = 0; i < count; ++i) {
            const QByteArray time = "ts " + QByteArray::number(i / 60.0);
            controller->requester->set_ascii_data("ts", time.constData());
            controller->requester->set_ascii_data(
                "6dmt2", "6dmt2 1 1 [0 1 4 0][1 2 3][1 0 0 0 1 0 0 0 1][1][0 0 0 0 0 0]");
        }
    }

    /// Opens the dialog's fine tab, goes from window to window by the buttons named, and calls
    /// `end` in front of the last.
    void walk(const QStringList& way, std::function<void()> end)
    {
        open_and([=](QDialog* dialog) {
            dialog->findChild<QTabWidget*>("tabWidget")->setCurrentIndex(1);
            step(way, dialog, end);
        });
    }

    void step(QStringList way, QDialog* top, std::function<void()> end)
    {
        if (way.isEmpty())
            return end();
        const QString name = way.takeFirst();
        if (name == "edit") {
            top->findChild<QDoubleSpinBox*>("doubleSpinBox_x")->setValue(5.0);
            return step(way, top, end);
        }
        await_other(top, [=](QDialog* next) { step(way, next, end); });
        if (name == "cell") {
            top->findChild<QPushButton*>("pushButton_addRefPoint")->click();
            top->findChild<QTableWidget*>("tableWidget_referencePoints")->item(0, 0)->setText("?");
        } else {
            top->findChild<QPushButton*>(name)->click();
        }
    }

    void await_other(QDialog* known, std::function<void(QDialog*)> then)
    {
        when_open<QDialog>([=](QDialog* top) {
            if (top == known)
                await_other(known, then);
            else
                then(top);
        });
    }

    void open_and(std::function<void(QDialog*)> step)
    {
        const _GuiElement* element = module->get_gui_elements()[0];
        when_open<QDialog>(step);
        element->action->trigger();
    }

    std::unique_ptr<QPluginLoader> loader;
    ModuleInterface* module = nullptr;
    std::unique_ptr<FakeController> controller;
    BackendVersions versions;
    std::unique_ptr<QMainWindow> window;
};

QTEST_MAIN(TestPlugin)
#include "test_plugin.moc"
