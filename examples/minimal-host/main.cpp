// The least that a host of the room adjustment module needs. Its controller is a table of answers
// in the same process, and everything that is said to it is printed.
//   minimal-host [--once]     --once: opens the dialog, presses its OK, and ends
#include "contract/backendversions.h"
#include "contract/iomanager.h"
#include "contract/moduleinterface.h"
#include "contract/requester.h"

#include <QApplication>
#include <QMainWindow>
#include <QMap>
#include <QMenuBar>
#include <QPluginLoader>
#include <QPushButton>
#include <QTimer>
#include <QTranslator>
#include <cstdio>

Q_DECLARE_METATYPE(IOManager*)
Q_DECLARE_METATYPE(BackendVersions*)

// QString formats with a point as decimal sign, whatever the desktop's language.
#define FORMATTED(text)                                                                            \
    va_list arguments;                                                                             \
    va_start(arguments, format);                                                                   \
    const QByteArray text = QString::vasprintf(format, arguments).toUtf8();                        \
    va_end(arguments)

class Gateway : public IOManager
{
public:
    int send_command(char* reply, const char* format, ...) override
    {
        FORMATTED(command);
        std::printf("do %s\n", command.constData());
        if (command.startsWith("zetrak2 tracking "))
            values["status active"] = command.endsWith("start") ? "mea" : "idle";
        return fill(reply, "ok");
    }
    int get_param_string(char* value, const char* format, ...) override
    {
        FORMATTED(name);
        return fill(value, values.value(name));
    }
    int get_param_int(int* value, const char* format, ...) override
    {
        FORMATTED(name);
        *value = values.value(name).toInt();
        return values.contains(name) ? 0 : -1;
    }
    int get_param_double(double* value, const char* format, ...) override
    {
        FORMATTED(name);
        return numbers(values.value(name), 1, value);
    }
    int get_param_bool(bool* value, const char* format, ...) override
    {
        FORMATTED(name);
        *value = values.value(name) == "1";
        return values.contains(name) ? 0 : -1;
    }
    int get_param_doubles(double* list, int count, const char* format, ...) override
    {
        FORMATTED(name);
        return numbers(values.value(name), count, list);
    }
    int set_param_value(const char* format, ...) override
    {
        FORMATTED(text);
        std::printf("set %s\n", text.constData());
        const int blank = text.indexOf(' ', text.indexOf(' ') + 1);
        values[text.left(blank)] = text.mid(blank + 1);
        return 0;
    }
    // A real host delivers lines of the subscribed types to `requester->set_ascii_data`.
    int subscribe_data(const char*, Requester*) override { return 0; }
    int unsubscribe_data(const char*, Requester*) override { return 0; }
    int add_requester(Requester*) override { return 0; }
    int remove_requester(Requester*) override { return 0; }
    int show_message(const char*, const char*, int, const char* text) override
    {
        return std::printf("message %s\n", text) > 0 ? 0 : -1;
    }

private:
    static int fill(char* buffer, const QByteArray& text)
    {
        qstrncpy(buffer, text.constData(), buffer_size);
        return text.isEmpty() || text.size() >= buffer_size ? -1 : 0;
    }
    static int numbers(const QByteArray& text, int count, double* list)
    {
        const QList<QByteArray> words = text.split(' ');
        bool valid = words.size() == count;
        for (int i = 0; valid && i < count; ++i)
            list[i] = words[i].toDouble(&valid);
        return valid ? 0 : -1;
    }

    QMap<QByteArray, QByteArray> values = {{"status active", "idle"},
                                           {"camera number_of_cameras", "2"},
                                           {"tracking has_room c01", "1"},
                                           {"tracking has_room c02", "1"},
                                           {"tracking room c01", "0 2500 -1500 0 0 0 0 0 0 0 0 0"},
                                           {"tracking room c02", "0 2500 1500 0 0 0 0 0 0 0 0 0"},
                                           {"tracking extra_rotation", "1 0 0 0 1 0 0 0 1"},
                                           {"tracking extra_translation", "0 0 0"},
                                           {"tracking extra_scaling", "1"},
                                           {"roomcal last_coordinate_type", "normal"},
                                           {"licence measurementtool", "1"},
                                           {"measurementtool number_of_tools", "0"}};
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QTranslator translator;
    if (translator.load(QLocale(), "roomadjustment", "_", MODULE_TRANSLATIONS))
        QCoreApplication::installTranslator(&translator);

    QPluginLoader loader(MODULE_FILE);
    ModuleInterface* module = qobject_cast<ModuleInterface*>(loader.instance());
    if (!module)
        qFatal("%s", qPrintable(loader.errorString()));
    Gateway gateway;
    BackendVersions versions = {{0, 0, 0}, 1, 18, 0};
    QMainWindow window;
    module->set_param("CommandManager", QVariant::fromValue<IOManager*>(&gateway));
    module->set_param("ModuleParent", QVariant::fromValue<QWidget*>(&window));
    module->set_param("BackendVersions", QVariant::fromValue(&versions));
    _GuiElement* element = module->get_gui_elements().value(0);
    window.menuBar()->addMenu(element->menu)->addAction(element->action);
    window.show();

    if (application.arguments().contains("--once")) {
        QTimer::singleShot(500, [] {
            QApplication::activeModalWidget()->findChild<QPushButton*>("btn_ok")->click();
            QCoreApplication::quit();
        });
        element->action->trigger(); // comes back when the dialog has been closed
    } else {
        QApplication::exec();
    }

    module->about_to_exit_module();
    window.menuBar()->clear();
    module->exit_module();
    return loader.unload() ? 0 : 1;
}
