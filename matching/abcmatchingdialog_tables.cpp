// The matching dialog's two tables, and which buttons their content allows.
#include "matching/abcmatchingdialog.h"

#include "matching/modalbox.h"
#include "matching/referencepointfile.h"
#include "platform/headersections.h"

#include <QPointer>
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
    table->verticalHeader()->setDefaultSectionSize(row_height);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
}

QString cell_text(double value) { return QString::number(value, 'f', 2); }

void set_row(QTableWidget* table, int row, const bsVector& point)
{
    const double values[columns] = {point.x, point.y, point.z};
    for (int column = 0; column < columns; ++column) {
        QTableWidgetItem* item = new QTableWidgetItem(cell_text(values[column]));
        item->setTextAlignment(Qt::AlignRight);
        table->setItem(row, column, item);
    }
}

/// Shows the new row and selects nothing.
void append_row(QTableWidget* table, const bsVector& point)
{
    const int row = table->rowCount();
    table->insertRow(row);
    set_row(table, row, point);
    table->scrollToBottom();
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
    QTableWidget* table = ui.tableWidget_referencePoints;
    const bool was_live = dialog_live;
    reference_points = points;
    dialog_live = false;
    table->clearContents();
    table->setRowCount(static_cast<int>(points.size()));
    for (std::size_t row = 0; row < points.size(); ++row)
        set_row(table, static_cast<int>(row), points[row]);
    dialog_live = was_live || !points.empty();
    enable_disable_pushButton_save();
    enableDisableRemoveRefPoint();
    checkTrafo();
}

void AbcMatchingDialog::on_pushButton_addRefPoint_clicked()
{
    if (ui.tableWidget_referencePoints->rowCount() >= reference_file_max_points) {
        show_box(this, QMessageBox::Warning, tr("Warning"),
                 tr("More than %1 points do not fit into the table.")
                     .arg(int(reference_file_max_points)));
        return;
    }
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
    const QPointer<AbcMatchingDialog> self(this);
    QTableWidget* table = ui.tableWidget_referencePoints;
    ++reference_table_reactions;
    takeCell(item);
    if (self)
        --reference_table_reactions;
    else
        table->deleteLater(); // left over by the destructor
}

/// Brings the cell into the form of a number and evaluates. This dialog may end in here.
void AbcMatchingDialog::takeCell(QTableWidgetItem* item)
{
    const QPointer<AbcMatchingDialog> self(this);
    const unsigned int evaluations_before = evaluations;
    const QString typed = item->text();
    QString text = typed;
    const bool is_number = adjustNumStrTo2Digits(text);
    // Emits the signal again if the text changes: a nested run then does the same once more.
    item->setText(text);
    if (self && !is_number)
        show_box(this, QMessageBox::Critical, tr("Error"), tr("'%1' is not a number!").arg(typed));
    if (!self)
        return;
    const std::vector<bsVector> points_before = reference_points;
    updateRefPointsVector();
    // The nested run may have evaluated these points already, which can take long.
    if (evaluations == evaluations_before || reference_points != points_before)
        checkTrafo();
}

bool AbcMatchingDialog::isEditing() const
{
    const QTableWidget* table = ui.tableWidget_referencePoints;
    return table->indexWidget(table->currentIndex()) != nullptr;
}

/// The text of an open cell editor counts as entered. This dialog may end in here.
void AbcMatchingDialog::finishEditing()
{
    const QPointer<AbcMatchingDialog> self(this);
    QTableWidget* table = ui.tableWidget_referencePoints;
    const QPointer<QWidget> editor = table->indexWidget(table->currentIndex());
    if (editor)
        QMetaObject::invokeMethod(table, "commitData", Q_ARG(QWidget*, editor));
    if (self && editor)
        QMetaObject::invokeMethod(
            table, "closeEditor", Q_ARG(QWidget*, editor),
            Q_ARG(QAbstractItemDelegate::EndEditHint, QAbstractItemDelegate::NoHint));
}

/// False on No, and after the end of this dialog.
bool AbcMatchingDialog::confirmRemoval(const QString& question)
{
    return show_box(this, QMessageBox::Warning, tr("Warning"), question,
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
        show_box(this, QMessageBox::Information, tr("Remove"), tr("Nothing selected."));
        return;
    }
    if (!confirmRemoval(tr("Remove row %1?").arg(row + 1)))
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
    if (row >= 0 && confirmRemoval(tr("Remove row %1?").arg(row + 1)))
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
    if (table->rowCount() == 0 || !confirmRemoval(tr("Remove all measured points?")))
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
