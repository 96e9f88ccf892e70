#include "matching/referencepointfile.h"

#include "platform/numericlocale.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <limits>

namespace
{

const char* const keys[3] = {"Documentation_mPos[3][0]", "Documentation_mPos[3][1]",
                             "Documentation_mPos[3][2]"};
const std::size_t key_length = 24;
const double missing_coordinate = -999.0;

// sscanf reads numbers by the locale of its thread.
class CNumbers
{
public:
    CNumbers() : previous(uselocale(c_numeric_locale())) {}
    ~CNumbers() { uselocale(previous); }

private:
    CNumbers(const CNumbers&);
    CNumbers& operator=(const CNumbers&);

    locale_t previous;
};

bool begins_with(const char* line, const char* text)
{
    return std::strncmp(line, text, std::strlen(text)) == 0;
}

// `pattern` leaves out the point's number and has three "%f".
bool scan_point(const char* line, const char* pattern, bsVector* point)
{
    float v[3];
    if (std::sscanf(line, pattern, &v[0], &v[1], &v[2]) != 3)
        return false;
    *point = bsVector(v);
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

bool scan_coordinate(const char* line, int axis, double* value)
{
    float number;
    if (!begins_with(line, keys[axis]) || std::sscanf(line + key_length, ":3:\xB6%f", &number) != 1)
        return false;
    *value = number;
    return std::isfinite(number);
}

class Reader
{
public:
    explicit Reader(std::istream& stream) : stream(stream), found(false) { line[0] = '\0'; }

    bool read()
    {
        while (goes_on()) {
            next_line();
            if (begins_with(line, keys[0]))
                read_blocks();
            else if (begins_with(line, "(1)"))
                read_lines("(%*d) %f %f %f");
            else if (begins_with(line, "1"))
                read_lines("%*d %f %f %f");
        }
        return found && !stream.bad() && !is_full();
    }

    std::vector<bsVector> points;

private:
    bool is_full() const { return points.size() > reference_file_max_points; }
    bool goes_on() const { return !stream.eof() && !stream.bad() && !is_full(); }

    // Leaves an empty line at the end of the file and in place of one that is too long.
    void next_line()
    {
        stream.getline(line, sizeof(line));
        if (!stream.fail())
            return;
        line[0] = '\0';
        if (!goes_on())
            return;
        stream.clear();
        stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }

    // The end of the file is asked for before the line just read is looked at: the writer ends
    // every line, so one without an end is a torn one.
    void read_lines(const char* pattern)
    {
        found = true;
        for (; goes_on(); next_line()) {
            bsVector point;
            if (scan_point(line, pattern, &point))
                points.push_back(point);
        }
    }

    void read_blocks()
    {
        found = true;
        const std::size_t before = points.size();
        double x;
        for (; scan_coordinate(line, 0, &x) && !is_full(); next_line())
            points.push_back(bsVector(x, missing_coordinate, missing_coordinate));
        const std::size_t count = points.size() - before;
        read_coordinates(&bsVector::y, 1, count);
        read_coordinates(&bsVector::z, 2, count);
    }

    void read_coordinates(double bsVector::*coordinate, int axis, std::size_t count)
    {
        double value;
        for (std::size_t i = 0; scan_coordinate(line, axis, &value); ++i, next_line())
            if (i < count)
                points[i].*coordinate = value;
    }

    std::istream& stream;
    bool found;
    char line[reference_file_max_line + 1];
};

// True if `part` is an int; otherwise it becomes "0".
bool repair_part(QString& part)
{
    bool is_int = false;
    part.toInt(&is_int, 10);
    if (!is_int)
        part = QLatin1String("0");
    return is_int;
}

} // namespace

bool read_reference_points(std::istream& stream, std::vector<bsVector>& points)
{
    const CNumbers c_numbers;
    Reader reader(stream);
    if (!reader.read())
        return false;
    points.swap(reader.points);
    return true;
}

QString reference_point_line(int number, QString x, QString y, QString z)
{
    repair_number(x);
    repair_number(y);
    repair_number(z);
    return QString::fromLatin1("%1 %2 %3 %4\n").arg(number).arg(x).arg(y).arg(z);
}

bool repair_number(QString& text)
{
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    QString integer = text.section(QLatin1Char('.'), 0, 0);
    QString fraction =
        text.section(QLatin1Char('.'), 1, 1).leftJustified(2, QLatin1Char('0'), true);
    const bool integer_is_int = repair_part(integer);
    const bool fraction_is_int = repair_part(fraction);
    text = integer + QLatin1Char('.') + fraction;
    return integer_is_int && fraction_is_int;
}

void add_txt_extension(QString& file_name)
{
    file_name = file_name.trimmed();
    if (!file_name.endsWith(QLatin1String(".txt")))
        file_name += QLatin1String(".txt");
}
