#include "host/recording.h"

#include <cmath>

namespace
{

const char title[] = "tracking data recording 1";
constexpr int time_decimals = 6;

} // namespace

Recorder::Recorder(const QString& file_name) : file(file_name) {}

bool Recorder::open()
{
    const QByteArray first = QByteArray(title) + '\n';
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
           && file.write(first) == first.size() && file.flush();
}

bool Recorder::write(double seconds, const QByteArray& line)
{
    const QByteArray text = QByteArray::number(seconds, 'f', time_decimals) + ' ' + line + '\n';
    return text.size() <= longest_recorded_line && file.write(text) == text.size();
}

QString Recorder::errorText() const
{
    return QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
}

RecordingReader::RecordingReader(const QString& file_name) : file(file_name) {}

bool RecordingReader::open()
{
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
        return false;
    }
    QByteArray first;
    if (!readLine(&first))
        return error.isEmpty() ? fail(QStringLiteral("the file is empty")) : false;
    if (first != title)
        return fail(QStringLiteral("not a recording, expected \"%1\"").arg(QLatin1String(title)));
    return true;
}

RecordingReader::Result RecordingReader::next(double* seconds, QByteArray* line)
{
    QByteArray text;
    if (!readLine(&text))
        return error.isEmpty() ? at_end : failed;
    const int blank = text.indexOf(' ');
    bool valid = false;
    const double time = text.left(blank).toDouble(&valid);
    if (blank < 0 || !valid || !std::isfinite(time)) {
        fail(QStringLiteral("does not begin with a time and a blank"));
        return failed;
    }
    if (time < last_time) {
        fail(QStringLiteral("time goes back"));
        return failed;
    }
    last_time = time;
    *seconds = time;
    *line = text.mid(blank + 1);
    return line_read;
}

bool RecordingReader::readLine(QByteArray* text)
{
    *text = file.readLine(longest_recorded_line + 1);
    if (text->isEmpty() && file.atEnd())
        return false;
    ++line_number;
    if (!text->endsWith('\n'))
        return fail(file.atEnd() ? QStringLiteral("the line has no end")
                                 : QStringLiteral("the line is too long"));
    text->chop(1);
    return true;
}

bool RecordingReader::fail(const QString& fault)
{
    error = QStringLiteral("%1, line %2: %3").arg(file.fileName()).arg(line_number).arg(fault);
    return false;
}
