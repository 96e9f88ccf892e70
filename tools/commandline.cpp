#include "tools/commandline.h"

#include <QByteArray>

namespace
{

struct CommandName
{
    const char* name;
    Command command;
    int files;
};

constexpr CommandName command_names[] = {
    {"fit", command_fit, 2},
    {"check", command_check, 1},
    {"expect", command_expect, 1},
};

/// Goes through the arguments; an option takes as many of them as it needs. A library for command
/// lines would take the numbers of "--at -100 0 0" for options.
class Scanner
{
public:
    Scanner(const QStringList& arguments, CommandLine* line) : m_arguments(arguments), m_line(*line)
    {
    }

    bool run(QString* error)
    {
        while (m_error.isEmpty() && m_next < m_arguments.size())
            take(m_arguments[m_next++]);
        if (m_error.isEmpty())
            check();
        *error = m_error;
        return m_error.isEmpty();
    }

private:
    void take(const QString& argument)
    {
        if (argument.startsWith(QLatin1String("--")))
            take_option(argument);
        else if (!m_command && !argument.startsWith(QLatin1Char('-')))
            take_command(argument);
        else
            m_line.files << argument;
    }

    void take_command(const QString& name)
    {
        for (const CommandName& candidate : command_names)
            if (name == QLatin1String(candidate.name))
                m_command = &candidate;
        if (!m_command)
            m_error = QString::fromLatin1("unknown command \"%1\"").arg(name);
    }

    void take_option(const QString& option)
    {
        if (option == QLatin1String("--help"))
            m_asked = command_help;
        else if (option == QLatin1String("--version"))
            m_asked = command_version;
        else if (option == QLatin1String("--ordered"))
            m_line.is_ordered = true;
        else if (option == QLatin1String("--json"))
            m_line.is_json = true;
        else if (option == QLatin1String("--noise"))
            m_line.noise = take_length(option);
        else if (option == QLatin1String("--tolerance"))
            m_line.tolerance = take_length(option);
        else if (option == QLatin1String("--at"))
            take_places();
        else if (option == QLatin1String("--svg"))
            m_line.picture = take_text(option);
        else
            m_error = QString::fromLatin1("unknown option \"%1\"").arg(option);
        m_options << option;
    }

    QString take_text(const QString& option)
    {
        if (m_next < m_arguments.size())
            return m_arguments[m_next++];
        m_error = QString::fromLatin1("%1 wants a value").arg(option);
        return QString();
    }

    double take_length(const QString& option)
    {
        double value = 0.0;
        if (m_next >= m_arguments.size() || !take_number(&value) || !(value > 0.0))
            m_error = QString::fromLatin1("%1 wants a length in mm above 0").arg(option);
        return value;
    }

    /// Takes the next argument if it is a number.
    bool take_number(double* value)
    {
        bool is_number = false;
        *value =
            m_next < m_arguments.size() ? m_arguments[m_next].toLatin1().toDouble(&is_number) : 0.0;
        is_number = is_number && std::isfinite(*value);
        m_next += is_number;
        return is_number;
    }

    void take_places()
    {
        double v[3];
        int count = 0;
        while (take_number(&v[count % 3]))
            if (++count % 3 == 0)
                m_line.places.push_back(bsVector(v));
        if (count == 0 || count % 3 != 0)
            m_error = QString::fromLatin1("--at wants three numbers for each place");
    }

    void check()
    {
        if (m_options.contains(QLatin1String("--help"))
            || m_options.contains(QLatin1String("--version"))) {
            m_line.command = m_asked;
            return;
        }
        if (!m_command) {
            m_error = QString::fromLatin1("no command");
            return;
        }
        m_line.command = m_command->command;
        check_options();
        if (m_error.isEmpty() && m_line.files.size() != m_command->files)
            m_error = QString::fromLatin1("%1 wants %2 file%3, not %4")
                          .arg(QLatin1String(m_command->name))
                          .arg(m_command->files)
                          .arg(QLatin1String(m_command->files > 1 ? "s" : ""))
                          .arg(m_line.files.size());
        if (m_error.isEmpty() && m_line.command == command_expect && m_line.noise == 0.0)
            m_error = QString::fromLatin1("expect wants --noise");
    }

    void check_options()
    {
        const struct
        {
            const char* option;
            int commands;
        } owners[] = {{"--ordered", 1 << command_fit},
                      {"--noise", 1 << command_fit | 1 << command_expect},
                      {"--tolerance", 1 << command_check},
                      {"--at", 1 << command_expect},
                      {"--svg", 1 << command_expect}};
        for (const auto& owner : owners)
            if (m_options.contains(QLatin1String(owner.option))
                && !(owner.commands >> m_line.command & 1))
                m_error = QString::fromLatin1("%1 takes no %2")
                              .arg(QLatin1String(m_command->name), QLatin1String(owner.option));
    }

    const QStringList m_arguments;
    CommandLine& m_line;
    const CommandName* m_command = nullptr;
    Command m_asked = command_help;
    QStringList m_options;
    QString m_error;
    int m_next = 0;
};

} // namespace

bool read_command_line(const QStringList& arguments, CommandLine* line, QString* error)
{
    return Scanner(arguments, line).run(error);
}

QString help_text()
{
    return QString::fromLatin1(
        "Checks and fits the reference points of a room adjustment without the dialog.\n"
        "\n"
        "  room-adjustment-points fit REFERENCE MEASURED [--ordered] [--noise MM] [--json]\n"
        "      The matching dialog's report, the settings that it would send, the next best\n"
        "      pairing, and the mistake if the fit is bad.\n"
        "  room-adjustment-points check REFERENCE [--tolerance MM] [--json]\n"
        "      Form and shape: skipped lines, lost digits, equal points, symmetry.\n"
        "  room-adjustment-points expect REFERENCE --noise MM [--at X Y Z ...] [--svg FILE]\n"
        "      [--json]\n"
        "      The error to expect at the origin and at places in the room.\n"
        "\n"
        "  --ordered       point i was touched as point i; otherwise the order is searched\n"
        "  --noise MM      standard deviation of each coordinate of a measured point (fit: 1)\n"
        "  --tolerance MM  residual up to which another pairing counts as a symmetry (10)\n"
        "  --at X Y Z ...  places in mm, in the coordinates of the reference points\n"
        "  --svg FILE      draw the object with its error in the room\n"
        "  --json          print one JSON object instead of text\n"
        "  --help, --version\n"
        "\n"
        "Files are those of the matching dialog, in mm: \"1 X Y Z\" or \"(1) X Y Z\" in lines, or\n"
        "keyed coordinates. Exit code: 0 good, 1 doubtful, 2 error.\n");
}
