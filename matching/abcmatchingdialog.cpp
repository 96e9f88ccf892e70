// The matching dialog's life: construction, opening with its tool list, closing, accessors.
#include "matching/abcmatchingdialog.h"

#include "controller/queries.h"
#include "controller/vocabulary.h"
#include "matching/matchinghelp.h"
#include "tracking/zetrakparser.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPixmap>
#include <QPointer>
#include <QResizeEvent>

using vocabulary::show_error;

namespace
{

const int status_interval_ms = 200;

void spread_columns(QTableWidget* table)
{
    // The last column stretches over what is left.
    const int columns = table->columnCount();
    const int width = table->width() / columns - 1;
    for (int column = 0; column < columns - 1; ++column)
        table->setColumnWidth(column, width);
}

} // namespace

AbcMatchingDialog::AbcMatchingDialog(IOManager* io_manager, BackendVersions* backend_versions,
                                     QWidget* parent)
    : QDialog(parent), io_manager(io_manager), backend_versions(backend_versions),
      parent_widget(parent), meatool_count(0), meatool_available(false),
      measurement_duration(default_duration), meatool_id(-1), meatool_tracked(false),
      line_buffer(nullptr), parser(nullptr), dialog_live(false), max_deviation(default_deviation),
      elapsed_time(0.0), meatool_combo_index(0), samples_lost(false), start_pending(false),
      start_running(false), reference_table_reactions(0), evaluations(0), search(nullptr)
{
    for (std::atomic<double>& component : mean_position)
        component = 0.0;
    ui.setupUi(this);
    line_buffer = new char[line_buffer_size];
    parser = new ZetrakParser;
    status_timer.setInterval(status_interval_ms);

    connect(&status_timer, SIGNAL(timeout()), this, SLOT(showTrackingStatus()));
    // Whatever thread the line came from: the slot decides what is queued.
    connect(this, SIGNAL(startTipMea()), this, SLOT(requestStart()), Qt::DirectConnection);
    connect(this, SIGNAL(do_updateProgressbar(const double&)), this,
            SLOT(updateProgressbar(const double&)));
    connect(this, SIGNAL(do_addMeasuredPoint()), this, SLOT(addMeasuredPoint()));
    connect(this, SIGNAL(do_setTrafoText(const QString&)), this,
            SLOT(setTrafoText(const QString&)));
    setup_tableWidget_referencePoints();
    setup_tableWidget_measuredPoints();
    enableApply(false);
}

AbcMatchingDialog::~AbcMatchingDialog()
{
    // Ended by a loop within the reaction to a changed cell: Qt is not done with the table then.
    if (reference_table_reactions > 0)
        ui.tableWidget_referencePoints->setParent(nullptr);
    // Likewise by an evaluation that the check box may have started.
    if (search)
        ui.w_orderCheckBox->setParent(nullptr);
    delete parser;
    delete[] line_buffer;
}

int AbcMatchingDialog::update_and_exec()
{
    const QPointer<AbcMatchingDialog> self(this);
    meatool_available = false;
    const bool available = isMeaToolAvailable();
    if (!self)
        return Rejected;
    meatool_available = available;
    showAvailability();
    update_comboBox_meatool();
    if (!self)
        return Rejected;
    enable_disable_pushButton_save();
    enableDisableRemoveRefPoint();
    enableDisableRemoveMeaPoint();
    enableDisableClearMeaPoints();
    dialog_live = true;
    return exec();
}

void AbcMatchingDialog::showAvailability()
{
    ui.w_measureButton->setEnabled(meatool_available);
    ui.progressBar->setEnabled(meatool_available);
    if (meatool_available) {
        ui.label_error->hide();
        ui.label_error->setText(QString());
        status_timer.start();
    } else {
        ui.progressBar->setValue(0);
        ui.label_error->setText(tr("<b><font color=red>No Measurement Tool available!</font></b>"));
        ui.label_error->show();
    }
}

/// Available means: at least one tool with a calibrated tip.
bool AbcMatchingDialog::isMeaToolAvailable()
{
    int count = 0;
    meatool_count = 0;
    if (!query_count(io_manager, &count, vocabulary::number_of_tools)) {
        show_error(io_manager, vocabulary::cannot_get_tool_count);
        return false;
    }
    meatool_count = count;
    // A message of the host may run an event loop, in which this dialog ends.
    const QPointer<AbcMatchingDialog> self(this);
    bool calibrated = false;
    for (int tool = 1; self && !calibrated && tool <= count; ++tool)
        calibrated = isTipCalibrated(tool);
    return calibrated;
}

