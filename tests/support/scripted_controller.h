// A controller that answers from a list and writes down what it was told.
#ifndef TESTS_SUPPORT_SCRIPTED_CONTROLLER_H
#define TESTS_SUPPORT_SCRIPTED_CONTROLLER_H

#include "module/iomanager.h"

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdarg>

/// A query fails unless its text stands in `answers`; commands and settings succeed unless their
/// text stands in `failing`.
class ScriptedController : public IOManager
{
public:
    QMap<QString, QString> answers;
    QStringList failing;
    QStringList sent;     ///< texts in the order in which they came
    QStringList messages; ///< "category/source/level/text"
    QStringList calls;    ///< "add", "remove", "subscribe TYPE", "unsubscribe TYPE"

    int send_command(char* reply, const char* format, ...) override
    {
        va_list arguments;
        va_start(arguments, format);
        const QString text = note(format, arguments);
        va_end(arguments);
        *reply = '\0';
        return failing.contains(text) ? 1 : 0;
    }
    int get_param_string(char* value, const char* format, ...) override
    {
        va_list arguments;
        va_start(arguments, format);
        const QString text = note(format, arguments);
        va_end(arguments);
        if (!answers.contains(text))
            return 1;
        qstrncpy(value, qPrintable(answers[text]), buffer_size);
        return 0;
    }
    int get_param_int(int* value, const char* format, ...) override
    {
        va_list arguments;
        va_start(arguments, format);
        const QString text = note(format, arguments);
        va_end(arguments);
        bool ok = false;
        const int answer = answers.value(text).toInt(&ok);
        return ok ? (*value = answer, 0) : 1;
    }
    int get_param_double(double* value, const char* format, ...) override
    {
        va_list arguments;
        va_start(arguments, format);
        const QString text = note(format, arguments);
        va_end(arguments);
        return numbers(value, 1, text);
    }
    int get_param_bool(bool* value, const char* format, ...) override
    {
        va_list arguments;
        va_start(arguments, format);
        const QString text = note(format, arguments);
        va_end(arguments);
        if (!answers.contains(text))
            return 1;
        *value = answers[text] == "true";
        return 0;
    }
    int get_param_doubles(double* values, int count, const char* format, ...) override
    {
        va_list arguments;
        va_start(arguments, format);
        const QString text = note(format, arguments);
        va_end(arguments);
        return numbers(values, count, text);
    }
    int set_param_value(const char* format, ...) override
    {
        va_list arguments;
        va_start(arguments, format);
        const QString text = note(format, arguments);
        va_end(arguments);
        return failing.contains(text) ? 1 : 0;
    }
    int subscribe_data(const char* type, Requester*) override
    {
        calls << QString("subscribe ") + type;
        return 0;
    }
    int unsubscribe_data(const char* type, Requester*) override
    {
        calls << QString("unsubscribe ") + type;
        return 0;
    }
    int add_requester(Requester*) override
    {
        calls << "add";
        return 0;
    }
    int remove_requester(Requester*) override
    {
        calls << "remove";
        return 0;
    }
    int show_message(const char* category, const char* source, int level, const char* text) override
    {
        messages << QString("%1/%2/%3/%4").arg(category, source).arg(level).arg(text);
        return 0;
    }

private:
    QString note(const char* format, va_list arguments)
    {
        sent << QString::vasprintf(format, arguments);
        return sent.last();
    }
    int numbers(double* values, int count, const QString& query) const
    {
        const QStringList fields = answers.value(query).split(' ');
        for (int i = 0; i < count; ++i) {
            bool ok = false;
            values[i] = fields.value(i).toDouble(&ok);
            if (!ok)
                return 1;
        }
        return 0;
    }
};

#endif
