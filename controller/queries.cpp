#include "controller/queries.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace
{

bool is_finite(double value) { return std::isfinite(value); }

} // namespace

ReplyText::ReplyText() { std::memset(text, 0, sizeof text); }

bool ReplyText::is(const char* word) const { return std::strcmp(text, word) == 0; }

bool query_text(IOManager* io_manager, ReplyText* reply, const char* format, int number)
{
    ReplyText answer;
    if (io_manager->get_param_string(answer.text, format, number) != 0)
        return false;
    *reply = answer;
    return true;
}

bool query_number(IOManager* io_manager, double* value, const char* format, int number)
{
    double answer = 0.0;
    if (io_manager->get_param_double(&answer, format, number) != 0 || !is_finite(answer))
        return false;
    *value = answer;
    return true;
}

bool query_numbers(IOManager* io_manager, double* values, int count, const char* format)
{
    double answers[9] = {};
    if (io_manager->get_param_doubles(answers, count, format) != 0
        || !std::all_of(answers, answers + count, is_finite))
        return false;
    std::copy(answers, answers + count, values);
    return true;
}

bool query_count(IOManager* io_manager, int* count, const char* format)
{
    int answer = 0;
    if (io_manager->get_param_int(&answer, format) != 0 || answer < 0 || answer > largest_count)
        return false;
    *count = answer;
    return true;
}
