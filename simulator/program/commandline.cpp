#include "simulator/program/commandline.h"

#include "simulator/model/numbers.h"
#include "simulator/model/room.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <limits>

namespace simulator
{

namespace
{

constexpr int max_version_number = 9999;
constexpr int max_port = 65535;

const QCommandLineOption headless("headless", "No window; everything is driven over the port.");
const QCommandLineOption exit_with_parent("exit-with-parent",
                                          "End when standard input is closed, as it is when the "
                                          "program that started this one ends.");
const QCommandLineOption help({"h", "help"}, "Show this text.");
const QCommandLineOption cameras("cameras", "Number of cameras, 0 to 200.", "N", "4");
const QCommandLineOption tools("tools", "Number of Measurement Tools, 0 to 20.", "N", "2");
const QCommandLineOption backend("backend", "Backend version that is played.", "M.m.p", "1.20.0");
const QCommandLineOption version({"v", "version"}, "Say which program this is.");
const QCommandLineOption port("port", "Listen on this port; 0 lets the system choose.", "N", "0");
const QCommandLineOption
    points("points", "Where \"sim points\" saves the object's reference points.", "FILE");
const QCommandLineOption seed("seed", "Seed of the noise and of the object's pose.", "N", "1");
const QCommandLineOption coordinate_type("coordinate-type",
                                         "Type of the room calibration: normal, powerwall, "
                                         "powerwall_standing, mid_camera, none.",
                                         "TYPE", "normal");

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        "Plays an optical tracking controller with its room, for people without one.\n"
        "The first line on standard output says where it listens: listening 127.0.0.1:PORT");
    parser.addOptions({headless, port, cameras, tools, backend, seed, coordinate_type, points,
                       exit_with_parent, version, help});
}

void refuse(const QCommandLineParser& parser, const QCommandLineOption& option,
            const QString& needed, QString& problem)
{
    problem = QString("--%1 needs %2, not \"%3\"")
                  .arg(option.names().last(), needed, parser.value(option));
}

/// Takes the option's number into `target`, or notes the problem.
template <typename Number>
void read_number(const QCommandLineParser& parser, const QCommandLineOption& option, int highest,
                 Number& target, QString& problem)
{
    const auto number = parse_integer(parser.value(option).toLatin1(), 0, highest);
    if (number)
        target = Number(*number);
    else
        refuse(parser, option, "a number from 0 to " + QString::number(highest), problem);
}

void read_version(const QCommandLineParser& parser, Version& target, QString& problem)
{
    const QStringList words = parser.value(backend).split('.');
    int* const fields[] = {&target.major, &target.minor, &target.patch};
    bool good = words.size() == 3;
    for (int i = 0; good && i < 3; ++i) {
        const auto number = parse_integer(words[i].toLatin1(), 0, max_version_number);
        good = number.has_value();
        *fields[i] = number.value_or(0);
    }
    if (!good)
        refuse(parser, backend, "three numbers such as 1.20.0", problem);
}

/// A name with a line end would not fit into the one line of a reply.
void read_points_file(const QCommandLineParser& parser, QString& target, QString& problem)
{
    const QString name = parser.value(points);
    if (parser.isSet(points) && (name.isEmpty() || name.contains('\n')))
        refuse(parser, points, "a file name in one line", problem);
    else if (!name.isEmpty())
        target = QFileInfo(name).absoluteFilePath();
}

void read_coordinate_type(const QCommandLineParser& parser, QByteArray& target, QString& problem)
{
    target = parser.value(coordinate_type).toLatin1();
    if (!is_coordinate_type(target))
        refuse(parser, coordinate_type,
               "one of normal, powerwall, powerwall_standing, mid_camera, none", problem);
}

} // namespace

CommandLine parse_command_line(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(parser);
    const bool parsed = parser.parse(arguments);
    CommandLine line;
    line.headless = parser.isSet(headless);
    line.exit_with_parent = parser.isSet(exit_with_parent);
    line.version = parser.isSet(version);
    line.help = parser.isSet(help);
    read_points_file(parser, line.points_file, line.problem);
    read_number(parser, port, max_port, line.port, line.problem);
    read_number(parser, cameras, Setup::max_cameras, line.setup.cameras, line.problem);
    read_number(parser, tools, Setup::max_tools, line.setup.tools, line.problem);
    read_number(parser, seed, std::numeric_limits<int>::max(), line.setup.seed, line.problem);
    read_version(parser, line.setup.version, line.problem);
    read_coordinate_type(parser, line.setup.coordinate_type, line.problem);
    if (!parser.positionalArguments().isEmpty())
        line.problem = "unexpected argument " + parser.positionalArguments().first();
    if (!parsed)
        line.problem = parser.errorText();
    return line;
}

QString help_text()
{
    QCommandLineParser parser;
    describe(parser);
    return parser.helpText();
}

} // namespace simulator
