// The plug-in's one object: what a host loads.
#ifndef MODULE_ROOMADJUSTMENTMODULE_H
#define MODULE_ROOMADJUSTMENTMODULE_H

#include "contract/moduleinterface.h"

#include <QPointer>
#include <QWidget>

class IOManager;
struct BackendVersions;

/// Offers one menu entry, which opens the room adjustment dialog. The host passes "CommandManager",
/// "ModuleParent" and "BackendVersions" before the first `get_gui_elements`; a missing one is not
/// detected. In observer mode nothing is ever built.
class RoomAdjustmentModule2g : public QObject, public ModuleInterface
{
    Q_OBJECT
    Q_INTERFACES(ModuleInterface)
#if QT_VERSION >= 0x050000
    Q_PLUGIN_METADATA(IID ModuleInterface_iid)
#endif

public:
    RoomAdjustmentModule2g();
    /// Unloading the library comes here; does what a forgotten exit_module() should have done.
    ~RoomAdjustmentModule2g();

    QString get_module_name() const;
    QString get_module_version() const;
    QList<_GuiElement*> get_gui_elements();
    /// A variant of the wrong type stores a null pointer, or false.
    void set_param(QString key, QVariant value);
    void about_to_exit_module();
    void exit_module();

private:
    void createDialog();
    void createAction();

    QWidget* module_parent;
    QList<_GuiElement*> gui_elements;
    _GuiElement gui_element;
    IOManager* io_manager;
    BackendVersions* backend_versions;
    bool observer_mode;
    QPointer<QObject> dialog; ///< notices if the host's window took the dialog down with it
};

#endif
