// Scanning primitives: cursors, groups, and numbers that read as the C library reads them.
#include "tests/support/comma_locale.h"
#include "tests/support/fatal_logger.h"
#include "tracking/zetrakparse.h"

#include <QtTest/QtTest>

#include <cstring>
#include <random>

using namespace ZetrakSDK_Parse;

namespace
{

const int failed = -1; // where a position would stand

int offset(const QByteArray& text, const char* position)
{
    return position ? static_cast<int>(position - text.constData()) : failed;
}

template <class Value>
bool same_bits(Value a, Value b)
{
    return std::memcmp(&a, &b, sizeof(Value)) == 0;
}

bool reads_as_strtod(char* text)
{
    char* end;
    const double expected = std::strtod(text, &end);
    double value = 1.0;
    float narrow = 1.0f;
    char* const behind = string_get_d(text, &value);
    char* const behind_narrow = string_get_f(text, &narrow);
    return (behind ? behind : text) == end && behind == behind_narrow && same_bits(value, expected)
           && same_bits(narrow, static_cast<float>(expected));
}

bool reads_as_strtol(char* text)
{
    char* end;
    const int expected = static_cast<int>(std::strtol(text, &end, 0));
    const unsigned expected_unsigned = static_cast<unsigned>(std::strtoul(text, &end, 0));
    int value = 1;
    unsigned unsigned_value = 1;
    char* const behind = string_get_i(text, &value);
    char* const behind_unsigned = string_get_ui(text, &unsigned_value);
    return (behind ? behind : text) == end && behind == behind_unsigned && value == expected
           && unsigned_value == expected_unsigned;
}

// Number texts of every length and shape that the conversions tell apart.
class NumberTexts
{
public:
    QByteArray next()
    {
        switch (random() % 4) {
        case 0:
            return QByteArray::number(any_double(), 'g', 1 + random() % 18);
        case 1:
            return QByteArray::number(static_cast<int>(random()) / 1000.0, 'f', random() % 8);
        case 2:
            return digits(1 + random() % 22) + "." + digits(random() % 22) + exponent();
        default:
            return sign() + digits(random() % 6) + exponent();
        }
    }

private:
    double any_double()
    {
        const std::uint64_t bits = (std::uint64_t(random()) << 32) | random();
        double value;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }

    QByteArray sign() { return QByteArray::fromRawData("+- \t", 4).mid(random() % 4, 1); }

    QByteArray digits(int count)
    {
        QByteArray text;
        for (int i = 0; i < count; ++i)
            text += static_cast<char>('0' + random() % 10);
        return text;
    }

    QByteArray exponent()
    {
        return random() % 2 ? QByteArray("e") + sign().trimmed() + digits(random() % 4) : "";
    }

    std::mt19937 random{20};
};

} // namespace

class TestZetrakParse : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void reads_random_numbers_as_the_library_does();
    void reads_the_fuzz_corpus_as_the_library_does();
    void reads_points_under_a_comma_locale();
    void reads_groups_data();
    void reads_groups();
    void reals_of_a_group_share_one_index();
    void cursors_move_data();
    void cursors_move();
};

// RA_EXHAUSTIVE=1 makes it ten million.
void TestZetrakParse::reads_random_numbers_as_the_library_does()
{
    const int count = qEnvironmentVariableIsSet("RA_EXHAUSTIVE") ? 10000000 : 500000;
    NumberTexts numbers;
    for (int i = 0; i < count; ++i) {
        QByteArray text = numbers.next();
        if (!reads_as_strtod(text.data()) || !reads_as_strtol(text.data()))
            QFAIL(text.constData());
    }
}

void TestZetrakParse::reads_the_fuzz_corpus_as_the_library_does()
{
    const QFileInfoList files = QDir(RA_CORPUS "/parse_line").entryInfoList(QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QByteArray text = file.readAll();
        for (char& c : text)
            QVERIFY2(reads_as_strtod(&c) && reads_as_strtol(&c), &c);
    }
}

void TestZetrakParse::reads_points_under_a_comma_locale()
{
    const CommaLocale comma;
    if (!comma.isActive())
        QSKIP("localedef could not make a locale here");
    for (const char* text : {"1.5]", "0x1.8]", "1.50000000000000000000000001]"}) {
        QByteArray writable(text);
        double value;
        char* const end = string_get_d(writable.data(), &value);
        QVERIFY(end && *end == ']');
        QCOMPARE(value, 1.5);
    }
}

