// The host's gateway to the tracking controller.
#ifndef CONTRACT_IOMANAGER_H
#define CONTRACT_IOMANAGER_H

class Requester;

/// Implemented and owned by the host. The order of the operations is part of the binary contract
/// between host and plug-in; operations that the module never calls hold their places.
///
/// `format` and what follows it are those of printf. An operation is called from the GUI thread
/// and blocks until the controller has answered. Every result other than 0 is a failure. Each text
/// buffer belongs to the caller and holds `IOManager::buffer_size` bytes, terminator included;
/// the host writes no more than that.
///
/// While it waits for the controller, an operation must not process events. Only `show_message` may
/// run an event loop, for instance that of a message box. There, everything may happen that may
/// happen between two events: data lines, further clicks, even `exit_module`. The module goes on
/// when `show_message` returns, so until then the library must stay loaded and this object alive.
class IOManager
{
public:
    enum
    {
        buffer_size = 200
    };

    virtual void unused_operation_1() {}
    virtual void unused_operation_2() {}
    virtual void unused_operation_3() {}
    virtual void unused_operation_4() {}

    /// Sends a command; the controller's answer text comes back in `reply`.
    virtual int send_command(char* reply, const char* format, ...) = 0;

    virtual void unused_operation_5() {}

    /// Query the parameter named by the formatted text, in the form each needs it.
    virtual int get_param_string(char* value, const char* format, ...) = 0;
    virtual int get_param_int(int* value, const char* format, ...) = 0;
    virtual int get_param_double(double* value, const char* format, ...) = 0;
    virtual int get_param_bool(bool* value, const char* format, ...) = 0;
    virtual int get_param_doubles(double* values, int count, const char* format, ...) = 0;

    virtual void unused_operation_6() {}

    /// Sets a parameter; the formatted text holds its name and its value or values.
    virtual int set_param_value(const char* format, ...) = 0;

    /// Asks for the data lines of one type to be delivered to `requester`, or no longer.
    virtual int subscribe_data(const char* line_type, Requester* requester) = 0;
    virtual int unsubscribe_data(const char* line_type, Requester* requester) = 0;

    /// Makes `requester` known to the host, or takes it back. Taking it back ends its subscriptions
    /// as well: a dialog that is deleted while it is open does not unsubscribe.
    virtual int add_requester(Requester* requester) = 0;
    virtual int remove_requester(Requester* requester) = 0;

    /// Shows `text` to the user through the host's message facility. May run an event loop.
    virtual int show_message(const char* category, const char* source, int level,
                             const char* text) = 0;

protected:
    ~IOManager() {}
};

#endif
