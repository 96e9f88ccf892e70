#include "host/moduleloader.h"

#include "contract/backendversions.h"
#include "contract/iomanager.h"

#include <QWidget>

Q_DECLARE_METATYPE(IOManager*)
Q_DECLARE_METATYPE(BackendVersions*)

ModuleLoader::~ModuleLoader()
{
    aboutToExit();
    exitAndUnload();
}

bool ModuleLoader::load(const QString& file_name)
{
    loader.setFileName(file_name);
    QObject* instance = loader.instance();
    module = qobject_cast<ModuleInterface*>(instance);
    if (module)
        return true;
    const QString reason =
        instance ? QStringLiteral("it has no interface %1").arg(QLatin1String(ModuleInterface_iid))
                 : loader.errorString();
    error = QStringLiteral("%1 cannot be loaded as a module: %2").arg(file_name, reason);
    loader.unload();
    return false;
}

void ModuleLoader::configure(const ModuleContext& context)
{
    qRegisterMetaType<IOManager*>("IOManager*");
    qRegisterMetaType<BackendVersions*>("BackendVersions*");
    module->set_param(QStringLiteral("CommandManager"), QVariant::fromValue(context.io_manager));
    module->set_param(QStringLiteral("ModuleParent"), QVariant::fromValue(context.window));
    module->set_param(QStringLiteral("BackendVersions"),
                      QVariant::fromValue(context.backend_versions));
    if (context.observer)
        module->set_param(QStringLiteral("ObserverMode"), true);
}

QString ModuleLoader::title() const
{
    return module->get_module_name() + QLatin1Char(' ') + module->get_module_version();
}

QList<_GuiElement*> ModuleLoader::elements() { return module->get_gui_elements(); }

void ModuleLoader::aboutToExit()
{
    if (!module || about_to_exit_told)
        return;
    about_to_exit_told = true;
    module->about_to_exit_module();
}

void ModuleLoader::exitAndUnload()
{
    if (!module)
        return;
    module->exit_module();
    module = nullptr;
    loader.unload();
}
