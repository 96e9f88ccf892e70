#include "matching/searchwindow.h"

#include "pairing/searchobserver.h"

SearchWindow::SearchWindow(QWidget* dialog)
    : QDialog(dialog, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
                          | Qt::WindowCloseButtonHint)
{
    ui.setupUi(this);
    setModal(true);
    setWindowTitle(dialog->windowTitle());
}

void SearchWindow::show_progress(const SearchProgress& progress)
{
    ui.label_fits->setText(QString::number(progress.fits));
    const double residual = progress.best_residual;
    ui.label_residual->setText(residual < 0.0 ? tr("none fits yet")
                                              : QString::number(residual, 'f', 2)
                                                    + QString::fromLatin1(" mm"));
}
