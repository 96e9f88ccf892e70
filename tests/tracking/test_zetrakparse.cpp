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

// -1 for no position.
int offset(const QByteArray& text, const char* position)
{
    return position ? static_cast<int>(position - text.constData()) : -1;
}

template <class Value>
bool same_bits(Value a, Value b)
{
    return std::memcmp(&a, &b, sizeof(Value)) == 0;
}

bool reads_as_the_library_does(char* text)
{
    char* end;
    const double expected = std::strtod(text, &end);
    double value = 1.0;
    float narrow = 1.0f;
    char* const behind = string_get_d(text, &value);
    if ((behind ? behind : text) != end || behind != string_get_f(text, &narrow)
        || !same_bits(value, expected) || !same_bits(narrow, static_cast<float>(expected)))
        return false;
    int integer = 1;
    unsigned natural = 1;
    char* const behind_integer = string_get_i(text, &integer);
    return string_get_ui(text, &natural) == behind_integer
           && integer == static_cast<int>(std::strtol(text, &end, 0))
           && natural == static_cast<unsigned>(std::strtoul(text, &end, 0))
           && (behind_integer ? behind_integer : text) == end;
}

// Number texts of every length and shape that the conversions tell apart.
QByteArray number_text(std::mt19937& random)
{
    const std::uint64_t bits = (std::uint64_t(random()) << 32) | random();
    double any;
    std::memcpy(&any, &bits, sizeof(any));
    if (random() % 3 == 0)
        return QByteArray::number(any, 'g', 1 + random() % 18);
    QByteArray text(random() % 40, ' ');
    for (char& digit : text)
        digit = static_cast<char>('0' + random() % 10);
    text.truncate(1 + random() % 40);
    text.insert(random() % 30, '.').prepend("+- \t0"[random() % 5]);
    return random() % 2 ? text
                        : text + "e" + QByteArray("+-").mid(random() % 3, 1) + text.mid(1, 3);
}

} // namespace

class TestZetrakParse : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    // RA_EXHAUSTIVE=1 makes it ten million.
    void reads_random_numbers_as_the_library_does()
    {
        std::mt19937 random(20);
        for (int i = qEnvironmentVariableIsSet("RA_EXHAUSTIVE") ? 10000000 : 500000; i > 0; --i) {
            QByteArray text = number_text(random);
            QVERIFY2(reads_as_the_library_does(text.data()), text);
        }
    }

    void reads_points_under_a_comma_locale()
    {
        const CommaLocale comma;
        if (!comma.isActive())
            QSKIP("localedef could not make a locale here");
        for (QByteArray text : {"1.5]", "0x1.8]", "1.50000000000000000000000001]"}) {
            double value;
            char* const end = string_get_d(text.data(), &value);
            QVERIFY(end && *end == ']');
            QCOMPARE(value, 1.5);
        }
    }

    void reads_groups()
    {
        const struct
        {
            QByteArray text;
            const char* format;
            int position;
            const char* integers; // "x" is untouched
        } rows[] = {{"w [1 2.5 3] n", "id", 11, "1 x x"},
                    {"[1 2] 3", "iii", -1, "1 2 0"},
                    {"[1", "i", -1, "x x x"},
                    {"2] [1]", "i", 6, "1 x x"},
                    {"1]", "i", -1, "x x x"},
                    {"[1 2]", "ix", -1, "1 x x"},
                    {"[x][2]", "", 3, "x x x"},
                    {"[nan(1] 5)]", "d", 7, "x x x"}};
        for (const auto& row : rows) {
            int read[3] = {-7, -7, -7};
            double reals[3];
            QByteArray work(row.text.constData());
            char* const end = string_get_block(work.data(), row.format, read, nullptr, reals);
            QByteArrayList integers;
            for (int integer : read)
                integers << (integer == -7 ? "x" : QByteArray::number(integer));
            QVERIFY2(offset(work, end) == row.position && work == row.text, row.text);
            QVERIFY2(integers.join(' ') == row.integers, row.text);
        }
    }

    void reals_of_a_group_share_one_index()
    {
        char text[] = "[1.5 7 2.5 3.5]";
        float floats[3] = {-1, -1, -1};
        double doubles[3] = {-1, -1, -1};
        int integer;
        QVERIFY(string_get_block(text, "fidf", &integer, floats, doubles) && integer == 7);
        QVERIFY(floats[0] == 1.5f && floats[1] == -1 && floats[2] == 3.5f);
        QVERIFY(doubles[0] == -1 && doubles[1] == 2.5 && doubles[2] == -1);
    }

    void words_and_quotes_are_taken()
    {
        const struct
        {
            QByteArray text; // a quote begins with one
            int position;
            const char* result;
        } rows[] = {{"  ab cd", 4, "ab"},     {"ab", 2, "ab"},         {"   ", -1, ""},
                    {"a\tb ", 3, "a\tb"},     {"\"b c\" d", 5, "b c"}, {"\"\"", 2, ""},
                    {"\"a\\\"b\"", 4, "a\\"}, {"\"abc", -1, "old"}};
        for (const auto& row : rows) {
            QByteArray text = row.text;
            std::string result = "old";
            const auto take = text[0] == '"' ? string_get_quoted_text : string_get_word;
            QVERIFY2(offset(text, take(text.data(), result)) == row.position, text);
            QCOMPARE(result.c_str(), row.result);
        }
    }

    void lines_are_stepped_over()
    {
        const struct
        {
            QByteArray text; // | is a zero byte
            int from, position;
        } rows[] = {{"ab\r\n\n\rcd", 0, 6}, {"ab\r\ncd", 3, 4}, {"ab\n", 0, -1}, {"abc", 0, -1},
                    {"a|b\nc", 0, 4},       {"a\n|c", 0, -1},   {"a\nb", 3, -1}};
        for (const auto& row : rows) {
            QByteArray text = QByteArray(row.text).replace('|', '\0');
            char* const next = string_nextline(text.data(), text.data() + row.from, text.size());
            QVERIFY2(offset(text, next) == row.position, row.text);
        }
    }

    void parameters_are_compared()
    {
        const struct
        {
            QByteArray text;
            const char* parameter;
            int position;
        } rows[] = {{"get   x", "get", 6}, {"a   b c", "a b", 6}, {"c1 x", "c01", 3},
                    {"c001 x", "c1", 5},   {"c11 x", "c101", -1}, {"ge", "get", -1},
                    {"get:x", "get", 4},   {"get", "get", 4}};
        for (const auto& row : rows) {
            QByteArray text = row.text;
            QVERIFY2(offset(text, string_cmp_parameter(text.data(), row.parameter)) == row.position,
                     text);
        }
    }
};

QTEST_APPLESS_MAIN(TestZetrakParse)
#include "test_zetrakparse.moc"
