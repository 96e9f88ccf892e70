#include "module/roomadjustmentmodule.h"

#include "contract/backendversions.h"
#include "contract/iomanager.h"
#include "module/roomadjustmentdlg.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>

Q_DECLARE_METATYPE(IOManager*)
Q_DECLARE_METATYPE(BackendVersions*)

RoomAdjustmentModule2g::RoomAdjustmentModule2g()
    : module_parent(nullptr), gui_element(), io_manager(nullptr), backend_versions(nullptr),
      observer_mode(false)
{
}

RoomAdjustmentModule2g::~RoomAdjustmentModule2g()
{
    // A host that unloads at the end of its process may have no application any more, and without
    // one no window can be deleted.
    if (QCoreApplication::instance())
        RoomAdjustmentModule2g::exit_module();
}

QString RoomAdjustmentModule2g::get_module_name() const { return tr("GUI Room Adjustment"); }

QString RoomAdjustmentModule2g::get_module_version() const
{
    return QString::fromLatin1("v%1.%2.%3")
        .arg(ROOM_ADJUSTMENT_VERSION_MAJOR)
        .arg(ROOM_ADJUSTMENT_VERSION_MINOR)
        .arg(ROOM_ADJUSTMENT_VERSION_PATCH);
}

void RoomAdjustmentModule2g::set_param(QString key, QVariant value)
{
    if (key == QLatin1String("CommandManager"))
        io_manager = value.value<IOManager*>();
    else if (key == QLatin1String("ModuleParent"))
        module_parent = value.value<QWidget*>();
    else if (key == QLatin1String("BackendVersions"))
        backend_versions = value.value<BackendVersions*>();
    else if (key == QLatin1String("ObserverMode"))
        observer_mode = value.toBool();
}

QList<_GuiElement*> RoomAdjustmentModule2g::get_gui_elements()
{
    if (!gui_elements.isEmpty() || observer_mode)
        return gui_elements;
    createDialog();
    createAction();
    gui_elements.append(&gui_element);
    return gui_elements;
}

void RoomAdjustmentModule2g::createDialog()
{
    const ModuleInterface* module = this;
    dialog = new RoomAdjustmentDlg2g(io_manager, module_parent, backend_versions,
                                     module->get_module_version());
    gui_element.dialog = dialog;
    gui_element.menu = tr("&Calibration");
    gui_element.menu_rank = 300;
    gui_element.action_rank = 555;
    gui_element.element_flags = 0;
}

void RoomAdjustmentModule2g::createAction()
{
    QAction* action = new QAction(tr("Room a&djustment"), this);
    action->setShortcut(QKeySequence(tr("Shift+F5")));
    action->setStatusTip(tr("Perform the room adjustment incl. COOTrans"));
    action->setWhatsThis(tr("Adjust the room coordinate system"));
    connect(action, SIGNAL(triggered()), dialog, SLOT(update_and_exec()));
    gui_element.action = action;
}

void RoomAdjustmentModule2g::about_to_exit_module()
{
    if (RoomAdjustmentDlg2g* open_dialog = qobject_cast<RoomAdjustmentDlg2g*>(dialog))
        open_dialog->about_to_exit();
}

void RoomAdjustmentModule2g::exit_module()
{
    delete dialog;
    gui_element.dialog = nullptr;
    gui_elements.clear();
}
