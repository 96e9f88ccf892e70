#include "tests/support/fatal_logger.h"

#include <QtCore/QString>
#include <QtCore/QtGlobal>

#include <atomic>
#include <cstdio>
#include <cstdlib>

#ifdef __SANITIZE_ADDRESS__
void keep_libraries();
#endif

namespace
{

const char* expected_text = nullptr;
std::atomic<int> expected_count(0);
QtMessageHandler previous_handler = nullptr;

// What the platform itself may say on a machine without a real display or session.
const char* const platform_noise[] = {
    "XDG_RUNTIME_DIR",
    "propagateSizeHints",
    // Between a window that comes or goes and a server that other programs use as well.
    "QXcbConnection: XCB error",
    "setNetWmStateOnUnmappedWindow",
};

bool is_platform_noise(const QString& message)
{
    for (const char* noise : platform_noise)
        if (message.contains(QLatin1String(noise)))
            return true;
    return false;
}

void handle_message(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        if (expected_text && message.contains(QLatin1String(expected_text))) {
            ++expected_count;
            return;
        }
        if (is_platform_noise(message))
            return;
        std::fprintf(stderr, "unexpected warning: %s\n", qPrintable(message));
        std::abort();
    }
    if (previous_handler)
        previous_handler(type, context, message);
}

} // namespace

void install_fatal_logger()
{
    static bool installed = false;
    if (installed)
        return;
    installed = true;
#ifdef __SANITIZE_ADDRESS__
    keep_libraries();
#endif
    previous_handler = qInstallMessageHandler(handle_message);
}

ExpectedWarning::ExpectedWarning(const char* text)
{
    expected_text = text;
    expected_count = 0;
}

ExpectedWarning::~ExpectedWarning() { expected_text = nullptr; }

int ExpectedWarning::count() const { return expected_count; }
