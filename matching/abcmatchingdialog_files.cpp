// Loading and saving the matching dialog's reference points.
#include "matching/abcmatchingdialog.h"

#include "matching/filesafety.h"
#include "matching/modalbox.h"
#include "matching/referencepointfile.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include <fstream>

namespace
{

/// A path is Latin-1 text, or failing that, in the file system's own encoding.
QByteArray existing_path(const QString& file_name)
{
    const QByteArray latin1 = file_name.toLatin1();
    return kind_of_file(latin1) != file_missing ? latin1 : QFile::encodeName(file_name);
}

QByteArray table_text(const QTableWidget* table)
{
    QByteArray text;
    for (int row = 0; row < table->rowCount(); ++row) {
        QString cells[3];
        for (int column = 0; column < 3; ++column)
            if (const QTableWidgetItem* item = table->item(row, column))
                cells[column] = item->text();
        text += reference_point_line(row + 1, cells[0], cells[1], cells[2]).toLatin1();
    }
    return text;
}

} // namespace

void AbcMatchingDialog::on_w_loadButton_clicked() { load(); }

void AbcMatchingDialog::load()
{
    QFileDialog* box = new QFileDialog(this, tr("Open reference points file..."), QDir::homePath(),
                                       tr("Text files (*.txt);; All files (*)"));
    box->setFileMode(QFileDialog::ExistingFile);
    const QString file_name = choose_file(box);
    if (file_name.isEmpty())
        return;
    const QString failure = loadFile(existing_path(file_name));
    if (!failure.isEmpty())
        show_box(this, QMessageBox::Warning, tr("Error loading file"), failure);
}

/// Takes over the file's points; otherwise returns what to tell the user. A file that cannot be
/// opened is passed over without a word.
QString AbcMatchingDialog::loadFile(const QByteArray& path)
{
    if (kind_of_file(path) == file_special)
        return tr("It is not a regular file.");
    std::ifstream stream(path.constData());
    if (!stream.is_open())
        return QString();
    std::vector<bsVector> points;
    ReferenceFileSource source;
    if (read_reference_points(stream, points, &source)) {
        replaceReferencePoints(points);
        return QString();
    }
    const bool too_many = source.points.size() > reference_file_max_points;
    return too_many ? tr("More than %1 points do not fit into the table.")
                          .arg(int(reference_file_max_points))
                    : tr("Unknown format !");
}

void AbcMatchingDialog::on_pushButton_save_clicked()
{
    if (ui.tableWidget_referencePoints->rowCount() == 0) {
        show_box(this, QMessageBox::Critical, tr("Save"), tr("Nothing to save."));
        return;
    }
    const QPointer<AbcMatchingDialog> self(this);
    finishEditing();
    if (!self)
        return;
    QFileDialog* box = new QFileDialog(this, tr("Save reference points"), QDir::homePath(),
                                       tr("Text file (*.txt)"));
    box->setAcceptMode(QFileDialog::AcceptSave);
    // Asked here instead, about the name with its extension.
    box->setOption(QFileDialog::DontConfirmOverwrite);
    QString file_name = choose_file(box);
    if (file_name.isEmpty())
        return;
    addTxtExtension(file_name);
    if (!confirmOverwriting(file_name))
        return;
    const QString failure = save_file(file_name, table_text(ui.tableWidget_referencePoints));
    if (!failure.isEmpty())
        show_box(this, QMessageBox::Critical, tr("Save"),
                 tr("The file '%1' could not be written:\n%2").arg(file_name, failure));
}

/// False on No, and after the end of this dialog.
bool AbcMatchingDialog::confirmOverwriting(const QString& file_name)
{
    return !QFile::exists(file_name)
           || show_box(this, QMessageBox::Warning, tr("Save"),
                       tr("%1 already exists.\nDo you want to replace it?")
                           .arg(QFileInfo(file_name).fileName()),
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
                  == QMessageBox::Yes;
}

void AbcMatchingDialog::addTxtExtension(QString& fileName) { add_txt_extension(fileName); }

bool AbcMatchingDialog::adjustNumStrTo2Digits(QString& text) { return repair_number(text); }
