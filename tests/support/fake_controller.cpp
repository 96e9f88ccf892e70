#include "tests/support/fake_controller.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

std::string format_text(const char* format, va_list arguments)
{
    char text[1024];
    std::vsnprintf(text, sizeof text, format, arguments);
    return text;
}

/// Fills a text buffer to its whole promised size, as a host may: one that is smaller gets hurt.
void write_text(char* buffer, const std::string& text)
{
    std::memset(buffer, '#', IOManager::buffer_size);
    std::memcpy(buffer, text.c_str(),
                std::min<std::size_t>(text.size() + 1, IOManager::buffer_size));
}

/// As many numbers as there are at the beginning; a host may believe them.
int read_numbers(const std::string& text, int count, double* numbers)
{
    const char* cursor = text.c_str();
    char* end = nullptr;
    int read = 0;
    for (double number; read < count && (number = std::strtod(cursor, &end), end != cursor);
         cursor = end)
        numbers[read++] = number;
    return read;
}

// What a failed operation leaves behind: nobody may take it for an answer.
const char* const text_of_failure = "mea no none 7 7 7 7 7 7 7 7 7";
const int int_of_failure = 7;
const double double_of_failure = 7.0;

bool begins_with(const std::string& text, const std::string& beginning)
{
    return text.compare(0, beginning.size(), beginning) == 0;
}

// The text of a variadic call, formatted.
#define FORMATTED(text)                                                                            \
    va_list arguments;                                                                             \
    va_start(arguments, format);                                                                   \
    const std::string text = format_text(format, arguments);                                       \
    va_end(arguments)

} // namespace

BackendVersions backend(int major, int minor, int patch)
{
    BackendVersions versions = {{-7, -7, -7}, major, minor, patch};
    return versions;
}

FakeController::FakeController()
{
    values["camera number_of_cameras"] = "2";
    values["tracking available"] = "yes";
    values["tracking has_room c01"] = values["tracking has_room c02"] = "1";
    values["tracking room c01"] = "1000.5 -20.25 30.127 1 0 0 0 1 0 0 0 1";
    values["tracking room c02"] = "-1 2 3 1 0 0 0 1 0 0 0 1";
    values["config is_changeable"] = "yes";
    values["status active"] = "idle";
    values["tracking extra_rotation"] = "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                                        "0.00000000 0.00000000 0.00000000 1.00000000";
    values["tracking extra_translation"] = "0.000 0.000 0.000";
    values["tracking extra_scaling"] = "1.00000";
    values["roomcal last_coordinate_type"] = values["roomcal coordinate_type"] = "powerwall";
    values["licence measurementtool"] = "1";
    values["measurementtool number_of_tools"] = "2";
    for (const char* tool : {"b01", "b02"}) {
        values[std::string("measurementtool tip_calibrated ") + tool] = "1";
        values[std::string("measurementtool measurement_tip_tolerance ") + tool] = "2.5";
        values[std::string("measurementtool measurement_duration ") + tool] = "0.5";
    }
}

std::vector<std::string> FakeController::messages() const
{
    std::vector<std::string> found;
    for (const std::string& entry : log)
        if (begins_with(entry, "message "))
            found.push_back(entry.substr(8));
    return found;
}

std::vector<std::string> FakeController::log_since(std::size_t start) const
{
    return std::vector<std::string>(log.begin() + std::min(start, log.size()), log.end());
}

std::vector<std::string> FakeController::sent() const
{
    std::vector<std::string> found;
    for (const std::string& entry : log)
        if (begins_with(entry, "set ") || begins_with(entry, "do "))
            found.push_back(entry);
    return found;
}

bool FakeController::fails(std::string entry)
{
    bool failed = calls == failing_call || (is_faulty() && !fault.answer);
    ++calls;
    for (const std::string& beginning : failing)
        failed = failed || begins_with(entry, beginning);
    log.push_back(failed ? entry + " -> failed" : entry);
    return failed;
}

bool FakeController::is_faulty() const { return calls >= fault.first && calls <= fault.last; }

bool FakeController::answer(const std::string& name, std::string* reply)
{
    const bool odd = is_faulty() && fault.answer;
    if (fails("get " + name))
        return false;
    const auto found = values.find(name);
    if (found == values.end()) {
        log.back() += " -> failed";
        return false;
    }
    *reply = odd ? fault.answer : found->second;
    if (odd)
        log.back() += " -> odd";
    return true;
}

int FakeController::send_command(char* reply, const char* format, ...)
{
    FORMATTED(text);
    write_text(reply, "ok");
    if (fails("do " + text))
        return 3;
    if (text == "zetrak2 tracking start")
        values["status active"] = "mea";
    if (text == "zetrak2 tracking stop")
        values["status active"] = "idle";
    return 0;
}

int FakeController::get_param_string(char* value, const char* format, ...)
{
    FORMATTED(text);
    std::string reply;
    const bool answered = answer(text, &reply);
    write_text(value, answered ? reply : text_of_failure);
    return answered ? 0 : -1;
}

int FakeController::get_param_int(int* value, const char* format, ...)
{
    FORMATTED(text);
    std::string reply;
    double number = int_of_failure;
    const bool answered = answer(text, &reply) && read_numbers(reply, 1, &number) == 1;
    *value = std::isfinite(number) ? int(number) : INT_MIN;
    return answered ? 0 : 1;
}

int FakeController::get_param_double(double* value, const char* format, ...)
{
    FORMATTED(text);
    std::string reply;
    *value = double_of_failure;
    return answer(text, &reply) && read_numbers(reply, 1, value) == 1 ? 0 : 1;
}

int FakeController::get_param_bool(bool* value, const char* format, ...)
{
    FORMATTED(text);
    std::string reply;
    const bool answered = answer(text, &reply);
    *value = answered ? reply == "1" : true;
    return answered ? 0 : 1;
}

int FakeController::get_param_doubles(double* out, int count, const char* format, ...)
{
    FORMATTED(text);
    std::string reply;
    std::fill(out, out + count, double_of_failure);
    return answer(text, &reply) && read_numbers(reply, count, out) == count ? 0 : 1;
}

int FakeController::set_param_value(const char* format, ...)
{
    FORMATTED(text);
    if (fails("set " + text))
        return 1;
    const std::size_t second_word = text.find(' ') + 1;
    const std::size_t name_end = text.find(' ', second_word);
    values[text.substr(0, name_end)] = text.substr(name_end + 1);
    return 0;
}

int FakeController::subscribe_data(const char* line_type, Requester*)
{
    log.push_back(std::string("subscribe ") + line_type);
    return 0;
}

int FakeController::unsubscribe_data(const char* line_type, Requester*)
{
    log.push_back(std::string("unsubscribe ") + line_type);
    return 0;
}

int FakeController::add_requester(Requester* added)
{
    requester = added;
    log.push_back("add");
    return 0;
}

int FakeController::remove_requester(Requester*)
{
    log.push_back("remove");
    return 0;
}

int FakeController::show_message(const char* category, const char* source, int level,
                                 const char* text)
{
    const bool usual =
        std::string(category) == "standard" && std::string(source) == "Zetrak2" && level == 1;
    log.push_back(std::string(usual ? "message " : "odd message ") + text);
    const std::function<void()> reaction = on_message;
    if (reaction)
        reaction();
    return 0;
}
