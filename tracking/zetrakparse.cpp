#include "tracking/zetrakparse.h"

#include "platform/numericlocale.h"

#include <cfloat>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#if __cplusplus >= 201703L
#include <charconv>
#endif

namespace
{

bool is_digit(char c) { return c >= '0' && c <= '9'; }

template <class Char>
Char* skip(Char* text, char c)
{
    while (*text == c)
        ++text;
    return text;
}

const char* skip_white_space(const char* text)
{
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    return text;
}

// ---- Reals. The digits are taken in one pass. W. D. Clinger, "How to read floating point numbers
// accurately" (1990): if they and the power of ten are both exact doubles, one multiplication or
// division rounds once and so gives the nearest double. All other texts go to the library.

const std::uint64_t largest_exact_integer = std::uint64_t(1) << 53;
const int most_safe_digits = 19; // fit 64 bits whatever they are
const int largest_exact_power = 22;
const double exact_powers[largest_exact_power + 1] = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
const bool rounds_to_double = FLT_EVAL_METHOD == 0; // not so in the x87's wider registers

struct Decimal
{
    bool negative;
    const char* first;         // behind the sign
    const char* last;          // behind the exponent
    int digits;                // with leading zeros
    std::uint64_t significand; // meaningless above `most_safe_digits`
    int exponent;              // of ten
};

const char* scan_digits(const char* text, std::uint64_t* value)
{
    std::uint64_t sum = *value;
    for (; is_digit(*text); ++text)
        sum = sum * 10 + static_cast<unsigned>(*text - '0');
    *value = sum;
    return text;
}

// "e", a sign and digits. Leaves a lone "e" unread, as strtod does. Long exponents stay at a value
// that no double has.
const char* scan_exponent(const char* text, int* exponent)
{
    const int beyond_any_double = 100000;
    const char* p = text + 1;
    const bool negative = *p == '-';
    if (*p == '-' || *p == '+')
        ++p;
    if (!is_digit(*p))
        return text;
    int value = 0;
    for (; is_digit(*p); ++p)
        value = value < beyond_any_double ? value * 10 + (*p - '0') : value;
    *exponent += negative ? -value : value;
    return p;
}

// False if no plain decimal number stands at `text`.
bool scan_decimal(const char* text, Decimal* d)
{
    const char* p = skip_white_space(text);
    d->negative = *p == '-';
    if (*p == '-' || *p == '+')
        ++p;
    d->first = p;
    d->significand = 0;
    p = scan_digits(p, &d->significand);
    std::ptrdiff_t digits = p - d->first;
    d->exponent = 0;
    if (*p == '.') {
        const char* const fraction = p + 1;
        p = scan_digits(fraction, &d->significand);
        digits += p - fraction;
        d->exponent = -static_cast<int>(p - fraction);
    } else if ((*p == 'x' || *p == 'X') && digits == 1 && *d->first == '0') {
        return false;
    }
    if (*p == 'e' || *p == 'E')
        p = scan_exponent(p, &d->exponent);
    d->last = p;
    d->digits = digits > most_safe_digits ? most_safe_digits + 1 : static_cast<int>(digits);
    return digits > 0;
}

bool convert_exactly(const Decimal& d, double* value)
{
    if (!rounds_to_double || d.digits > most_safe_digits || d.significand > largest_exact_integer)
        return false;
    const double significand = static_cast<double>(d.significand);
    if (d.exponent <= 0 && d.exponent >= -largest_exact_power)
        *value = significand / exact_powers[-d.exponent];
    else if (d.exponent > 0 && d.exponent <= largest_exact_power)
        *value = significand * exact_powers[d.exponent];
    else
        return false;
    return true;
}

bool convert_by_library(const Decimal& d, double* value)
{
#ifdef __cpp_lib_to_chars
    return std::from_chars(d.first, d.last, *value).ec == std::errc();
#else
    (void)d;
    (void)value;
    return false;
#endif
}

inline char* scan_double(char* text, double* value)
{
    Decimal d;
    double magnitude;
    if (scan_decimal(text, &d)
        && (convert_exactly(d, &magnitude) || convert_by_library(d, &magnitude))) {
        *value = d.negative ? -magnitude : magnitude;
        return text + (d.last - text);
    }
    char* end;
    *value = strtod_l(text, &end, c_numeric_locale());
    return end == text ? nullptr : end;
}

// ---- Integers. Short decimal ones are converted here, the rest by the library's rules for base 0.

// The position behind a decimal integer of at most nine digits, or null if the number at `text` is
// none or has another form.
const char* scan_short_decimal(const char* text, int* value)
{
    const int most_digits = 9; // fit 32 bits whatever they are
    const char* p = skip_white_space(text);
    const bool negative = *p == '-';
    if (*p == '-' || *p == '+')
        ++p;
    const char* const first = p;
    int sum = 0;
    for (; is_digit(*p) && p - first < most_digits; ++p)
        sum = sum * 10 + (*p - '0');
    const bool other_base = *first == '0' && (p - first > 1 || (*p >= 'A' && *p <= 'z'));
    if (p == first || is_digit(*p) || other_base)
        return nullptr;
    *value = negative ? -sum : sum;
    return p;
}

template <class Integer, class Long>
inline char* scan_integer(char* text, Integer* value, Long (*convert)(const char*, char**, int))
{
    int short_value;
    if (const char* const behind = scan_short_decimal(text, &short_value)) {
        *value = static_cast<Integer>(short_value);
        return text + (behind - text);
    }
    char* end;
    *value = static_cast<Integer>(convert(text, &end, 0));
    return end == text ? nullptr : end;
}

bool read_group(char* cursor, const char* format, int* ivalues, float* fvalues, double* dvalues)
{
    using namespace ZetrakSDK_Parse;
    int integers = 0;
    int reals = 0;
    for (; *format; ++format) {
        if (*format == 'd')
            cursor = scan_double(cursor, &dvalues[reals++]);
        else if (*format == 'i')
            cursor = string_get_i(cursor, &ivalues[integers++]);
        else if (*format == 'f')
            cursor = string_get_f(cursor, &fvalues[reals++]);
        else
            return false;
        if (!cursor)
            return false;
    }
    return true;
}

} // namespace

