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

#include <fstream>

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

    void unloading_leaves_nothing_in_the_hosts_window()
    {
        const int children_before = window->findChildren<QObject*>().size();
        pass_parameters();
        open_and([this](QDialog* dialog) {
            dialog->findChild<QTabWidget*>("tabWidget")->setCurrentIndex(1);
            dialog->close();
        });
        module->about_to_exit_module();
        module->exit_module();
        QCOMPARE(window->findChildren<QObject*>().size(), children_before);
        QVERIFY(loader->unload());
        QVERIFY(!loader->isLoaded());
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        window.reset();
        QCoreApplication::processEvents();
    }

    void a_window_destroyed_first_takes_the_dialog_along()
    {
        pass_parameters();
        module->get_gui_elements();
        window.reset();
        module->about_to_exit_module();
        module->exit_module();
        QCOMPARE(controller->log, std::vector<std::string>{"add"});
    }

    void memory_does_not_grow()
    {
        pass_parameters();
        const int openings = is_sanitized() ? 20 : 1000;
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
