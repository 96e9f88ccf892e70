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
class ModuleInterface
{
public:
    virtual ~ModuleInterface() {}

    /// Last call in which the module may speak to the controller.
    virtual void about_to_exit_module() = 0;

    /// Deletes everything the module has built; harmless if called twice.
    virtual void exit_module() = 0;

    virtual QString get_module_name() const = 0;
    virtual QString get_module_version() const = 0;

    /// The menu contributions; the same elements at every call. Empty in observer mode.
    virtual QList<_GuiElement*> get_gui_elements() = 0;

    /// Hands over a value before the first `get_gui_elements`; unknown keys are ignored.
    virtual void set_param(QString key, QVariant value) = 0;
};

// The integrator's host decides the vendor's prefix; the build system can override it.
#ifndef ROOM_ADJUSTMENT_VENDOR_PREFIX
#define ROOM_ADJUSTMENT_VENDOR_PREFIX "com.zetrak"
#endif
#define ModuleInterface_iid ROOM_ADJUSTMENT_VENDOR_PREFIX ".gui.Module/0.2.0"

Q_DECLARE_INTERFACE(ModuleInterface, ModuleInterface_iid)

#endif
