#include "host/demo/demo.h"
#include "host/options.h"
#include "host/session.h"

#include <QApplication>

#include <cstdio>

namespace {

// Exit codes beside those of the demonstration.
constexpr int wrong_arguments = 2;
constexpr int cannot_start = 3;

int complain(const QString& text, int code)
{
    std::fprintf(stderr, "room-adjustment-host: %s\n", qPrintable(text));
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("room-adjustment-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HOST_VERSION));
    Options options;
    QString error;
    if (!read_options(QCoreApplication::arguments(), &options, &error))
        return complain(error, wrong_arguments);
    if (options.demo)
        Demo::prepare(&options);
    Session session(options);
    if (!session.start())
        return complain(session.errorText(), cannot_start);
    if (!options.demo)
        return QApplication::exec();
    Demo demo(session, options);
    demo.start();
    return QApplication::exec();
}
