#include "matching/helpdialog.h"

#include "ui_helpdialog.h"

HelpDialog::HelpDialog(QWidget* parent)
    : QDialog(parent, Qt::WindowTitleHint | Qt::WindowSystemMenuHint)
{
    Ui_HelpDialog form;
    form.setupUi(this);
    form.gridLayout->setAlignment(form.label_5, Qt::AlignCenter);
    form.gridLayout->setAlignment(form.label_3, Qt::AlignCenter);
    form.gridLayout->setAlignment(form.label_7, Qt::AlignCenter);
}
