// Scanning of a writable, zero-terminated text: each function takes a cursor, converts what stands
// there, and returns the position behind it.
#ifndef TRACKING_ZETRAKPARSE_H
#define TRACKING_ZETRAKPARSE_H

#include <string>

/// A null result always means failure. No pointer may be null unless its remark says so. Nothing
/// here keeps state, throws, or reports in any other way; only a `std::string` result allocates.
///
/// The number readers skip white space, read the longest number that stands there in the C locale
/// whatever LC_NUMERIC says, and return the position behind it, or null if there is none. `*value`
/// is always written, with 0 on failure.
namespace ZetrakSDK_Parse
{

/// Start of the line after the one at `position`, in the `length` bytes at `buffer`. Runs of line
/// feeds and carriage returns end a line; zero bytes within it do not. Null at the end of the
/// buffer, and if the next line begins with a zero byte.
char* string_nextline(char* buffer, char* position, int length);

/// Tells whether `text` begins with `parameter`, with any run of blanks counting as one and leading
/// zeros of a number not counting: "c01" matches "c1". The result is behind the blanks that follow
/// the match; one more character is expected there and stepped over unseen, so the result is one
/// past the terminator if the text ends with the match.
char* string_cmp_parameter(char* text, const char* parameter);

/// Text between the first two double quotes, without escapes; the result is behind the second.
/// `result` stays as it is on failure.
char* string_get_quoted_text(char* text, std::string& result);

/// Next word; only spaces separate words. The result is the space or terminator behind it. Null
/// with an empty `result` if no word is left.
char* string_get_word(char* text, std::string& result);

/// A double rounded once more to float. Takes what `strtod` takes: decimal, hexadecimal, inf, nan.
char* string_get_f(char* text, float* value);

/// The nearest double; takes what `strtod` takes. Infinite beyond the range of double.
char* string_get_d(char* text, double* value);

/// Base as in C source: "0x10" is 16, "010" is 8. The value is the low 32 bits of what `strtoul`
/// gives as a long, so "-1" is 4294967295.
char* string_get_ui(char* text, unsigned int* value);

/// Base as for `string_get_ui`. The value is the low 32 bits of what `strtol` gives as a long,
/// without range check.
char* string_get_i(char* text, int* value);

/// Reads the next group in square brackets and returns the position behind its "]". `format` has
/// one letter a number: "i" goes to the next place of `ivalues`; "f" and "d" go to `fvalues` and
/// `dvalues`, which share one running index. What stands before the "[" and numbers beyond the
/// format are skipped; an empty format steps over the group. An array that no letter names may be
/// null.
/// Null for a missing bracket, too few numbers or another letter; the values read until then stay.
/// The text is changed while this runs and is back as it was on return.
char* string_get_block(char* text, const char* format, int* ivalues, float* fvalues,
                       double* dvalues);

} // namespace ZetrakSDK_Parse

#endif
