// The one property of table headers whose name differs between the Qt series.
#ifndef PLATFORM_HEADERSECTIONS_H
#define PLATFORM_HEADERSECTIONS_H

#include <QHeaderView>

inline void set_sections_clickable(QHeaderView* header, bool clickable)
{
#if QT_VERSION >= 0x050000
    header->setSectionsClickable(clickable);
#else
    header->setClickable(clickable);
#endif
}

#endif
