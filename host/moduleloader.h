// A module in a shared library: loads it, hands over what it needs, takes it down in order.
#ifndef HOST_MODULELOADER_H
#define HOST_MODULELOADER_H

#include "contract/moduleinterface.h"

#include <QPluginLoader>
#include <QString>

class IOManager;
class QWidget;
struct BackendVersions;

/// What a module is given before it is asked for its menu entries. Nothing is owned; everything
/// must outlive the module.
struct ModuleContext
{
    IOManager* io_manager;
    QWidget* window;
    BackendVersions* backend_versions;
    bool observer;
};

/// Order of calls: load, configure, elements, about to exit, exit and unload. The destructor makes
/// up for the last two. GUI thread only.
class ModuleLoader
{
public:
    ModuleLoader() = default;
    ~ModuleLoader();
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    /// False if the file is not a module for this host; error_text() says why.
    bool load(const QString& file_name);
    QString error_text() const { return m_error; }

    void configure(const ModuleContext& context);

    /// "NAME VERSION".
    QString title() const;
    QList<_GuiElement*> elements();

    /// The module's last chance to speak to the controller.
    void about_to_exit();
    /// Ends the module and takes the library out of memory. Harmless if there is none.
    void exit_and_unload();

private:
    QPluginLoader m_loader;
    ModuleInterface* m_module = nullptr;
    bool m_about_to_exit_told = false;
    QString m_error;
};

#endif
