// A controller in a map: answers from it, follows settings, and keeps the log of all that was said.
#ifndef TESTS_SUPPORT_FAKE_CONTROLLER_H
#define TESTS_SUPPORT_FAKE_CONTROLLER_H

#include "contract/backendversions.h"
#include "contract/iomanager.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

/// Starts as a controller with two cameras, a room calibration, two calibrated tools, a licence and
/// the default extra transformation. A query that `values` does not hold fails. A failed query
/// leaves a plausible wrong value behind.
class FakeController : public IOManager
{
public:
    FakeController();
    virtual ~FakeController() = default;

    /// Every call in order: "get NAME", "set NAME VALUES", "do COMMAND", "message TEXT",
    /// "subscribe TYPE", "unsubscribe TYPE", "add", "remove". Failed ones end in " -> failed".
    std::vector<std::string> log;
    std::map<std::string, std::string> values;
    /// Calls whose log entry begins with one of these fail.
    std::vector<std::string> failing;
    /// The n-th call that can fail, counted from 0, fails; -1 is none.
    int failing_call = -1;
    /// Calls from `first` to `last` fail, or if there is an answer, queries among them get that
    /// one, as many as 200 characters without a terminator; their log entries then end in " ->
    /// odd".
    struct Fault
    {
        int first = -1;
        int last = -1;
        const char* answer = nullptr;
    } fault;
    /// Runs while a message is shown; may be empty.
    std::function<void()> on_message;
    /// Calls so far that can fail.
    int calls = 0;
    /// The one that was added last.
    Requester* requester = nullptr;

    /// The messages shown, in order.
    std::vector<std::string> messages() const;
    /// The log from `start` on.
    std::vector<std::string> log_since(std::size_t start) const;
    /// Log entries that change the controller.
    std::vector<std::string> sent() const;

    int send_command(char* reply, const char* format, ...) override;
    int get_param_string(char* value, const char* format, ...) override;
    int get_param_int(int* value, const char* format, ...) override;
    int get_param_double(double* value, const char* format, ...) override;
    int get_param_bool(bool* value, const char* format, ...) override;
    int get_param_doubles(double* out, int count, const char* format, ...) override;
    int set_param_value(const char* format, ...) override;
    int subscribe_data(const char* line_type, Requester* requester) override;
    int unsubscribe_data(const char* line_type, Requester* requester) override;
    int add_requester(Requester* requester) override;
    int remove_requester(Requester* requester) override;
    int show_message(const char* category, const char* source, int level,
                     const char* text) override;

private:
    bool fails(std::string entry);
    bool answer(const std::string& name, std::string* reply);
    bool is_faulty() const;
};

BackendVersions backend(int major, int minor, int patch = 0);

#endif