void TestZetrakParse::reads_groups_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("integers");
    const struct
    {
        const char* name;
        const char* text;
        const char* format;
        int position;
        const char* integers; // "x" is untouched
    } rows[] = {
        {"words around, a number too many", "word [1 2.5 3] next", "id", 14, "1 x x"},
        {"too few", "[1 2] 3", "iii", failed, "1 2 0"},
        {"no closing bracket", "[1", "i", failed, "x x x"},
        {"closing bracket before the group", "2] [1]", "i", 6, "1 x x"},
        {"no group", "1]", "i", failed, "x x x"},
        {"unknown letter", "[1 2]", "ix", failed, "1 x x"},
        {"empty format", "[x][2]", "", 3, "x x x"},
        {"open nan ends with the group", "[nan(1] 5)]", "d", 7, "x x x"},
    };
    for (const auto& row : rows)
        QTest::newRow(row.name) << QByteArray(row.text) << QByteArray(row.format) << row.position
                                << QByteArray(row.integers);
}

void TestZetrakParse::reads_groups()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, format);
    int read[3] = {-7, -7, -7};
    double reals[3];
    QByteArray work(text.constData());
    QTEST(offset(work, string_get_block(work.data(), format, read, nullptr, reals)), "position");
    QCOMPARE(work, text);
    QByteArrayList integers;
    for (int integer : read)
        integers << (integer == -7 ? "x" : QByteArray::number(integer));
    QTEST(integers.join(' '), "integers");
}

void TestZetrakParse::reals_of_a_group_share_one_index()
{
    char text[] = "[1.5 7 2.5 3.5]";
    float floats[3] = {-1, -1, -1};
    double doubles[3] = {-1, -1, -1};
    int integer;
    QVERIFY(string_get_block(text, "fidf", &integer, floats, doubles));
    QCOMPARE(integer, 7);
    QVERIFY(floats[0] == 1.5f && floats[1] == -1 && floats[2] == 3.5f);
    QVERIFY(doubles[0] == -1 && doubles[1] == 2.5 && doubles[2] == -1);
}

void TestZetrakParse::cursors_move_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("argument");
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("result");
    const struct
    {
        const char* name; // function, then what is odd
        const char* text;
        const char* argument;
        int position;
        const char* result;
    } rows[] = {
        {"word: first of two", "  ab cd", "", 4, "ab"},
        {"word: last", "ab", "", 2, "ab"},
        {"word: blanks only", "   ", "", failed, ""},
        {"word: tab is no blank", "a\tb ", "", 3, "a\tb"},
        {"quote: plain", "a \"b c\" d", "", 7, "b c"},
        {"quote: empty", "\"\"", "", 2, ""},
        {"quote: no escape", "\"a\\\"b\"", "", 4, "a\\"},
        {"quote: only one", "\"abc", "", failed, "old"},
        {"quote: none", "abc", "", failed, "old"},
        {"line: run of line ends", "ab\r\n\n\rcd", "0", 6, "old"},
        {"line: from within a run", "ab\r\ncd", "3", 4, "old"},
        {"line: nothing behind the last", "ab\n", "0", failed, "old"},
        {"line: no line end", "abc", "0", failed, "old"},
        {"line: zero byte within", "a|b\nc", "0", 4, "old"},
        {"line: zero byte begins the next", "a\n|c", "0", failed, "old"},
        {"line: from the end", "a\nb", "3", failed, "old"},
        {"compare: word", "get x", "get", 4, "old"},
        {"compare: blanks behind", "get   x", "get", 6, "old"},
        {"compare: runs of blanks", "a   b c", "a b", 6, "old"},
        {"compare: zeros of the parameter", "c1 x", "c01", 3, "old"},
        {"compare: zeros of the text", "c001 x", "c1", 5, "old"},
        {"compare: zeros within a number count", "c11 x", "c101", failed, "old"},
        {"compare: other word", "got x", "get", failed, "old"},
        {"compare: text too short", "ge", "get", failed, "old"},
        {"compare: steps over one character", "get:x", "get", 4, "old"},
        {"compare: text ends with the match", "get", "get", 4, "old"},
    };
    for (const auto& row : rows)
        QTest::newRow(row.name) << QByteArray(row.text).replace('|', '\0')
                                << QByteArray(row.argument) << row.position
                                << QByteArray(row.result);
}

void TestZetrakParse::cursors_move()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, argument);
    const QByteArray function = QTest::currentDataTag();
    std::string result = "old";
    char* position;
    if (function.startsWith("word"))
        position = string_get_word(text.data(), result);
    else if (function.startsWith("quote"))
        position = string_get_quoted_text(text.data(), result);
    else if (function.startsWith("line"))
        position = string_nextline(text.data(), text.data() + argument.toInt(), text.size());
    else
        position = string_cmp_parameter(text.data(), argument);
    QTEST(offset(text, position), "position");
    QTEST(QByteArray::fromStdString(result), "result");
}

QTEST_APPLESS_MAIN(TestZetrakParse)
#include "test_zetrakparse.moc"
