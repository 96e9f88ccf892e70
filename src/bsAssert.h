// Assertions of the geometry kernel, which stand in every build type.
#ifndef SRC_BSASSERT_H
#define SRC_BSASSERT_H

#include <cstdio>
#include <cstdlib>

#if defined(__GNUC__)
#define BS_FUNCTION __PRETTY_FUNCTION__
#else
#define BS_FUNCTION __func__
#endif

/// Stops the program unless condition holds. Text and path are given by hand: the one so that
/// formatting the source does not change the message, the other so that it does not depend on
/// the folder the compiler was started in. The path is relative to the repository root.
#define BS_ASSERT(condition, text, path)                                                           \
    ((condition) ? static_cast<void>(0) : bsAssertionFailed(text, path, __LINE__, BS_FUNCTION))

/// Prints expression, path, line and function to standard error and aborts, NDEBUG or not.
[[noreturn]] inline void bsAssertionFailed(const char* expression, const char* path, int line,
                                           const char* function)
{
    std::fprintf(stderr, "%s:%d: %s: Assertion `%s' failed.\n", path, line, function, expression);
    std::fflush(stderr);
    std::abort();
}

#endif
