#include "host/connection/recording.h"

#include <cmath>

namespace
{

const char title[] = "tracking data recording 1";
constexpr int time_decimals = 6;

} // namespace

Recorder::Recorder(const QString& file_name) : m_file(file_name) {}

bool Recorder::open()
{
    const QByteArray first = QByteArray(title) + '\n';
    return m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)
           && m_file.write(first) == first.size() && m_file.flush();
}

bool Recorder::write(double seconds, const QByteArray& line)
{
    const QByteArray text = QByteArray::number(seconds, 'f', time_decimals) + ' ' + line + '\n';
    return text.size() <= longest_recorded_line && m_file.write(text) == text.size();
}

QString Recorder::error_text() const
{
    return QStringLiteral("%1: %2").arg(m_file.fileName(), m_file.errorString());
}

RecordingReader::RecordingReader(const QString& file_name) : m_file(file_name) {}

bool RecordingReader::open()
{
    if (!m_file.open(QIODevice::ReadOnly)) {
        m_error = QStringLiteral("%1: %2").arg(m_file.fileName(), m_file.errorString());
        return false;
    }
    QByteArray first;
    if (!read_line(&first))
        return m_error.isEmpty() ? fail(QStringLiteral("the file is empty")) : false;
    if (first != title)
        return fail(QStringLiteral("not a recording, expected \"%1\"").arg(QLatin1String(title)));
    return true;
}

RecordingReader::Result RecordingReader::next(double* seconds, QByteArray* line)
{
    QByteArray text;
    if (!read_line(&text))
        return m_error.isEmpty() ? at_end : failed;
    const int blank = text.indexOf(' ');
    bool valid = false;
    const double time = text.left(blank).toDouble(&valid);
    if (blank < 0 || !valid || !std::isfinite(time)) {
        fail(QStringLiteral("does not begin with a time and a blank"));
        return failed;
    }
    if (time < m_last_time) {
        fail(QStringLiteral("time goes back"));
        return failed;
    }
    m_last_time = time;
    *seconds = time;
    *line = text.mid(blank + 1);
    return line_read;
}

bool RecordingReader::read_line(QByteArray* text)
{
    *text = m_file.readLine(longest_recorded_line + 1);
    if (text->isEmpty() && m_file.atEnd())
        return false;
    ++m_line_number;
    if (!text->endsWith('\n'))
        return fail(m_file.atEnd() ? QStringLiteral("the line has no end")
                                   : QStringLiteral("the line is too long"));
    text->chop(1);
    return true;
}

bool RecordingReader::fail(const QString& fault)
{
    m_error =
        QStringLiteral("%1, line %2: %3").arg(m_file.fileName()).arg(m_line_number).arg(fault);
    return false;
}