/// A failed query has its message and counts as no.
bool AbcMatchingDialog::isTipCalibrated(int tool)
{
    bool calibrated = false;
    if (io_manager->get_param_bool(&calibrated, vocabulary::tip_calibrated, tool) == 0)
        return calibrated;
    show_error(io_manager, vocabulary::cannot_get_tip_calibration);
    return false;
}

void AbcMatchingDialog::update_comboBox_meatool()
{
    ui.comboBox_meatool->clear();
    ui.label_meaTool->setEnabled(meatool_available);
    ui.comboBox_meatool->setEnabled(meatool_available);
    if (!meatool_available)
        return;
    const QPointer<AbcMatchingDialog> self(this);
    for (int tool = 1; tool <= meatool_count; ++tool) {
        const bool calibrated = isTipCalibrated(tool);
        if (!self)
            return;
        if (calibrated)
            ui.comboBox_meatool->addItem(QString::fromLatin1("M%1").arg(tool), tool);
    }
    const int items = ui.comboBox_meatool->count();
    if (items == 0)
        return;
    const int index =
        meatool_combo_index >= 0 && meatool_combo_index < items ? meatool_combo_index : 0;
    ui.comboBox_meatool->setCurrentIndex(index);
    meatool_id = ui.comboBox_meatool->itemData(index).toInt();
}

void AbcMatchingDialog::on_comboBox_meatool_currentIndexChanged(int index)
{
    if (!dialog_live)
        return;
    bool is_number = false;
    const int tool = ui.comboBox_meatool->itemData(index).toInt(&is_number);
    meatool_id = is_number ? tool : -1;
    meatool_combo_index = index;
}

void AbcMatchingDialog::showTrackingStatus()
{
    const bool tracked = meatool_tracked;
    const bool selected = ui.comboBox_meatool->currentIndex() >= 0;
    ui.w_measureButton->setEnabled(selected && tracked);
    const char* const image = !selected ? ":/grey.png" : tracked ? ":/green.png" : ":/red.png";
    ui.label_trackedIcon->setPixmap(QPixmap(QString::fromLatin1(image)));
}

void AbcMatchingDialog::on_pushButton_help_clicked()
{
    MatchingHelp help(nullptr);
    connect(this, SIGNAL(destroyed()), &help, SLOT(reject()));
    help.exec();
}

void AbcMatchingDialog::on_w_closeButton_clicked() { close(); }

void AbcMatchingDialog::on_w_applyButton_clicked() { apply(); }

void AbcMatchingDialog::apply()
{
    emit applyTrafoRequest(transformation);
    close();
}

void AbcMatchingDialog::onRPSelected(int) { emit updateRequest(); }

void AbcMatchingDialog::keyPressEvent(QKeyEvent* event)
{
    const bool is_return = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        close();
    else if (!is_return || !isEditing()) // there it only ends the editing
        QDialog::keyPressEvent(event);
}

void AbcMatchingDialog::closeEvent(QCloseEvent*)
{
    const QPointer<AbcMatchingDialog> self(this);
    finishEditing();
    if (!self)
        return;
    if (status_timer.isActive())
        status_timer.stop();
    dialog_live = false;
}

void AbcMatchingDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    spread_columns(ui.tableWidget_referencePoints);
    spread_columns(ui.tableWidget_measuredPoints);
}

void AbcMatchingDialog::enableDialog(bool enable)
{
    ui.tableWidget_measuredPoints->setEnabled(enable);
    ui.w_replaceCheckBox->setEnabled(enable);
    ui.w_removeButton->setEnabled(enable);
}

unsigned int AbcMatchingDialog::getRPCount() const { return reference_points.size(); }

unsigned int AbcMatchingDialog::getMPCount() const { return measured_points.size(); }

unsigned int AbcMatchingDialog::getTPCount() const { return transformed_points.size(); }

const bsVector& AbcMatchingDialog::getRP(unsigned int index) const
{
    return reference_points.at(index);
}

const bsVector& AbcMatchingDialog::getMP(unsigned int index) const
{
    return measured_points.at(index);
}

const bsVector& AbcMatchingDialog::getTP(unsigned int index) const
{
    return transformed_points.at(index);
}

bool AbcMatchingDialog::isRPSelected(int index) const
{
    return ui.tableWidget_referencePoints->currentRow() == index;
}

bool AbcMatchingDialog::isMPSelected(int index) const
{
    return ui.tableWidget_measuredPoints->currentRow() == index;
}
