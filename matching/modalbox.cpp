#include "matching/modalbox.h"

#include <QFileDialog>
#include <QPointer>

QMessageBox::StandardButton show_box(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                     const QString& text, QMessageBox::StandardButtons buttons,
                                     QMessageBox::StandardButton default_button)
{
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(default_button);
    const int pressed = box->exec();
    if (!box)
        return QMessageBox::NoButton;
    delete box;
    return static_cast<QMessageBox::StandardButton>(pressed);
}

QString choose_file(QFileDialog* box)
{
    const QPointer<QFileDialog> open = box;
    const bool chosen = open->exec() == QDialog::Accepted;
    if (!open)
        return QString();
    const QStringList files = open->selectedFiles();
    delete open;
    return chosen && !files.isEmpty() ? files.first() : QString();
}
