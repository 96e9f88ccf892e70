#include "tools/pointfile.h"

#include "platform/numericlocale.h"

#include <cctype>
#include <cstdlib>
#include <sstream>

namespace
{

constexpr std::size_t largest_file = 64u << 20; // bytes
constexpr char key[] = "Documentation_mPos[3][";
constexpr std::size_t value_column = 28; // of a keyed line, behind the first pilcrow

const char* const axis_names[3] = {"x", "y", "z"};

struct Line
{
    std::string text;
    bool is_taken = false;
};

std::vector<Line> split(const std::string& content)
{
    std::vector<Line> lines;
    std::istringstream stream(content);
    for (Line line; std::getline(stream, line.text);)
        lines.push_back(line);
    return lines;
}

bool is_keyed(const std::string& line) { return line.compare(0, sizeof key - 1, key) == 0; }

bool is_blank(const std::string& line)
{
    return line.find_first_not_of(" \t\r\f\v") == std::string::npos;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// Runs of characters that a number may hold, with at least one digit.
int count_numbers(const std::string& line)
{
    int count = 0;
    bool inside = false;
    for (char c : line) {
        const bool fits = is_digit(c) || c == '.' || c == '-' || c == '+';
        count += !inside && is_digit(c);
        inside = fits && (inside || is_digit(c));
    }
    return count;
}

bool has_decimal_comma(const std::string& line)
{
    for (std::size_t i = 1; i + 1 < line.size(); ++i)
        if (line[i] == ',' && is_digit(line[i - 1]) && is_digit(line[i + 1]))
            return true;
    return false;
}

/// Why a line that looks like a point is none.
QString complaint_about(const std::string& line, bool is_last)
{
    if (line.size() > reference_file_max_line)
        return QString::fromLatin1("is longer than %1 bytes").arg(int(reference_file_max_line));
    if (is_keyed(line))
        return QString::fromLatin1("has no value between two bytes 0xB6, or no x value of its own");
    if (has_decimal_comma(line))
        return QString::fromLatin1("has decimal commas; write points");
    if (is_last)
        return QString::fromLatin1("is the last line and has no line feed, so it is lost");
    if (line.compare(0, 3, "\xEF\xBB\xBF") == 0)
        return QString::fromLatin1("begins with a byte order mark");
    if (std::isspace(static_cast<unsigned char>(line[0])))
        return QString::fromLatin1("begins with a blank, or does not suit the form of the file");
    return QString::fromLatin1("does not suit the form of the file");
}

LineNote note_on(const Line& line, int number, bool is_last)
{
    const bool is_point = count_numbers(line.text) >= 3 || is_keyed(line.text)
                          || line.text.size() > reference_file_max_line;
    if (is_point)
        return {number, QString::fromLatin1("skipped: ") + complaint_about(line.text, is_last),
                true};
    return {number, QString::fromLatin1("skipped"), false};
}

void mark_taken(std::vector<Line>& lines, const ReferenceFileSource& source)
{
    for (const ReferenceFileSource::Lines& from : source.points)
        for (int line : from.of_axis)
            if (line > 0)
                lines[std::size_t(line) - 1].is_taken = true;
}

/// The number that `axis` was read from, before it lost digits.
double number_in(const std::string& line, ReferenceFileForm form, int axis)
{
    const char* text = line.c_str();
    if (form == reference_form_keyed || is_keyed(line))
        return strtod_l(text + std::min(line.size(), value_column), nullptr, c_numeric_locale());
    int start = 0;
    std::sscanf(text, *text == '(' ? "(%*d)%n" : "%*d%n", &start);
    char* end = const_cast<char*>(text) + start;
    double number = 0.0;
    for (int k = 0; k <= axis; ++k)
        number = strtod_l(end, &end, c_numeric_locale());
    return number;
}

void note_loss(LostDigits& lost, double loss, std::size_t point, int axis)
{
    if (loss > lost.most)
        lost = {loss, static_cast<int>(point) + 1, axis};
}

void note_lost_digits(PointFile& file, const std::vector<Line>& lines,
                      const ReferenceFileSource& source)
{
    for (std::size_t i = 0; i < file.points.size(); ++i)
        for (int axis = 0; axis < 3; ++axis) {
            const int line = source.points[i].of_axis[axis];
            if (line == 0) {
                file.notes.push_back({source.points[i].of_axis[0],
                                      QString::fromLatin1("point %1 has no %2; it becomes -999")
                                          .arg(i + 1)
                                          .arg(QLatin1String(axis_names[axis])),
                                      true});
                continue;
            }
            const double told = number_in(lines[std::size_t(line) - 1].text, file.form, axis);
            const double read = file.points[i][axis];
            const double shown = QString::number(read, 'f', 2).toDouble();
            note_loss(file.to_single, std::fabs(read - told), i, axis);
            note_loss(file.to_two_decimals, std::fabs(shown - told), i, axis);
        }
}

/// Notes on the lines that gave nothing; blank ones need none.
void note_skipped_lines(PointFile& file, const std::vector<Line>& lines, bool ends_with_feed)
{
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (!lines[i].is_taken && !is_blank(lines[i].text))
            file.notes.push_back(note_on(lines[i], static_cast<int>(i) + 1,
                                         i + 1 == lines.size() && !ends_with_feed));
}

QString read_error(const PointFile& file)
{
    if (file.form != reference_form_unknown)
        return QString::fromLatin1("%1: holds more than %2 points, or cannot be read")
            .arg(file.name)
            .arg(int(reference_file_max_points));
    for (const LineNote& note : file.notes)
        if (note.is_serious)
            return located(file.name,
                           {note.line,
                            QString::fromLatin1("unknown format: no line begins with \"1\", "
                                                "\"(1)\" or \"Documentation_mPos[3][0]\"; "
                                                "this is the first line with numbers"),
                            true});
    return QString::fromLatin1("%1: unknown format: it holds no points").arg(file.name);
}

bool read_content(std::istream& stream, std::string* content)
{
    char block[65536];
    while (content->size() <= largest_file && (stream.read(block, sizeof block) || stream.gcount()))
        content->append(block, static_cast<std::size_t>(stream.gcount()));
    return !stream.bad() && content->size() <= largest_file;
}

} // namespace

bool PointFile::is_serious() const
{
    return std::any_of(notes.begin(), notes.end(),
                       [](const LineNote& note) { return note.is_serious; });
}

PointFile read_point_file(std::istream& stream, const QString& name)
{
    PointFile file;
    file.name = name;
    std::string content;
    if (!stream.good() || !read_content(stream, &content)) {
        file.error = QString::fromLatin1("%1: cannot be read, or is too large").arg(name);
        return file;
    }
    std::vector<Line> lines = split(content);
    std::istringstream text(content);
    ReferenceFileSource source;
    const bool is_read = read_reference_points(text, file.points, &source);
    file.form = source.form;
    if (is_read) {
        mark_taken(lines, source);
        note_lost_digits(file, lines, source);
    }
    note_skipped_lines(file, lines, content.empty() || content.back() == '\n');
    std::stable_sort(file.notes.begin(), file.notes.end(),
                     [](const LineNote& a, const LineNote& b) { return a.line < b.line; });
    if (!is_read)
        file.error = read_error(file);
    return file;
}

QString form_name(ReferenceFileForm form)
{
    const char* const names[] = {"unknown", "numbered", "parenthesized", "keyed"};
    return QLatin1String(names[form]);
}

QString located(const QString& name, const LineNote& note)
{
    const QString place =
        note.line > 0 ? QString::fromLatin1("%1:%2").arg(name).arg(note.line) : name;
    return place + QLatin1String(": ") + note.text;
}
