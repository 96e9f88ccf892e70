// The font of all labels in the 3D view.
#ifndef SOURCEFILES_LABELFONT_H
#define SOURCEFILES_LABELFONT_H

#include <QFont>

inline QFont label_font()
{
    const int points = 10;
    const int weight = 75;
    return QFont("Times", points, weight);
}

#endif
