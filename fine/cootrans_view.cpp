// The fine tab's 3D view: its widgets, connections, colors and context menu.
#include "fine/cootrans.h"

#include "SourceFiles/abcGLCanvas.h"
#include "controller/roomadjustmentdata.h"
#include "matching/abcmatchingdialog.h"

#include <QAction>
#include <QMenu>

namespace
{

constexpr double view_position_limit = 999.99;
constexpr double reference_distance = 300.0; // mm; the view distance at a scale factor of 1
const QColor axis_colors[] = {QColor(200, 0, 0), QColor(0, 200, 0), QColor(0, 0, 200)};

void set_text_color(QWidget* widget, const QColor& color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, color);
    widget->setPalette(palette);
}

} // namespace

void CooTrans::setupWidgets()
{
    gl_canvas = new AbcGLCanvas(this, matching_dialog);
    ui.stackedWidget->insertWidget(0, gl_canvas);
    ui.stackedWidget->setCurrentIndex(0);

    xyzWidget* position = ui.w_viewPositionXYZ;
    position->setXRange(-view_position_limit, view_position_limit);
    position->setYRange(-view_position_limit, view_position_limit);
    position->setZRange(-view_position_limit, view_position_limit);
    xyzWidget* orientation = ui.w_viewOrientationXYZ;
    orientation->setXRange(0.0, 360.0);
    orientation->setYRange(0.0, 360.0);
    orientation->setZRange(0.0, 360.0);
    orientation->setXWrapping(true);
    orientation->setYWrapping(true);
    orientation->setZWrapping(true);

    QWidget* const labels[][2] = {
        {ui.label_posX, ui.label_rx}, {ui.label_posY, ui.label_ry}, {ui.label_posZ, ui.label_rz}};
    for (int axis = 0; axis < 3; ++axis)
        for (QWidget* label : labels[axis])
            set_text_color(label, axis_colors[axis]);
}

void CooTrans::setupConnections()
{
    connectViewWidgets();
    ui.w_longAxesCheckBox->hide();
    ui.w_showXYGridCheckBox->hide();
    ui.w_showYZGridCheckBox->hide();
    ui.w_showXZGridCheckBox->hide();

    connect(ui.w_adjustViewButton, SIGNAL(clicked()), this, SLOT(adjustView()));
    connect(ui.w_resetViewButton, SIGNAL(clicked()), this, SLOT(resetView()));
    connect(gl_canvas, SIGNAL(canUndo(bool)), ui.w_bodyUndoButton, SLOT(setEnabled(bool)));
    connect(gl_canvas, SIGNAL(canRedo(bool)), ui.w_bodyRedoButton, SLOT(setEnabled(bool)));
    connect(ui.w_bodyUndoButton, SIGNAL(clicked()), gl_canvas, SLOT(undo()));
    connect(ui.w_bodyRedoButton, SIGNAL(clicked()), gl_canvas, SLOT(redo()));
    ui.line_2->hide();
    ui.w_bodyUndoButton->hide();
    ui.w_bodyRedoButton->hide();

    connect(matching_dialog, SIGNAL(applyTrafoRequest(const bsMatrix&)), this,
            SLOT(applyTrafo(const bsMatrix&)));
}

void CooTrans::connectViewWidgets()
{
    QWidget* orientation = ui.w_viewOrientationXYZ;
    QWidget* position = ui.w_viewPositionXYZ;
    connect(orientation, SIGNAL(valueChanged(double, double, double)), gl_canvas,
            SLOT(rotateView(double, double, double)));
    connect(gl_canvas, SIGNAL(rotateViewRequest(double, double, double)), orientation,
            SLOT(adjustValues(double, double, double)));
    connect(orientation, SIGNAL(xyzEditingBegin()), gl_canvas, SLOT(rotateViewBegin()));
    connect(orientation, SIGNAL(xyzEditingFinished()), gl_canvas, SLOT(rotateViewEnd()));
    connect(orientation, SIGNAL(xyzEditingFinished()), gl_canvas, SIGNAL(storeViewRequest()));
    connect(position, SIGNAL(valueChanged(double, double, double)), gl_canvas,
            SLOT(translateView(double, double, double)));
    connect(gl_canvas, SIGNAL(translateViewRequest(double, double, double)), position,
            SLOT(adjustValues(double, double, double)));
    connect(position, SIGNAL(xyzEditingFinished()), gl_canvas, SIGNAL(storeViewRequest()));
    connect(gl_canvas, SIGNAL(storeViewRequest()), gl_canvas, SLOT(saveCurrentView()));
    connect(gl_canvas, SIGNAL(storeViewRequest()), orientation, SLOT(reset()));
    connect(gl_canvas, SIGNAL(storeViewRequest()), position, SLOT(reset()));
}

