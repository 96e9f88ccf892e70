// Any bytes as a recording: it is read to its end or refused with a reason, times never go back,
// and what was read is read again alike after it has been recorded.
#include "fuzz/support/require.h"
#include "host/connection/recording.h"

#include <cmath>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

struct RecordedLine
{
    double seconds;
    QByteArray text;
};

/// A file in memory that can be opened by its name.
struct MemoryFile
{
    int descriptor = memfd_create("recording", 0);
    QString name = QString("/proc/self/fd/%1").arg(descriptor);
};

static bool read_all(const QString& name, std::vector<RecordedLine>& lines)
{
    RecordingReader reader(name);
    if (!reader.open()) {
        require(!reader.error_text().isEmpty());
        return false;
    }
    RecordedLine line = {};
    RecordingReader::Result result;
    while ((result = reader.next(&line.seconds, &line.text)) == RecordingReader::line_read)
        lines.push_back(line);
    require((result == RecordingReader::at_end) == reader.error_text().isEmpty());
    return true;
}

static void check_times(const std::vector<RecordedLine>& lines)
{
    for (std::size_t i = 0; i < lines.size(); ++i) {
        require(std::isfinite(lines[i].seconds) && lines[i].seconds >= 0.0);
        require(i == 0 || lines[i].seconds >= lines[i - 1].seconds);
        require(!lines[i].text.contains('\n'));
    }
}

/// Times are kept to the microsecond, and a long one may not fit into a line beside a long text.
static void record_and_read_again(const QString& name, const std::vector<RecordedLine>& lines)
{
    std::vector<RecordedLine> written, read;
    {
        Recorder recorder(name);
        require(recorder.open());
        for (const RecordedLine& line : lines)
            if (recorder.write(line.seconds, line.text))
                written.push_back(line);
    }
    require(read_all(name, read) && read.size() == written.size());
    for (std::size_t i = 0; i < read.size(); ++i)
        require(read[i].text == written[i].text
                && std::abs(read[i].seconds - written[i].seconds)
                       <= 1e-6 + 1e-15 * written[i].seconds);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    require(ftruncate(file.descriptor, 0) == 0);
    require(pwrite(file.descriptor, data, size, 0) == static_cast<ssize_t>(size));
    std::vector<RecordedLine> lines;
    read_all(file.name, lines);
    check_times(lines);
    record_and_read_again(file.name, lines);
    return 0;
}
