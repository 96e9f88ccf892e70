// Help window of the 3D view: the mouse gestures that move it.
#ifndef MATCHING_HELPDIALOG_H
#define MATCHING_HELPDIALOG_H

#include <QDialog>

class HelpDialog : public QDialog
{
    Q_OBJECT

public:
    explicit HelpDialog(QWidget* parent = nullptr);
};

#endif