void CooTrans::manageColors()
{
    QColor xy(150, 150, 0);
    QColor yz(0, 150, 150);
    QColor xz(150, 0, 150);
    gl_canvas->setXYGridColor(xy);
    gl_canvas->setYZGridColor(yz);
    gl_canvas->setXZGridColor(xz);
    QPalette palette = ui.w_showXYGridCheckBox->palette();
    palette.setColor(QPalette::WindowText, xy);
    ui.w_showXYGridCheckBox->setPalette(palette);
    palette.setColor(QPalette::WindowText, yz);
    ui.w_showYZGridCheckBox->setPalette(palette);
    palette.setColor(QPalette::WindowText, xz);
    ui.w_showXZGridCheckBox->setPalette(palette);
}

QAction* CooTrans::addToggle(QMenu* menu, const QString& text, const char* slot)
{
    QAction* action = new QAction(text, this);
    action->setCheckable(true);
    connect(action, SIGNAL(triggered()), this, slot);
    menu->addAction(action);
    return action;
}

void CooTrans::createContextMenue()
{
    long_axes_shown = xy_grid_shown = yz_grid_shown = xz_grid_shown = false;
    QMenu* menu = new QMenu(gl_canvas);
    addToggle(menu, tr("Long axes"), SLOT(toggled_long_axes()));
    menu->addSeparator();
    QAction* xy = addToggle(menu, tr("Show XY plane"), SLOT(toggled_show_XY()));
    addToggle(menu, tr("Show YZ plane"), SLOT(toggled_show_YZ()));
    addToggle(menu, tr("Show XZ plane"), SLOT(toggled_show_XZ()));
    gl_canvas->set_menu(menu);
    xy->setChecked(true);
    toggled_show_XY();
}

void CooTrans::toggled_long_axes()
{
    long_axes_shown = !long_axes_shown;
    gl_canvas->showLongAxes(long_axes_shown);
}

void CooTrans::toggled_show_XY()
{
    xy_grid_shown = !xy_grid_shown;
    gl_canvas->showXYGrid(xy_grid_shown);
}

void CooTrans::toggled_show_YZ()
{
    yz_grid_shown = !yz_grid_shown;
    gl_canvas->showYZGrid(yz_grid_shown);
}

void CooTrans::toggled_show_XZ()
{
    xz_grid_shown = !xz_grid_shown;
    gl_canvas->showXZGrid(xz_grid_shown);
}

bool CooTrans::loadRoom()
{
    gl_canvas->loadRoom(ra_data);
    adjustView();
    resetView();
    return true;
}

bool CooTrans::loadRoomDefault()
{
    RoomAdjustmentData identity;
    gl_canvas->loadRoom(&identity);
    adjustView();
    resetView();
    return true;
}

void CooTrans::adjustView()
{
    const double z = gl_canvas->getBestZValue();
    setRoomScaleFactor(z / reference_distance);
    gl_canvas->setViewPosition(bsVector(0.0, 0.0, -z));
}

void CooTrans::resetView()
{
    gl_canvas->setViewOrientation(bsMatrix::getIdentityMatrix());
    gl_canvas->setViewPosition(bsVector(0.0, 0.0, -reference_distance * getRoomScaleFactor()));
}

double CooTrans::getRoomScaleFactor() { return gl_canvas->getRoomScaleFactor(); }

void CooTrans::setRoomScaleFactor(double factor)
{
    ui.w_viewPositionXYZ->setStep(factor);
    ui.doubleSpinBox_x->setSingleStep(factor);
    ui.doubleSpinBox_y->setSingleStep(factor);
    ui.doubleSpinBox_z->setSingleStep(factor);
    gl_canvas->setRoomScaleFactor(factor);
}
