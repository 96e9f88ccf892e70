#include "module/roomadjustmentdlg.h"

#include "coarse/coarseadjustment.h"
#include "controller/versiongates.h"
#include "controller/vocabulary.h"
#include "fine/cootrans.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QStandardItemModel>

namespace
{

const int coarse_index = 0;
const int fine_index = 1;
const int working_minimum_height = 700;
const int working_minimum_width = 1000;

} // namespace

RoomAdjustmentDlg2g::RoomAdjustmentDlg2g(IOManager* io_manager, QWidget* parent,
                                         BackendVersions* backend_versions, QString)
    : QDialog(parent), io_manager(io_manager), backend_versions(backend_versions),
      parent_widget(parent), model(nullptr), coarse_tab(nullptr), fine_tab(nullptr),
      fine_angles(this), config_locked(false), tabs_ready(false), ok_pending(false), running(false),
      exchanging(false), subscribed(false)
{
    ui.setupUi(this);
    lock_icon.addFile(QString::fromLatin1(":/lock.png"), QSize(), QIcon::Normal, QIcon::Off);
    ui.label_error->hide();
    io_manager->add_requester(this);
    setupModel();
    ui.tabWidget->removeTab(0);
    setupTabs(parent);
    setupConnections();
}

void RoomAdjustmentDlg2g::setupModel()
{
    model = new QStandardItemModel(0, 4, this);
    const QString headers[] = {tr("Camera"), tr("x [mm]"), tr("y [mm]"), tr("z [mm]")};
    for (int column = 0; column < 4; ++column)
        model->setHeaderData(column, Qt::Horizontal, headers[column], Qt::EditRole);
}

void RoomAdjustmentDlg2g::setupTabs(QWidget* matching_parent)
{
    // Each is inserted in front, so the coarse tab ends up at 0 and the fine tab at 1.
    fine_tab = new CooTrans(io_manager, backend_versions, &ra_data, this, matching_parent);
    ui.tabWidget->insertTab(0, fine_tab, QString::fromLatin1("&Fine"));
    coarse_tab = new CoarseAdjustment(io_manager, backend_versions, &ra_data, this);
    coarse_tab->setModel(model);
    coarse_tab->setRoomAngles(&fine_angles);
    ui.tabWidget->insertTab(0, coarse_tab, QString::fromLatin1("&Coarse"));
    ui.tabWidget->setCurrentIndex(coarse_index);
    current_tab.fetchAndStoreOrdered(coarse_index);
}

void RoomAdjustmentDlg2g::setupConnections()
{
    connect(coarse_tab, SIGNAL(do_btn_apply_enable(bool)), this, SLOT(ondo_btn_apply_enable(bool)));
    connect(fine_tab, SIGNAL(do_btn_apply_enable(bool)), this, SLOT(ondo_btn_apply_enable(bool)));
}

void RoomAdjustmentDlg2g::enableDialog(bool enable, bool tracking_state)
{
    ui.tabWidget->setEnabled(enable);
    ui.btn_ok->setEnabled(enable);
    ui.btn_apply->setEnabled(enable);
    if (!enable && !tracking_state) {
        ui.label_error->setText(tr("<b><font color=red>Tracking is not available!</font></b>"));
        ui.label_error->show();
    } else {
        ui.label_error->hide();
        ui.label_error->setText(QString());
    }
}

int RoomAdjustmentDlg2g::update_and_exec()
{
    // A second opening would overwrite the state that Cancel returns to.
    if (running) {
        bringToFront();
        return Rejected;
    }
    const QPointer<RoomAdjustmentDlg2g> self(this);
    running = true;
    prepare();
    const int result = self ? exec() : static_cast<int>(Rejected);
    if (self)
        running = false;
    return result;
}

void RoomAdjustmentDlg2g::bringToFront()
{
    if (!isVisible())
        return;
    raise();
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal && modal != this)
        modal->raise();
    (modal ? modal : this)->activateWindow();
}

/// All that comes before the dialog shows. The dialog may be gone afterwards.
void RoomAdjustmentDlg2g::prepare()
{
    const QPointer<RoomAdjustmentDlg2g> self(this);
    tabs_ready = false;
    ui.tabWidget->setCurrentIndex(coarse_index);
    const bool usable = isTrackingAvailable() && isRoomcalAvailable();
    if (!self)
        return;
    if (!usable) {
        setControlsDefaultValues();
        enableDialog(false, true);
        return;
    }
    updateModel();
    if (self)
        prepareByLock();
    if (!self)
        return;
    setMinimumHeight(working_minimum_height);
    setMinimumWidth(working_minimum_width);
    start_tracking();
    if (self)
        tabs_ready = true;
}

void RoomAdjustmentDlg2g::prepareByLock()
{
    const QPointer<RoomAdjustmentDlg2g> self(this);
    config_locked = is_config_locked();
    if (config_locked)
        setWindowIcon(lock_icon);
    else
        setWindowIcon(parent_widget ? parent_widget->windowIcon() : QIcon());
    enableDialog(!config_locked, true);
    if (passes(*backend_versions, version_gate::extra_transformation))
        prepareTabs();
    else
        enableDialog(false, true);
    // A scaling outside its limits lets the fine tab ask for Apply while it fills its numbers.
    if (self && config_locked)
        ui.btn_apply->setEnabled(false);
}

void RoomAdjustmentDlg2g::prepareTabs()
{
    ui.btn_apply->setEnabled(false);
    fine_tab->reset_saved_pos();
    fine_tab->reset_saved_angles();
    getDataFromZtc(ra_data);
    copyRaData(ra_data_saved, ra_data);
    fine_tab->do_update();
    coarse_tab->do_update();
}

void RoomAdjustmentDlg2g::onDataChanged(bool changed) { ui.btn_apply->setEnabled(changed); }

