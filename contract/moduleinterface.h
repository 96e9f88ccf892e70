// What a host asks of a module: its name, its menu entries, its shutdown.
#ifndef CONTRACT_MODULEINTERFACE_H
#define CONTRACT_MODULEINTERFACE_H

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariant>

class QAction;

/// One menu contribution. Owned by the module; the host reads it.
struct _GuiElement
{
    QAction* action;
    int action_rank; ///< place within the menu
    QString menu;    ///< title of the host's menu that takes the action
    int menu_rank;   ///< place of that menu in the menu bar
    QObject* dialog; ///< the dialog behind the action
    int element_flags;
};

/// Implemented by the plug-in's one object, called by the host on its GUI thread. The order of the
/// operations is part of the binary contract between host and plug-in.
///
/// At its end a host calls about_to_exit_module(), exit_module(), and only then deletes the objects
/// it passed by set_param().
class ModuleInterface
{
public:
    virtual ~ModuleInterface() {}

    /// The module takes its requester back from the host. To be called while the window passed as
    /// "ModuleParent" still lives: the dialog goes with that window, and then nobody takes the
    /// requester back. Harmless without a dialog.
    virtual void about_to_exit_module() = 0;

    /// Deletes the dialog, also while windows of the module are open; what waits for their answers
    /// ends. If the controller works with the default extra transformation for the sake of a
    /// measurement, it gets its own back here. The action stays until the library is unloaded: take
    /// it out of the menu. Harmless if called twice. Unloading the library calls it if nobody has.
    virtual void exit_module() = 0;

    virtual QString get_module_name() const = 0;
    virtual QString get_module_version() const = 0;

    /// The menu contributions; the same elements at every call. Empty in observer mode. A call
    /// after exit_module() builds anew: another dialog, and beside the first action, which still
    /// lives, a second one with the same shortcut.
    virtual QList<_GuiElement*> get_gui_elements() = 0;

    /// Hands over a value before the first `get_gui_elements`; unknown keys are ignored. Objects
    /// stay the host's and must live until exit_module() has returned.
    virtual void set_param(QString key, QVariant value) = 0;
};

// The integrator's host decides the vendor's prefix; the build system can override it.
#ifndef ROOM_ADJUSTMENT_VENDOR_PREFIX
#define ROOM_ADJUSTMENT_VENDOR_PREFIX "com.zetrak"
#endif
#define ModuleInterface_iid ROOM_ADJUSTMENT_VENDOR_PREFIX ".gui.Module/0.2.0"

Q_DECLARE_INTERFACE(ModuleInterface, ModuleInterface_iid)

#endif
