// The matching dialog's two tables, and which buttons their content allows.
#include "matching/abcmatchingdialog.h"

#include "platform/headersections.h"

#include <QMessageBox>
#include <QStringList>

namespace
{

const int row_height = 22;
const int columns = 3;
const int least_last_column = 60; // pixels; a stretched column never gets below its default

void setup_table(QTableWidget* table, const QStringList& headers)
{
    table->setColumnCount(columns);
    table->setRowCount(0);
    table->setHorizontalHeaderLabels(headers);
    set_sections_clickable(table->horizontalHeader(), false);
    table->horizontalHeader()->setDefaultSectionSize(least_last_column);
    table->horizontalHeader()->setStretchLastSection(true);
    // Otherwise a large font makes the rows higher.
    table->verticalHeader()->setMinimumSectionSize(row_height);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
}

QString cell_text(double value) { return QString::number(value, 'f', 2); }

/// Also fills a row that lost its cells.
void set_row(QTableWidget* table, int row, const bsVector& point)
{
    const double values[columns] = {point.x, point.y, point.z};
    for (int column = 0; column < columns; ++column) {
        if (!table->item(row, column)) {
            table->setItem(row, column, new QTableWidgetItem);
            table->item(row, column)->setTextAlignment(Qt::AlignRight);
        }
        table->item(row, column)->setText(cell_text(values[column]));
    }
}

void append_row(QTableWidget* table, const bsVector& point)
{
    const int row = table->rowCount();
    table->insertRow(row);
    table->setRowHeight(row, row_height);
    set_row(table, row, point);
}

/// Reads a row of cells; false unless all three are numbers.
bool read_row(const QTableWidget* table, int row, bsVector& point)
{
    for (int column = 0; column < columns; ++column) {
        const QTableWidgetItem* item = table->item(row, column);
        bool is_number = false;
        // Not QString::toDouble, which on Qt 4 reads by the desktop's locale first.
        point[column] = item ? item->text().toLatin1().toDouble(&is_number) : 0.0;
        if (!is_number)
            return false;
    }
    return true;
}

bool has_current_row(const QTableWidget* table)
{
    return table->rowCount() > 0 && table->currentRow() >= 0;
}

} // namespace

void AbcMatchingDialog::setup_tableWidget_referencePoints()
{
    setup_table(ui.tableWidget_referencePoints, QStringList()
                                                    << tr("x[mm]") << tr("y[mm]") << tr("z[mm]"));
}

