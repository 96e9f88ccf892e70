// Runs code that should abort, in a child process.
#ifndef TESTS_SUPPORT_ABORT_CATCHER_H
#define TESTS_SUPPORT_ABORT_CATCHER_H

#include <csignal>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// What the code wrote to standard error before it aborted; empty if it ended any other way.
/// The child is a fork: the code must not need other threads.
template <class Code>
std::string stderr_of_abort(Code code)
{
    int ends[2];
    if (pipe(ends) != 0)
        return std::string();
    const pid_t child = fork();
    if (child == 0) {
        const rlimit no_core = {0, 0};
        setrlimit(RLIMIT_CORE, &no_core);
        std::signal(SIGABRT, SIG_DFL);
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        code();
        _exit(0);
    }
    close(ends[1]);
    std::string text;
    char buffer[256];
    for (ssize_t n; (n = read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(n));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT ? text : std::string();
}

#endif
