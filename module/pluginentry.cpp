// The plug-in's entry points beside the one that Qt 5's moc makes from the module's metadata.
#include "module/roomadjustmentmodule.h"

#include <QtPlugin>

#if QT_VERSION < 0x050000

Q_EXPORT_PLUGIN2(roomadjustment, RoomAdjustmentModule2g)

#else

#ifdef QT_NO_DEBUG
#define ROOM_ADJUSTMENT_DEBUG_TEXT "false"
#else
#define ROOM_ADJUSTMENT_DEBUG_TEXT "true"
#endif

/// Qt 5 itself no longer asks; tools that list plug-ins of both series do.
extern "C" Q_DECL_EXPORT const char* qt_plugin_query_verification_data()
{
    static const QByteArray text = QByteArray("pattern=QT_PLUGIN_VERIFICATION_DATA\n"
                                              "version=" QT_VERSION_STR "\n"
                                              "debug=" ROOM_ADJUSTMENT_DEBUG_TEXT "\n"
                                              "buildkey=")
                                   + QSysInfo::buildAbi().toLatin1();
    return text.constData();
}

#endif
