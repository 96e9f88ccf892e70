// Help window of the matching dialog: how to adjust the room to reference points.
#ifndef MATCHING_MATCHINGHELP_H
#define MATCHING_MATCHINGHELP_H

#include <QDialog>

class MatchingHelp : public QDialog
{
    Q_OBJECT

public:
    explicit MatchingHelp(QWidget* parent = nullptr);

public slots:
    void on_pushButton_exit_clicked();
};

#endif
