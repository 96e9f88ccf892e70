// The C locale for reading numbers, whatever LC_NUMERIC of the process says.
#ifndef PLATFORM_NUMERICLOCALE_H
#define PLATFORM_NUMERICLOCALE_H

#include <locale.h>

/// For `strtod_l` and its like. Made once, thread-safe, never freed.
inline locale_t c_numeric_locale()
{
    static const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return c_locale;
}

#endif
