// No application object: the tool needs neither display nor event loop, and such an object would
// take the desktop's locale for numbers, too.
#include "tools/program.h"

#include <QFile>

#include <clocale>
#include <iostream>

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, ""); // file names
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    const int code = run_program(arguments, std::cout, std::cerr);
    std::cout.flush();
    return std::cout ? code : 2; // a full disk is no success
}
