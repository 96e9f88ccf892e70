#include "host/demo/demo.h"
#include "host/options.h"
#include "host/session.h"
#include "host/translation.h"

#include <QApplication>

#include <cstdio>
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

int complain(const QString& text, int code)
{
    std::fprintf(stderr, "room-adjustment-host: %s\n", qPrintable(text));
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    const QStringList hidden = hide_from_qt(&argc, argv);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("room-adjustment-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HOST_VERSION));
    Options options;
    QString error;
    if (!read_options(QCoreApplication::arguments() + hidden, &options, &error))
        return complain(error, wrong_arguments);
    if (!load_translations(options.language, options.plugin))
        return complain(QStringLiteral("no texts in language %1").arg(options.language),
                        wrong_arguments);
    if (options.demo)
        Demo::prepare(&options);
    Session session(options);
    if (!session.start())
        return complain(session.error_text(), cannot_start);
    if (!options.demo)
        return QApplication::exec();
    Demo demo(session, options);
    demo.start();
    return QApplication::exec();
}
