// The picture that stands for the host in title bars and task lists.
#ifndef HOST_HOSTICON_H
#define HOST_HOSTICON_H

#include <QIcon>

/// Three colored axes, drawn in the usual icon sizes. Needs a running QGuiApplication.
QIcon host_icon();

#endif