void AbcMatchingDialog::setup_tableWidget_measuredPoints()
{
    QTableWidget* table = ui.tableWidget_measuredPoints;
    setup_table(table, QStringList() << tr("x[mm]") << tr("y[mm]") << tr("z[mm]"));
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void AbcMatchingDialog::addPoint_tableWidget_referencePoints(const bsVector& point)
{
    // Keeps the reaction to changed cells out of the filling.
    dialog_live = false;
    append_row(ui.tableWidget_referencePoints, point);
    enable_disable_pushButton_save();
    enableDisableRemoveRefPoint();
    dialog_live = true;
}

void AbcMatchingDialog::addPoint_tableWidget_measuredPoints(const bsVector& point)
{
    append_row(ui.tableWidget_measuredPoints, point);
}

void AbcMatchingDialog::setPoint_tableWidget_measuredPoints(const bsVector& point)
{
    set_row(ui.tableWidget_measuredPoints, ui.tableWidget_measuredPoints->currentRow(), point);
}

void AbcMatchingDialog::updateRefPointsVector()
{
    const QTableWidget* table = ui.tableWidget_referencePoints;
    reference_points.clear();
    for (int row = 0; row < table->rowCount(); ++row) {
        bsVector point;
        if (read_row(table, row, point))
            reference_points.push_back(point);
    }
}

void AbcMatchingDialog::replaceReferencePoints(const std::vector<bsVector>& points)
{
    reference_points = points;
    ui.tableWidget_referencePoints->clearContents();
    ui.tableWidget_referencePoints->setRowCount(0);
    for (const bsVector& point : points)
        addPoint_tableWidget_referencePoints(point);
    enable_disable_pushButton_save();
    enableDisableRemoveRefPoint();
    checkTrafo();
}

void AbcMatchingDialog::on_pushButton_addRefPoint_clicked()
{
    addPoint_tableWidget_referencePoints(bsVector(0.0, 0.0, 0.0));
    updateRefPointsVector();
    checkTrafo();
}

void AbcMatchingDialog::on_tableWidget_referencePoints_clicked(QModelIndex)
{
    enableDisableRemoveRefPoint();
}

void AbcMatchingDialog::on_tableWidget_referencePoints_itemChanged(QTableWidgetItem* item)
{
    if (!dialog_live)
        return;
    const QString typed = item->text();
    QString text = typed;
    const bool is_number = adjustNumStrTo2Digits(text);
    // Emits the signal again if the text changes: a nested run then does the same once more.
    item->setText(text);
    if (!is_number)
        QMessageBox::critical(this, tr("Error"), tr("'%1' is not a number!").arg(typed),
                              QMessageBox::Ok);
    updateRefPointsVector();
    checkTrafo();
}

bool AbcMatchingDialog::confirmRemoval(int row)
{
    return QMessageBox::warning(this, tr("Warning"), tr("Remove row %1?").arg(row + 1),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
           == QMessageBox::Yes;
}

void AbcMatchingDialog::on_pushButton_removeRefPoint_clicked()
{
    QTableWidget* table = ui.tableWidget_referencePoints;
    if (table->rowCount() == 0)
        return;
    const int row = table->currentRow();
    if (row < 0) {
        QMessageBox::information(this, tr("Remove"), tr("Nothing selected."), QMessageBox::Ok);
        return;
    }
    if (!confirmRemoval(row))
        return;
    table->removeRow(row);
    enable_disable_pushButton_save();
    ui.pushButton_removeRefPoint->setEnabled(false);
    updateRefPointsVector();
    checkTrafo();
}

void AbcMatchingDialog::on_tableWidget_measuredPoints_itemSelectionChanged()
{
    enableDisableRemoveMeaPoint();
}

void AbcMatchingDialog::on_w_removeButton_clicked()
{
    const int row = ui.tableWidget_measuredPoints->currentRow();
    if (row >= 0 && confirmRemoval(row))
        remove();
}

void AbcMatchingDialog::remove()
{
    const int row = ui.tableWidget_measuredPoints->currentRow();
    if (row < 0)
        return;
    ui.tableWidget_measuredPoints->removeRow(row);
    if (row < static_cast<int>(measured_points.size()))
        measured_points.erase(measured_points.begin() + row);
    enableDisableRemoveMeaPoint();
    enableDisableClearMeaPoints();
    checkTrafo();
}

void AbcMatchingDialog::on_pushButton_clearMeaPoints_clicked()
{
    QTableWidget* table = ui.tableWidget_measuredPoints;
    if (table->rowCount() == 0
        || QMessageBox::warning(this, tr("Warning"), tr("Remove all measured points?"),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
               != QMessageBox::Yes)
        return;
    table->clearContents();
    table->setRowCount(0);
    measured_points.clear();
    enableDisableRemoveMeaPoint();
    enableDisableClearMeaPoints();
    checkTrafo();
}

void AbcMatchingDialog::clearPoints()
{
    ui.tableWidget_referencePoints->clear();
    ui.tableWidget_measuredPoints->clear();
    reference_points.clear();
    measured_points.clear();
    transformed_points.clear();
    checkTrafo();
}

void AbcMatchingDialog::enable_disable_pushButton_save()
{
    ui.pushButton_save->setEnabled(ui.tableWidget_referencePoints->rowCount() > 0);
}

void AbcMatchingDialog::enableDisableRemoveRefPoint()
{
    ui.pushButton_removeRefPoint->setEnabled(has_current_row(ui.tableWidget_referencePoints));
}

void AbcMatchingDialog::enableDisableRemoveMeaPoint()
{
    const bool enable = has_current_row(ui.tableWidget_measuredPoints);
    ui.w_removeButton->setEnabled(enable);
    ui.w_replaceCheckBox->setEnabled(enable);
    if (!enable)
        ui.w_replaceCheckBox->setChecked(false);
}

void AbcMatchingDialog::enableDisableClearMeaPoints()
{
    ui.pushButton_clearMeaPoints->setEnabled(ui.tableWidget_measuredPoints->rowCount() > 0);
}

void AbcMatchingDialog::enableApply(bool enable) { ui.w_applyButton->setEnabled(enable); }
