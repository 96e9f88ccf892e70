#include "matching/matchinghelp.h"

#include "ui_matchinghelp.h"

namespace
{

const int initial_width = 900; // pixels; keeps the window lower than a 768 pixel screen

} // namespace

MatchingHelp::MatchingHelp(QWidget* parent) : QDialog(parent)
{
    Ui_MatchingHelpClass form;
    form.setupUi(this);
    // By itself a window opens at no more than two thirds of the screen, which would cut texts.
    resize(initial_width, qMax(minimumHeight(), layout()->totalHeightForWidth(initial_width)));
}

void MatchingHelp::on_pushButton_exit_clicked() { close(); }
