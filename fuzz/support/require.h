// What every fuzz target checks with: a broken promise ends the run, so that its input is kept.
#ifndef FUZZ_SUPPORT_REQUIRE_H
#define FUZZ_SUPPORT_REQUIRE_H

#include <cstdlib>

inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

#endif
