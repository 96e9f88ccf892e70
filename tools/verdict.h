// The outcome of a run, as the exit code of the program.
#ifndef TOOLS_VERDICT_H
#define TOOLS_VERDICT_H

enum Verdict
{
    verdict_good = 0,
    verdict_doubtful = 1,
    verdict_error = 2
};

#endif
