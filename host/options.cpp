#include "host/options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

namespace
{

constexpr int default_demo_limit = 180; // s

QString beside_program(const QString& path)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1Char('/') + path);
}

// "HOST:PORT"; the host may itself hold colons.
bool read_address(const QString& text, Options* options)
{
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    bool valid = false;
    options->controller_port = text.mid(colon + 1).toUShort(&valid);
    options->controller_host = text.left(colon);
    return valid && colon > 0 && options->controller_port != 0;
}

void add_options(QCommandLineParser& parser)
{
    const QString file = QStringLiteral("file");
    parser.setApplicationDescription(
        QStringLiteral("Front-end for a tracking controller. Without --controller it starts a "
                       "tracking simulator of its own."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {"plugin", "Module to load.", file, beside_program("../plugins/libroomadjustment.so")},
        {"controller", "Use the controller that listens there.", "host:port"},
        {"simulator", "Simulator to start.", file, beside_program("tracking-simulator")},
        {"simulator-option", "Pass this on to the simulator; may be given repeatedly.", "option"},
        {"language", "Show texts in this language: en, de or ja.", "code"},
        {"observer", "Watch only: modules offer nothing that changes the controller."},
        {"record", "Keep the data lines with their times.", file},
        {"replay", "Play a recording back in place of the controller's data.", file},
        {"demo", "Carry out a whole room adjustment unattended, check it and end."},
        {"screenshots", "With --demo: write pictures of the screen there.", "folder"},
        {"demo-limit", "With --demo: give up after this time.", "seconds",
         QString::number(default_demo_limit)},
    });
}

} // namespace

bool read_options(const QStringList& arguments, Options* options, QString* error)
{
    QCommandLineParser parser;
    add_options(parser);
    parser.process(arguments);
    options->plugin = parser.value("plugin");
    options->simulator = parser.value("simulator");
    options->simulator_options = parser.values("simulator-option");
    options->language = parser.value("language");
    options->observer = parser.isSet("observer");
    options->record_file = parser.value("record");
    options->replay_file = parser.value("replay");
    options->demo = parser.isSet("demo");
    options->screenshot_folder = parser.value("screenshots");
    options->demo_limit = parser.value("demo-limit").toInt();
    if (!parser.positionalArguments().isEmpty())
        *error =
            QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().first());
    else if (parser.isSet("controller") && !read_address(parser.value("controller"), options))
        *error = QStringLiteral("--controller wants HOST:PORT");
    else if (options->demo_limit <= 0)
        *error = QStringLiteral("--demo-limit wants a number of seconds above 0");
    else if (options->demo && (options->observer || !options->replay_file.isEmpty()))
        *error = QStringLiteral("--demo needs live data and a module that may change things");
    return error->isEmpty();
}
