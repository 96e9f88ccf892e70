// The gateway that modules speak through: formats their texts, asks, converts the replies.
#ifndef HOST_GATEWAY_H
#define HOST_GATEWAY_H

#include "contract/iomanager.h"

#include "host/connection/controllerlink.h"

#include <QString>

#include <cstdarg>
#include <functional>

class Subscriptions;

/// Texts and replies are in the C locale, whatever the desktop's. A text that is too long is never
/// sent in part. On failure the caller's variables and buffers stay as they were; a value that does
/// not fit into a caller's buffer is a failure, since half a list of numbers is worse than none.
/// A list must hold exactly as many numbers as asked for. GUI thread only.
class Gateway final : public IOManager
{
public:
    using MessageSink = std::function<void(const QString& category, const QString& source,
                                           int level, const QString& text)>;

    Gateway(ControllerLink& link, Subscriptions& subscriptions, MessageSink show);

    /// The text must begin with the word "zetrak2", which the controller itself does not expect.
    int send_command(char* reply, const char* format, ...) override;
    int get_param_string(char* value, const char* format, ...) override;
    int get_param_int(int* value, const char* format, ...) override;
    int get_param_double(double* value, const char* format, ...) override;
    int get_param_bool(bool* value, const char* format, ...) override;
    int get_param_doubles(double* values, int count, const char* format, ...) override;
    int set_param_value(const char* format, ...) override;
    int subscribe_data(const char* line_type, Requester* requester) override;
    int unsubscribe_data(const char* line_type, Requester* requester) override;
    int add_requester(Requester* requester) override;
    int remove_requester(Requester* requester) override;
    int show_message(const char* category, const char* source, int level,
                     const char* text) override;

private:
    Reply ask(const QByteArray& verb, const char* format, va_list arguments);
    void notice_measurement(const QByteArray& command);

    ControllerLink& m_link;
    Subscriptions& m_subscriptions;
    MessageSink m_show;
};

#endif
