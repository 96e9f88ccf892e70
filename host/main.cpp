#include "host/demo/demo.h"
#include "host/options.h"
#include "host/session.h"
#include "host/translation.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

// Exit codes beside those of the demonstration.
constexpr int wrong_arguments = 2;
constexpr int cannot_start = 3;

// Qt's applications have an option of the same name, which they would take for themselves.
const char hidden_option[] = "--plugin";

// Takes the hidden option with its value out of the arguments and returns the two.
QStringList hide_from_qt(int* argc, char** argv)
{
    QStringList hidden;
    int kept = 0;
    for (int i = 0; i < *argc; ++i) {
        if (std::strcmp(argv[i], hidden_option) != 0 || i + 1 == *argc) {
            argv[kept++] = argv[i];
            continue;
        }
        hidden << QString::fromLatin1(argv[i]) << QString::fromLocal8Bit(argv[i + 1]);
        ++i;
    }
    *argc = kept;
    return hidden;
}

bool has_display(const QStringList& arguments)
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    return arguments.contains(QStringLiteral("-platform"))
           || arguments.contains(QStringLiteral("--platform"));
}

int complain(const QString& text, int code)
{
    std::fprintf(stderr, "room-adjustment-host: %s\n", qPrintable(text));
    return code;
}

constexpr int goes_on = -1;

/// What needs no display, and must not fail for want of one. Returns an exit code or `goes_on`.
int end_early(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    Options options;
    QString error;
    const bool valid = read_options(QCoreApplication::arguments(), &options, &error);
    if (options.help || options.version) {
        std::fputs(options.help ? qPrintable(help_text())
                                : "room-adjustment-host " HOST_VERSION "\n",
                   stdout);
        return EXIT_SUCCESS;
    }
    if (has_display(QCoreApplication::arguments()))
        return goes_on;
    return valid ? complain(QStringLiteral("there is no display; try xvfb-run, or -platform "
                                           "offscreen"),
                            cannot_start)
                 : complain(error, wrong_arguments);
}

bool may_overwrite(const QString& file)
{
    return QMessageBox::question(
               nullptr, QCoreApplication::translate("main", "Recording"),
               QCoreApplication::translate("main", "%1 exists. Shall it be overwritten?").arg(file))
           == QMessageBox::Yes;
}

int run(Options options)
{
    options.interactive = !options.demo;
    if (options.demo)
        Demo::prepare(&options);
    else if (would_overwrite(options) && !may_overwrite(options.record_file))
        return complain(
            QStringLiteral("%1 is kept, so there is nothing to record to").arg(options.record_file),
            cannot_start);
    Session session(options);
    if (!session.start())
        return complain(session.error_text(), cannot_start);
    if (!options.demo)
        return QApplication::exec();
    Demo demo(session, options);
    demo.start();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("room-adjustment-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HOST_VERSION));
    const int early_end = end_early(argc, argv);
    if (early_end != goes_on)
        return early_end;
    const QStringList hidden = hide_from_qt(&argc, argv);
    QApplication application(argc, argv);
    Options options;
    QString error;
    if (!read_options(QCoreApplication::arguments() + hidden, &options, &error))
        return complain(error, wrong_arguments);
    if (!load_translations(options.language, options.plugin))
        return complain(QStringLiteral("no texts in language %1").arg(options.language),
                        wrong_arguments);
    return run(options);
}
