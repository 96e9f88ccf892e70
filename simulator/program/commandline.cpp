#include "simulator/program/commandline.h"

#include "simulator/model/numbers.h"
#include "simulator/model/room.h"

#include <QCommandLineParser>
#include <limits>

namespace simulator
{

namespace
{

constexpr int max_version_number = 9999;

const QCommandLineOption headless("headless", "No window; everything is driven over the port.");
const QCommandLineOption exit_with_parent("exit-with-parent",
                                          "End when standard input is closed, as it is when the "
                                          "program that started this one ends.");
const QCommandLineOption help({"h", "help"}, "Show this text.");
const QCommandLineOption cameras("cameras", "Number of cameras, 0 to 200.", "N", "4");
const QCommandLineOption tools("tools", "Number of Measurement Tools, 0 to 20.", "N", "2");
const QCommandLineOption version("version", "Backend version that is played.", "M.m.p", "1.20.0");
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
    parser.addOptions(
        {headless, cameras, tools, version, seed, coordinate_type, exit_with_parent, help});
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
        problem =
            "--" + option.names().first() + " needs a number from 0 to " + QString::number(highest);
}

void read_version(const QCommandLineParser& parser, Version& target, QString& problem)
{
    const QStringList words = parser.value(version).split('.');
    int* const fields[] = {&target.major, &target.minor, &target.patch};
    bool good = words.size() == 3;
    for (int i = 0; good && i < 3; ++i) {
        const auto number = parse_integer(words[i].toLatin1(), 0, max_version_number);
        good = number.has_value();
        *fields[i] = number.value_or(0);
    }
    if (!good)
        problem = "--version needs three numbers such as 1.20.0";
}

void read_coordinate_type(const QCommandLineParser& parser, QByteArray& target, QString& problem)
{
    target = parser.value(coordinate_type).toLatin1();
    if (!is_coordinate_type(target))
        problem = "--coordinate-type knows normal, powerwall, powerwall_standing, mid_camera, none";
}

} // namespace

CommandLine parse_command_line(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(parser);
    CommandLine line;
    if (!parser.parse(arguments))
        line.problem = parser.errorText();
    else if (!parser.positionalArguments().isEmpty())
        line.problem = "unexpected argument " + parser.positionalArguments().first();
    line.headless = parser.isSet(headless);
    line.exit_with_parent = parser.isSet(exit_with_parent);
    line.help = parser.isSet(help);
    read_number(parser, cameras, Setup::max_cameras, line.setup.cameras, line.problem);
    read_number(parser, tools, Setup::max_tools, line.setup.tools, line.problem);
    read_number(parser, seed, std::numeric_limits<int>::max(), line.setup.seed, line.problem);
    read_version(parser, line.setup.version, line.problem);
    read_coordinate_type(parser, line.setup.coordinate_type, line.problem);
    return line;
}

QString help_text()
{
    QCommandLineParser parser;
    describe(parser);
    return parser.helpText();
}

} // namespace simulator
