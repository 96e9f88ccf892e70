#include "host/options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

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
    if (options->controller_host.startsWith(QLatin1Char('[')))
        options->controller_host = options->controller_host.mid(1, colon - 2); // IPv6
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
        {"fresh", "Forget the places of windows and what was dismissed."},
        {"observer", "Watch only: modules offer nothing that changes the controller."},
        {"record", "Keep the data lines with their times.", file},
        {"overwrite", "With --record: an existing file may be lost."},
        {"replay", "Play a recording back in place of the controller's data.", file},
        {"demo", "Carry out a whole room adjustment unattended, check it and end."},
        {"screenshots", "With --demo: write pictures of the screen there.", "folder"},
        {"demo-limit", "With --demo: give up after this time.", "seconds",
         QString::number(default_demo_limit)},
    });
}

// Also true for two names of one file.
bool is_same_file(const QString& a, const QString& b)
{
    std::error_code none_of_them_there;
    return QFileInfo(a).absoluteFilePath() == QFileInfo(b).absoluteFilePath()
           || std::filesystem::equivalent(a.toStdString(), b.toStdString(), none_of_them_there);
}

/// What is wrong with the options together; empty if nothing.
QString conflict(const Options& options)
{
    if (options.demo_limit <= 0)
        return QStringLiteral("--demo-limit wants a number of seconds above 0");
    if (options.demo && (options.observer || !options.replay_file.isEmpty()))
        return QStringLiteral("--demo needs live data and a module that may change things");
    if (!options.record_file.isEmpty() && is_same_file(options.record_file, options.replay_file))
        return QStringLiteral("--record and --replay name the same file, which would be lost");
    if (options.demo && would_overwrite(options))
        return QStringLiteral("%1 exists; --overwrite lets it be lost").arg(options.record_file);
    return {};
}

} // namespace

bool read_options(const QStringList& arguments, Options* options, QString* error)
{
    QCommandLineParser parser;
    add_options(parser);
    const bool understood = parser.parse(arguments);
    options->help = parser.isSet("help");
    options->version = parser.isSet("version");
    options->fresh = parser.isSet("fresh");
    options->overwrite = parser.isSet("overwrite");
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
    if (!understood)
        *error = parser.errorText();
    else if (!parser.positionalArguments().isEmpty())
        *error =
            QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().first());
    else if (parser.isSet("controller") && !read_address(parser.value("controller"), options))
        *error = QStringLiteral("--controller wants HOST:PORT");
    else
        *error = conflict(*options);
    return error->isEmpty();
}

QString help_text()
{
    QCommandLineParser parser;
    add_options(parser);
    return parser.helpText();
}

bool would_overwrite(const Options& options)
{
    return !options.overwrite && QFileInfo::exists(options.record_file);
}