void RoomAdjustmentDlg2g::ondo_btn_apply_enable(bool enable) { ui.btn_apply->setEnabled(enable); }

void RoomAdjustmentDlg2g::on_btn_apply_clicked()
{
    if (exchanging)
        return;
    const QPointer<RoomAdjustmentDlg2g> self(this);
    const bool was_open = isVisible();
    exchanging = true;
    fine_tab->updateGlobalData();
    stop_tracking();
    if (self)
        sendDataToZtc();
    if (self)
        updateModel();
    if (!self)
        return;
    exchanging = false;
    ui.btn_apply->setEnabled(false);
    if (!ok_pending && isVisible() == was_open)
        start_tracking();
}

void RoomAdjustmentDlg2g::on_btn_ok_clicked()
{
    if (exchanging)
        return;
    const QPointer<RoomAdjustmentDlg2g> self(this);
    const bool was_open = isVisible();
    ok_pending = true;
    on_btn_apply_clicked();
    if (!self)
        return;
    ok_pending = false;
    if (isVisible() == was_open)
        accept();
}

void RoomAdjustmentDlg2g::on_btn_cancel_clicked()
{
    if (exchanging)
        return;
    const QPointer<RoomAdjustmentDlg2g> self(this);
    const bool was_open = isVisible();
    exchanging = true;
    // A dialog that could not be used has nothing to take back.
    const bool leave = !ui.tabWidget->isEnabled() || takeBack();
    if (self && leave)
        stop_tracking();
    if (!self)
        return;
    exchanging = false;
    if (leave && isVisible() == was_open)
        reject();
}

/// Brings the controller back to the state at opening. False if the user would rather stay, and if
/// the dialog was closed or deleted meanwhile.
bool RoomAdjustmentDlg2g::takeBack()
{
    const QPointer<RoomAdjustmentDlg2g> self(this);
    const bool equal = fine_tab->controlValuesEqualsGlobalData();
    const bool changed = raDataChanged();
    if ((changed || !equal) && !mayDiscard())
        return false;
    // Asked again: the controller may have changed while the question stood.
    if (raDataChanged()) {
        copyRaData(ra_data, ra_data_saved);
        sendDataToZtc();
    }
    return self;
}

bool RoomAdjustmentDlg2g::mayDiscard()
{
    const QPointer<RoomAdjustmentDlg2g> self(this);
    const bool was_open = isVisible();
    // Not on the stack: whoever deletes this dialog deletes the box as well.
    const QPointer<QMessageBox> box(new QMessageBox(QMessageBox::Warning, tr("Room Adjustment"),
                                                    tr("Discard changes?"),
                                                    QMessageBox::Yes | QMessageBox::No, this));
    box->setDefaultButton(QMessageBox::No);
    const int answer = box->exec();
    delete box;
    return self && answer == QMessageBox::Yes && isVisible() == was_open;
}

void RoomAdjustmentDlg2g::on_tabWidget_currentChanged(int index)
{
    current_tab.fetchAndStoreOrdered(index);
    if (!tabs_ready || index != coarse_index)
        return;
    coarse_tab->update_enabled = false;
    coarse_tab->update_from_data();
    coarse_tab->update_enabled = true;
}

void RoomAdjustmentDlg2g::closeEvent(QCloseEvent*)
{
    // Unlike Cancel: no question, and what was applied stays.
    stop_tracking();
}

void RoomAdjustmentDlg2g::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        on_btn_cancel_clicked();
    else if (event->key() == Qt::Key_F5)
        ui.tabWidget->setCurrentIndex(ui.tabWidget->currentIndex() == fine_index ? coarse_index
                                                                                 : fine_index);
    else
        QDialog::keyPressEvent(event);
}

void RoomAdjustmentDlg2g::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // Some window systems send spontaneous events on top of Qt's own.
    if (subscribed)
        return;
    subscribed = true;
    for (const char* line_type : vocabulary::subscribed_lines)
        io_manager->subscribe_data(line_type, this);
}

void RoomAdjustmentDlg2g::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (!subscribed)
        return;
    subscribed = false;
    for (const char* line_type : vocabulary::subscribed_lines)
        io_manager->unsubscribe_data(line_type, this);
}

int RoomAdjustmentDlg2g::set_ascii_data(const char* line_type, const char* line)
{
    if (current_tab.fetchAndAddOrdered(0) != fine_index)
        return 0;
    return fine_tab->set_ascii_data(line_type, line);
}

void RoomAdjustmentDlg2g::set_mea_started() {}

void RoomAdjustmentDlg2g::set_mea_stopped() {}

void RoomAdjustmentDlg2g::getCoarseAngleValues(double& rx, double& ry, double& rz)
{
    coarse_tab->getAngleValues(rx, ry, rz);
}

void RoomAdjustmentDlg2g::setCooTransAngleValues(const double& rx, const double& ry,
                                                 const double& rz)
{
    fine_tab->setAngleValues(rx, ry, rz);
}

void RoomAdjustmentDlg2g::getCooTransAngleValues(double& rx, double& ry, double& rz)
{
    fine_tab->getAngleValues(rx, ry, rz);
}

void RoomAdjustmentDlg2g::FineAngles::get_angles(double& rx, double& ry, double& rz)
{
    dialog->getCooTransAngleValues(rx, ry, rz);
}

void RoomAdjustmentDlg2g::FineAngles::set_angles(double rx, double ry, double rz)
{
    dialog->setCooTransAngleValues(rx, ry, rz);
}

void RoomAdjustmentDlg2g::setControlsDefaultValues() { fine_tab->setControlsDefaultValues(); }

void RoomAdjustmentDlg2g::about_to_exit() { io_manager->remove_requester(this); }
