// What the command line asks the offline tool to do.
#ifndef TOOLS_COMMANDLINE_H
#define TOOLS_COMMANDLINE_H

#include "tools/points.h"

#include <QStringList>

enum Command
{
    command_help,
    command_version,
    command_fit,
    command_check,
    command_expect
};

struct CommandLine
{
    Command command = command_help;
    QStringList files; ///< reference points, and for fit the measured ones
    bool is_ordered = false;
    bool is_json = false;
    double noise = 0.0;      ///< mm; 0 if not told
    double tolerance = 10.0; ///< mm
    Points places;           ///< mm
    QString picture;         ///< file name; empty for none
};

/// Reads the arguments behind the program's name. False on a mistake, told in `error`.
bool read_command_line(const QStringList& arguments, CommandLine* line, QString* error);

QString help_text();

#endif
