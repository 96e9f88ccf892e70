// The program's options.
#ifndef SIMULATOR_PROGRAM_COMMANDLINE_H
#define SIMULATOR_PROGRAM_COMMANDLINE_H

#include "simulator/model/setup.h"

#include <QString>
#include <QStringList>

namespace simulator
{

struct CommandLine
{
    Setup setup;
    bool headless = false;
    bool exit_with_parent = false; ///< end when standard input is closed
    bool help = false;
    bool version = false;
    int port = 0;        ///< 0 lets the system choose
    QString points_file; ///< where "sim points" saves; empty for the usual place
    QString problem;     ///< what is wrong with the arguments; empty if nothing is
};

/// Needs no application object.
CommandLine parse_command_line(const QStringList& arguments);

/// The text for --help. Needs an application object.
QString help_text();

} // namespace simulator

#endif
