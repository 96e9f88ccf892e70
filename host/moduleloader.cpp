#include "host/moduleloader.h"

#include "contract/backendversions.h"
#include "contract/iomanager.h"

#include <QWidget>

Q_DECLARE_METATYPE(IOManager*)
Q_DECLARE_METATYPE(BackendVersions*)

ModuleLoader::~ModuleLoader()
{
    about_to_exit();
    exit_and_unload();
}

bool ModuleLoader::load(const QString& file_name)
{
    m_loader.setFileName(file_name);
    QObject* instance = m_loader.instance();
    m_module = qobject_cast<ModuleInterface*>(instance);
    if (m_module)
        return true;
    const QString reason =
        instance ? QStringLiteral("it has no interface %1").arg(QLatin1String(ModuleInterface_iid))
                 : m_loader.errorString();
    m_error = QStringLiteral("%1 cannot be loaded as a module: %2").arg(file_name, reason);
    m_loader.unload();
    return false;
}

void ModuleLoader::configure(const ModuleContext& context)
{
    qRegisterMetaType<IOManager*>("IOManager*");
    qRegisterMetaType<BackendVersions*>("BackendVersions*");
    m_module->set_param(QStringLiteral("CommandManager"), QVariant::fromValue(context.io_manager));
    m_module->set_param(QStringLiteral("ModuleParent"), QVariant::fromValue(context.window));
    m_module->set_param(QStringLiteral("BackendVersions"),
                        QVariant::fromValue(context.backend_versions));
    if (context.observer)
        m_module->set_param(QStringLiteral("ObserverMode"), true);
}

QString ModuleLoader::title() const
{
    return m_module->get_module_name() + QLatin1Char(' ') + m_module->get_module_version();
}

QList<_GuiElement*> ModuleLoader::elements() { return m_module->get_gui_elements(); }

void ModuleLoader::about_to_exit()
{
    if (!m_module || m_about_to_exit_told)
        return;
    m_about_to_exit_told = true;
    m_module->about_to_exit_module();
}

void ModuleLoader::exit_and_unload()
{
    if (!m_module)
        return;
    m_module->exit_module();
    m_module = nullptr;
    m_loader.unload();
}
