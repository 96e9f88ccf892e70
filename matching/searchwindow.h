// The window that stands over the matching dialog during a long search for the order of points.
#ifndef MATCHING_SEARCHWINDOW_H
#define MATCHING_SEARCHWINDOW_H

#include "ui_searchwindow.h"

#include <QDialog>

struct SearchProgress;

/// Says how far the search is. Cancel, Escape and the window's own button hide it, which is all it
/// knows of the end of the search.
class SearchWindow : public QDialog
{
    Q_OBJECT

public:
    /// Modal over all windows of the program, with the title of `dialog`; not shown yet.
    explicit SearchWindow(QWidget* dialog);

    void show_progress(const SearchProgress& progress);

private:
    Ui_SearchWindow ui;
};

#endif
