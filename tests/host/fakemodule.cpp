// A module that writes down, through the host's messages, how the host treats it.
#include "contract/backendversions.h"
#include "contract/iomanager.h"
#include "contract/moduleinterface.h"
#include "contract/requester.h"

#include <QAction>
#include <QWidget>

Q_DECLARE_METATYPE(IOManager*)
Q_DECLARE_METATYPE(BackendVersions*)

class FakeModule : public QObject, public ModuleInterface, public Requester
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ModuleInterface_iid)
    Q_INTERFACES(ModuleInterface)

public:
    ~FakeModule() override { say("deleted"); }

    void about_to_exit_module() override { say("about to exit"); }
    void exit_module() override { say("exit"); }
    QString get_module_name() const override { return QStringLiteral("Fake"); }
    QString get_module_version() const override { return QStringLiteral("v1"); }
    QList<_GuiElement*> get_gui_elements() override;
    void set_param(QString key, QVariant value) override;

    int set_ascii_data(const char*, const char*) override { return 0; }
    void set_mea_started() override {}
    void set_mea_stopped() override {}

private:
    void say(const QString& text)
    {
        if (io_manager)
            io_manager->show_message("standard", "Fake", 0, text.toLatin1().constData());
    }

    IOManager* io_manager = nullptr;
    _GuiElement late{new QAction("&Late", this), 900, "&Calibration", 300, nullptr, 0};
    _GuiElement early{new QAction("&Early", this), 100, "&Calibration", 300, nullptr, 0};
    _GuiElement first{new QAction("F&irst", this), 500, "&Before", 200, nullptr, 0};
};

// Leaves its requester with the host on purpose.
QList<_GuiElement*> FakeModule::get_gui_elements()
{
    say("elements");
    io_manager->add_requester(this);
    io_manager->subscribe_data("ts", this);
    return {&late, &early, &first};
}

void FakeModule::set_param(QString key, QVariant value)
{
    if (key == "CommandManager")
        io_manager = value.value<IOManager*>();
    if (key == "ModuleParent")
        say("window " + value.value<QWidget*>()->objectName());
    if (key == "BackendVersions") {
        const BackendVersions& versions = *value.value<BackendVersions*>();
        const QString text("backend %1.%2.%3");
        say(text.arg(versions.major).arg(versions.minor).arg(versions.patch));
    }
    if (key == "ObserverMode")
        say(value.toBool() ? "observer" : "no observer");
}

#include "fakemodule.moc"
