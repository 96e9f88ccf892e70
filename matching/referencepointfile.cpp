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
const double missing_coordinate = -999.0; // in mm
const float cell_range = 2147483648.0f;   // in mm; `repair_number` takes less

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

// False for what is not a number, too.
bool fits_cell(float value) { return std::fabs(value) < cell_range; }

// `pattern` leaves out the point's number and has three "%f".
bool scan_point(const char* line, const char* pattern, bsVector* point)
{
    float v[3];
    if (std::sscanf(line, pattern, &v[0], &v[1], &v[2]) != 3)
        return false;
    *point = bsVector(v);
    return fits_cell(v[0]) && fits_cell(v[1]) && fits_cell(v[2]);
}

bool scan_coordinate(const char* line, int axis, double* value)
{
    float number;
    if (!begins_with(line, keys[axis]) || std::sscanf(line + key_length, ":3:\xB6%f", &number) != 1)
        return false;
    *value = number;
    return fits_cell(number);
}

class Reader
{
public:
    explicit Reader(std::istream& stream) : stream(stream), found(false), line_number(0)
    {
        line[0] = '\0';
        source.form = reference_form_unknown;
    }

    bool read()
    {
        while (goes_on()) {
            next_line();
            if (line_number == 1)
                skip_byte_order_mark();
            if (begins_with(line, keys[0]))
                read_blocks();
            else if (begins_with(line, "(1)"))
                read_lines("(%*d) %f %f %f", reference_form_parenthesized);
            else if (begins_with(line, "1"))
                read_lines("%*d %f %f %f", reference_form_numbered);
        }
        return found && !stream.bad() && !is_full();
    }

    std::vector<bsVector> points;
    ReferenceFileSource source;

private:
    void start(ReferenceFileForm form)
    {
        if (!found)
            source.form = form;
        found = true;
    }

    void add_point(const bsVector& point, int y_line, int z_line)
    {
        const ReferenceFileSource::Lines lines = {{line_number, y_line, z_line}};
        points.push_back(point);
        source.points.push_back(lines);
    }

    bool is_full() const { return points.size() > reference_file_max_points; }
    bool goes_on() const { return !stream.eof() && !stream.bad() && !is_full(); }

    // Leaves an empty line at the end of the file and in place of one that is too long.
    void next_line()
    {
        stream.getline(line, sizeof(line));
        ++line_number;
        if (!stream.fail())
            return;
        line[0] = '\0';
        if (!goes_on())
            return;
        stream.clear();
        stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }

    // Some editors put three bytes before UTF-8 text.
    void skip_byte_order_mark()
    {
        const char mark[] = "\xEF\xBB\xBF";
        if (begins_with(line, mark))
            std::memmove(line, line + std::strlen(mark), std::strlen(line + std::strlen(mark)) + 1);
    }

    // The end of the file is asked for before the line just read is looked at: the writer ends
    // every line, so one without an end is a torn one.
    void read_lines(const char* pattern, ReferenceFileForm form)
    {
        start(form);
        for (; goes_on(); next_line()) {
            bsVector point;
            if (scan_point(line, pattern, &point))
                add_point(point, line_number, line_number);
        }
    }

    void read_blocks()
    {
        start(reference_form_keyed);
        const std::size_t before = points.size();
        double x;
        for (; scan_coordinate(line, 0, &x) && !is_full(); next_line())
            add_point(bsVector(x, missing_coordinate, missing_coordinate), 0, 0);
        const std::size_t count = points.size() - before;
        read_coordinates(&bsVector::y, 1, count);
        read_coordinates(&bsVector::z, 2, count);
    }

    void read_coordinates(double bsVector::*coordinate, int axis, std::size_t count)
    {
        double value;
        for (std::size_t i = 0; scan_coordinate(line, axis, &value); ++i, next_line())
            if (i < count) {
                points[i].*coordinate = value;
                source.points[i].of_axis[axis] = line_number;
            }
    }

    std::istream& stream;
    bool found;
    int line_number;
    char line[reference_file_max_line + 1];
};

// The code points of signs that look like a minus and come with pasted text: the hyphens and dashes
// from U+2010 to U+2014, the minus sign, and the small and wide hyphens.
bool is_minus(QChar c)
{
    const ushort code = c.unicode();
    return (code >= 0x2010 && code <= 0x2014) || code == 0x2212 || code == 0xfe58 || code == 0xfe63
           || code == 0xff0d;
}

// Blanks of any width, line ends, and the invisible marks that some programs put around a number.
bool is_blank(QChar c) { return c.isSpace() || c.category() == QChar::Other_Format; }

QString without_blanks_around(const QString& text)
{
    int first = 0;
    int last = text.size();
    while (first < last && is_blank(text[first]))
        ++first;
    while (last > first && is_blank(text[last - 1]))
        --last;
    return text.mid(first, last - first);
}

bool is_digits(const QString& text)
{
    for (int i = 0; i < text.size(); ++i)
        if (text[i] < QLatin1Char('0') || text[i] > QLatin1Char('9'))
            return false;
    return !text.isEmpty();
}

// Only plain digits with a sign before them: QString::toInt takes more, which nothing else reads.
bool is_int(const QString& text)
{
    const bool has_sign = text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+'));
    bool in_range = false;
    text.toInt(&in_range, 10);
    return in_range && is_digits(text.mid(has_sign ? 1 : 0));
}

} // namespace

bool read_reference_points(std::istream& stream, std::vector<bsVector>& points,
                           ReferenceFileSource* source)
{
    const CNumbers c_numbers;
    Reader reader(stream);
    const bool is_read = reader.read();
    if (source)
        *source = reader.source;
    if (!is_read)
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
    text = without_blanks_around(text);
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    for (int i = 0; i < text.size(); ++i)
        if (is_minus(text[i]))
            text[i] = QLatin1Char('-');
    QString integer = text.section(QLatin1Char('.'), 0, 0);
    QString fraction =
        text.section(QLatin1Char('.'), 1, 1).leftJustified(2, QLatin1Char('0'), true);
    const bool has_integer = is_int(integer);
    const bool has_fraction = is_digits(fraction);
    if (!has_integer)
        integer = QLatin1String("0");
    if (!has_fraction)
        fraction = QLatin1String("0");
    text = integer + QLatin1Char('.') + fraction;
    return has_integer && has_fraction;
}

void add_txt_extension(QString& file_name)
{
    file_name = file_name.trimmed();
    if (!file_name.endsWith(QLatin1String(".txt")))
        file_name += QLatin1String(".txt");
}
