// Data lines with their times in a text file: written while they come in, read to play them back.
#ifndef HOST_RECORDING_H
#define HOST_RECORDING_H

#include <QByteArray>
#include <QFile>
#include <QString>

// The format: a first line "tracking data recording 1"; then, a line each, the time in seconds
// since the recording began with six decimals, one blank, and the data line byte for byte. Times
// never go back. Lines end in a line feed and are at most `longest_recorded_line` bytes long.

constexpr int longest_recorded_line = 64 * 1024; ///< bytes, line feed included

/// Overwrites its file. Belongs to one thread at a time.
class Recorder
{
public:
    explicit Recorder(const QString& file_name);

    /// False if the file cannot be written; error_text() tells.
    bool open();

    /// `seconds` since the recording began, never less than before. False if the line is too long
    /// or could not be written.
    bool write(double seconds, const QByteArray& line);

    QString error_text() const;

private:
    QFile m_file;
};

/// Reads one line after the other, so that a recording may be of any size. Belongs to one thread at
/// a time.
class RecordingReader
{
public:
    enum Result
    {
        line_read,
        at_end,
        failed ///< error_text() names file, line and fault
    };

    explicit RecordingReader(const QString& file_name);

    /// False if the file cannot be read or is no recording.
    bool open();

    /// The arguments are changed only by `line_read`.
    Result next(double* seconds, QByteArray* line);

    QString error_text() const { return m_error; }

private:
    bool read_line(QByteArray* text);
    bool fail(const QString& fault);

    QFile m_file;
    int m_line_number = 0;
    double m_last_time = 0.0;
    QString m_error;
};

#endif
