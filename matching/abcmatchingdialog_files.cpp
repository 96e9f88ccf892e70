// Loading and saving the matching dialog's reference points.
#include "matching/abcmatchingdialog.h"

#include "matching/referencepointfile.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

#include <fstream>

namespace
{

/// Opens a file whose name is Latin-1 text, or failing that, in the file system's own encoding.
void open_input(std::ifstream& stream, const QString& file_name)
{
    stream.open(file_name.toLatin1().constData());
    if (stream.is_open())
        return;
    stream.clear();
    stream.open(QFile::encodeName(file_name).constData());
}

} // namespace

void AbcMatchingDialog::on_w_loadButton_clicked() { load(); }

void AbcMatchingDialog::load()
{
    const QString file_name =
        QFileDialog::getOpenFileName(this, tr("Open reference points file..."), QDir::homePath(),
                                     tr("Text files (*.txt);; All files (*)"));
    if (file_name.isEmpty())
        return;
    std::ifstream stream;
    open_input(stream, file_name);
    if (!stream.is_open())
        return;
    std::vector<bsVector> points;
    if (!read_reference_points(stream, points)) {
        QMessageBox::warning(this, tr("Error loading file"), tr("Unknown format !"),
                             QMessageBox::Ok);
        return;
    }
    replaceReferencePoints(points);
}

void AbcMatchingDialog::on_pushButton_save_clicked()
{
    const QTableWidget* table = ui.tableWidget_referencePoints;
    if (table->rowCount() == 0) {
        QMessageBox::critical(this, tr("Save"), tr("Nothing to save."), QMessageBox::Ok);
        return;
    }
    QString file_name = QFileDialog::getSaveFileName(this, tr("Save reference points"),
                                                     QDir::homePath(), tr("Text file (*.txt)"));
    if (file_name.isEmpty())
        return;
    addTxtExtension(file_name);
    QFile file(file_name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    for (int row = 0; row < table->rowCount(); ++row) {
        QString cells[3];
        for (int column = 0; column < 3; ++column)
            if (const QTableWidgetItem* item = table->item(row, column))
                cells[column] = item->text();
        file.write(reference_point_line(row + 1, cells[0], cells[1], cells[2]).toLatin1());
    }
    file.close();
}

void AbcMatchingDialog::addTxtExtension(QString& fileName) { add_txt_extension(fileName); }

bool AbcMatchingDialog::adjustNumStrTo2Digits(QString& text) { return repair_number(text); }