namespace ZetrakSDK_Parse
{

char* string_nextline(char* buffer, char* position, int length)
{
    char* const end = buffer + length;
    while (position < end && *position != '\n' && *position != '\r')
        ++position;
    while (position < end && (*position == '\n' || *position == '\r'))
        ++position;
    return position < end && *position ? position : nullptr;
}

char* string_cmp_parameter(char* text, const char* parameter)
{
    bool in_number = false;
    while (*parameter) {
        if (!in_number) {
            parameter = skip(parameter, '0');
            text = skip(text, '0');
        }
        const char c = *parameter;
        if (c != *text)
            return nullptr;
        if (!c)
            break;
        if (c == ' ') {
            parameter = skip(parameter, ' ');
            text = skip(text, ' ');
            in_number = false;
        } else {
            in_number = is_digit(c);
            ++parameter;
            ++text;
        }
    }
    return *text ? skip(text + 1, ' ') : text + 1;
}

char* string_get_quoted_text(char* text, std::string& result)
{
    char* const opening = std::strchr(text, '"');
    if (!opening)
        return nullptr;
    char* const closing = std::strchr(opening + 1, '"');
    if (!closing)
        return nullptr;
    result.assign(opening + 1, closing);
    return closing + 1;
}

char* string_get_word(char* text, std::string& result)
{
    char* const word = skip(text, ' ');
    char* const end = word + std::strcspn(word, " ");
    result.assign(word, end);
    return end == word ? nullptr : end;
}

char* string_get_f(char* text, float* value)
{
    double wide;
    char* const end = scan_double(text, &wide);
    *value = static_cast<float>(wide);
    return end;
}

char* string_get_d(char* text, double* value) { return scan_double(text, value); }

char* string_get_ui(char* text, unsigned int* value)
{
    return scan_integer(text, value, std::strtoul);
}

char* string_get_i(char* text, int* value) { return scan_integer(text, value, std::strtol); }

char* string_get_block(char* text, const char* format, int* ivalues, float* fvalues,
                       double* dvalues)
{
    char* const opening = std::strchr(text, '[');
    if (!opening)
        return nullptr;
    char* const closing = std::strchr(opening, ']');
    if (!closing)
        return nullptr;
    *closing = '\0'; // no number reader may run past the group
    const bool complete = read_group(opening + 1, format, ivalues, fvalues, dvalues);
    *closing = ']';
    return complete ? closing + 1 : nullptr;
}

} // namespace ZetrakSDK_Parse
