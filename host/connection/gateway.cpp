#include "host/connection/gateway.h"

#include "host/connection/subscriptions.h"

#include <QList>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <locale.h>
#include <utility>

namespace
{

constexpr int succeeded = 0;
constexpr int failed = -1;
constexpr int longest_text = 1024; // bytes of a formatted text, terminator included
const char command_word[] = "zetrak2 ";

// The application runs with the desktop's locale, in which printf may write decimal commas.
class CLocaleScope
{
public:
    CLocaleScope() : previous(uselocale(c_locale())) {}
    ~CLocaleScope() { uselocale(previous); }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    static locale_t c_locale()
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t previous;
};

// An empty text stands for one that could not be formatted or is too long.
QByteArray format_text(const char* format, va_list arguments)
{
    const CLocaleScope scope;
    char text[longest_text];
    const int length = std::vsnprintf(text, sizeof text, format, arguments);
    if (length < 0 || length >= longest_text)
        return {};
    return QByteArray(text, length);
}

int copy_text(char* buffer, const QByteArray& text)
{
    if (text.size() >= IOManager::buffer_size)
        return failed;
    std::memcpy(buffer, text.constData(), static_cast<std::size_t>(text.size()) + 1);
    return succeeded;
}

int convert(const Reply& reply, int* value)
{
    bool valid = false;
    const int number = reply.text.toInt(&valid);
    if (!reply.ok() || !valid)
        return failed;
    *value = number;
    return succeeded;
}

int convert(const Reply& reply, double* value)
{
    bool valid = false;
    const double number = reply.text.toDouble(&valid);
    if (!reply.ok() || !valid)
        return failed;
    *value = number;
    return succeeded;
}

int convert(const Reply& reply, bool* value)
{
    if (!reply.ok() || (reply.text != "0" && reply.text != "1"))
        return failed;
    *value = reply.text == "1";
    return succeeded;
}

int convert(const Reply& reply, double* values, int count)
{
    const QList<QByteArray> fields = reply.text.split(' ');
    if (!reply.ok() || fields.size() != count)
        return failed;
    QVector<double> numbers;
    for (const QByteArray& field : fields) {
        bool valid = false;
        numbers.append(field.toDouble(&valid));
        if (!valid)
            return failed;
    }
    std::copy(numbers.cbegin(), numbers.cend(), values);
    return succeeded;
}

} // namespace

Gateway::Gateway(ControllerLink& link, Subscriptions& subscriptions, MessageSink show)
    : m_link(link), m_subscriptions(subscriptions), m_show(std::move(show))
{
}

int Gateway::send_command(char* reply, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QByteArray text = format_text(format, arguments);
    va_end(arguments);
    if (!text.startsWith(command_word))
        return failed;
    const QByteArray command = text.mid(static_cast<int>(std::strlen(command_word)));
    const Reply answer = m_link.request("do " + command);
    if (!answer.ok())
        return failed;
    notice_measurement(command);
    // The command has been carried out: a long answer is cut rather than called a failure.
    return copy_text(reply, answer.text.left(buffer_size - 1));
}

int Gateway::get_param_string(char* value, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const Reply reply = ask("get ", format, arguments);
    va_end(arguments);
    return reply.ok() ? copy_text(value, reply.text) : failed;
}

int Gateway::get_param_int(int* value, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const Reply reply = ask("get ", format, arguments);
    va_end(arguments);
    return convert(reply, value);
}

int Gateway::get_param_double(double* value, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const Reply reply = ask("get ", format, arguments);
    va_end(arguments);
    return convert(reply, value);
}

int Gateway::get_param_bool(bool* value, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const Reply reply = ask("get ", format, arguments);
    va_end(arguments);
    return convert(reply, value);
}

int Gateway::get_param_doubles(double* values, int count, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const Reply reply = ask("get ", format, arguments);
    va_end(arguments);
    return convert(reply, values, count);
}

int Gateway::set_param_value(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const Reply reply = ask("set ", format, arguments);
    va_end(arguments);
    return reply.ok() ? succeeded : failed;
}

int Gateway::subscribe_data(const char* line_type, Requester* requester)
{
    return m_subscriptions.subscribe(line_type, requester);
}

int Gateway::unsubscribe_data(const char* line_type, Requester* requester)
{
    return m_subscriptions.unsubscribe(line_type, requester);
}

int Gateway::add_requester(Requester* requester) { return m_subscriptions.add(requester); }

int Gateway::remove_requester(Requester* requester) { return m_subscriptions.remove(requester); }

int Gateway::show_message(const char* category, const char* source, int level, const char* text)
{
    m_show(QString::fromUtf8(category), QString::fromUtf8(source), level, QString::fromUtf8(text));
    return succeeded;
}

Reply Gateway::ask(const QByteArray& verb, const char* format, va_list arguments)
{
    const QByteArray text = format_text(format, arguments);
    if (text.isEmpty())
        return {Reply::refused, "a text that is empty or too long"};
    return m_link.request(verb + text);
}

void Gateway::notice_measurement(const QByteArray& command)
{
    if (command == "tracking start")
        m_subscriptions.notify_measurement(true);
    else if (command == "tracking stop")
        m_subscriptions.notify_measurement(false);
}
