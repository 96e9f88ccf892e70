// The offline tool from its arguments to its exit code.
#ifndef TOOLS_PROGRAM_H
#define TOOLS_PROGRAM_H

#include <QStringList>

#include <ostream>

/// Reads and writes the files named in `arguments` (without the program's name); results go to
/// `out`, messages to `error`. Returns the exit code: 0 good, 1 doubtful, 2 error.
int run_program(const QStringList& arguments, std::ostream& out, std::ostream& error);

#endif
