// Scanning primitives: cursors, groups, and numbers that read as the C library reads them.
#include "tests/support/comma_locale.h"
#include "tests/support/fatal_logger.h"
#include "tracking/zetrakparse.h"

#include <QtTest/QtTest>

#include <cstring>
#include <random>

using namespace ZetrakSDK_Parse;

namespace {

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
    return (behind ? behind : text) == end && behind == behind_narrow &&
           same_bits(value, expected) && same_bits(narrow, static_cast<float>(expected));
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
    return (behind ? behind : text) == end && behind == behind_unsigned && value == expected &&
           unsigned_value == expected_unsigned;
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

    void reads_reals_as_the_library_does_data();
    void reads_reals_as_the_library_does();
    void reads_integers_as_the_library_does_data();
    void reads_integers_as_the_library_does();
    void reads_random_numbers_as_the_library_does();
    void reads_the_fuzz_corpus_as_the_library_does();
    void reads_points_under_a_comma_locale();
    void reads_groups_data();
    void reads_groups();
    void reals_of_a_group_share_one_index();
    void takes_words_data();
    void takes_words();
    void takes_quoted_texts_data();
    void takes_quoted_texts();
    void finds_the_next_line_data();
    void finds_the_next_line();
    void compares_parameters_data();
    void compares_parameters();
};

void TestZetrakParse::reads_reals_as_the_library_does_data()
{
    QTest::addColumn<QByteArray>("text");
    const char* const texts[] = {"  1.5 2",
                                 "",
                                 "  ",
                                 "abc",
                                 ".",
                                 "-",
                                 "+.e1",
                                 "1.",
                                 ".5",
                                 "-.5e1x",
                                 "+5",
                                 "+-5",
                                 "1e",
                                 "1e+",
                                 "1e+x",
                                 "1.e-3",
                                 "0x10",
                                 "0x",
                                 "0x.8p1",
                                 "00x1",
                                 "-0",
                                 "-0e999",
                                 "0e99999999999",
                                 "inf",
                                 "-Infinity]",
                                 "nan",
                                 "nan(12)",
                                 "nan(12",
                                 "1e22",
                                 "1e23",
                                 "1e-22",
                                 "9007199254740992",
                                 "9007199254740993",
                                 "9007199254740993e-1",
                                 "18446744073709551616",
                                 "99999999999999999999",
                                 "1e400",
                                 "-1e400",
                                 "1e-400",
                                 "4.9e-324",
                                 "2.4703282292062327e-324",
                                 "2.2250738585072011e-308",
                                 "1.7976931348623158e308",
                                 "1.7976931348623159e308",
                                 "1e99999999999999999999",
                                 "0.0000000000000000000000000000000000000000000000001e49",
                                 "1,5",
                                 "1\v2",
                                 "\f\r\n7",
                                 "3.4028236e38",
                                 "1e-46"};
    for (const char* text : texts)
        QTest::newRow(text) << QByteArray(text);
}

void TestZetrakParse::reads_reals_as_the_library_does()
{
    QFETCH(QByteArray, text);
    QVERIFY(reads_as_strtod(text.data()));
}

void TestZetrakParse::reads_integers_as_the_library_does_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("value"); // also fixed here, as the library is the judge otherwise
    QTest::newRow("word") << QByteArray("abc") << 0;
    QTest::newRow("hexadecimal") << QByteArray(" 0x10 ") << 16;
    QTest::newRow("octal") << QByteArray("010") << 8;
    QTest::newRow("octal ends at 8") << QByteArray("018") << 1;
    QTest::newRow("lone x") << QByteArray("0x") << 0;
    QTest::newRow("binary prefix") << QByteArray("0b") << 0;
    QTest::newRow("zero before a bracket") << QByteArray("0[") << 0;
    QTest::newRow("minus") << QByteArray("-1") << -1;
    QTest::newRow("plus") << QByteArray("+12.5") << 12;
    QTest::newRow("two signs") << QByteArray("+-1") << 0;
    QTest::newRow("nine digits") << QByteArray("999999999]") << 999999999;
    QTest::newRow("ten digits") << QByteArray("2147483648") << INT_MIN;
    QTest::newRow("cut to 32 bits") << QByteArray("4294967301") << 5;
    QTest::newRow("beyond long") << QByteArray("99999999999999999999") << -1;
    QTest::newRow("below long") << QByteArray("-99999999999999999999") << 0;
    QTest::newRow("long line of zeros") << QByteArray(40, '0').append("7") << 7;
}

void TestZetrakParse::reads_integers_as_the_library_does()
{
    QFETCH(QByteArray, text);
    QFETCH(int, value);
    int read = 1;
    string_get_i(text.data(), &read);
    QCOMPARE(read, value);
    QVERIFY(reads_as_strtol(text.data()));
}

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
            QVERIFY2(reads_as_strtod(&c) && reads_as_strtol(&c), qPrintable(info.fileName()));
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
    QTest::addColumn<QList<int>>("integers"); // -7 is untouched
    QTest::newRow("words around, a number too many")
        << QByteArray("word [1 2.5 3] next") << QByteArray("id") << 14 << QList<int>{1, -7};
    QTest::newRow("too few") << QByteArray("[1 2] 3") << QByteArray("iii") << failed
                             << QList<int>{1, 2, 0};
    QTest::newRow("no closing bracket")
        << QByteArray("[1") << QByteArray("i") << failed << QList<int>{-7};
    QTest::newRow("closing bracket before the group")
        << QByteArray("2] [1]") << QByteArray("i") << 6 << QList<int>{1, -7};
    QTest::newRow("no group") << QByteArray("1]") << QByteArray("i") << failed << QList<int>{-7};
    QTest::newRow("unknown letter")
        << QByteArray("[1 2]") << QByteArray("ix") << failed << QList<int>{1, -7};
    QTest::newRow("empty format") << QByteArray("[x][2]") << QByteArray() << 3 << QList<int>{-7};
    QTest::newRow("open nan ends with the group")
        << QByteArray("[nan(1] 5)]") << QByteArray("d") << 7 << QList<int>{-7};
}

void TestZetrakParse::reads_groups()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, format);
    QFETCH(int, position);
    QFETCH(QList<int>, integers);
    int read[4] = {-7, -7, -7, -7};
    double reals[4];
    QByteArray work(text.constData());
    QCOMPARE(offset(work, string_get_block(work.data(), format, read, nullptr, reals)), position);
    QCOMPARE(work, text);
    for (int i = 0; i < integers.size(); ++i)
        QCOMPARE(read[i], integers[i]);
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

void TestZetrakParse::takes_words_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("first of two") << QByteArray("  ab cd") << 4 << QByteArray("ab");
    QTest::newRow("last") << QByteArray("ab") << 2 << QByteArray("ab");
    QTest::newRow("blanks only") << QByteArray("   ") << failed << QByteArray();
    QTest::newRow("tab is no blank") << QByteArray("a\tb ") << 3 << QByteArray("a\tb");
}

void TestZetrakParse::takes_words()
{
    QFETCH(QByteArray, text);
    std::string word = "old";
    QTEST(offset(text, string_get_word(text.data(), word)), "position");
    QTEST(QByteArray::fromStdString(word), "word");
}

void TestZetrakParse::takes_quoted_texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("quoted");
    QTest::newRow("plain") << QByteArray("a \"b c\" d") << 7 << QByteArray("b c");
    QTest::newRow("empty") << QByteArray("\"\"") << 2 << QByteArray();
    QTest::newRow("no escape") << QByteArray("\"a\\\"b\"") << 4 << QByteArray("a\\");
    QTest::newRow("one quote") << QByteArray("\"abc") << failed << QByteArray("old");
    QTest::newRow("none") << QByteArray("abc") << failed << QByteArray("old");
}

void TestZetrakParse::takes_quoted_texts()
{
    QFETCH(QByteArray, text);
    std::string quoted = "old";
    QTEST(offset(text, string_get_quoted_text(text.data(), quoted)), "position");
    QTEST(QByteArray::fromStdString(quoted), "quoted");
}

void TestZetrakParse::finds_the_next_line_data()
{
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("position");
    QTest::newRow("run of line ends") << QByteArray("ab\r\n\n\rcd") << 0 << 6;
    QTest::newRow("from within a run") << QByteArray("ab\r\ncd") << 3 << 4;
    QTest::newRow("nothing behind the last") << QByteArray("ab\n") << 0 << failed;
    QTest::newRow("no line end") << QByteArray("abc") << 0 << failed;
    QTest::newRow("zero byte within a line") << QByteArray("a\0b\nc", 5) << 0 << 4;
    QTest::newRow("zero byte begins the next") << QByteArray("a\n\0c", 4) << 0 << failed;
    QTest::newRow("from the end") << QByteArray("a\nb") << 3 << failed;
}

void TestZetrakParse::finds_the_next_line()
{
    QFETCH(QByteArray, buffer);
    QFETCH(int, from);
    QTEST(offset(buffer, string_nextline(buffer.data(), buffer.data() + from, buffer.size())),
          "position");
}

void TestZetrakParse::compares_parameters_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("parameter");
    QTest::addColumn<int>("position");
    QTest::newRow("word") << QByteArray("get x") << QByteArray("get") << 4;
    QTest::newRow("blanks behind") << QByteArray("get   x") << QByteArray("get") << 6;
    QTest::newRow("runs of blanks") << QByteArray("a   b c") << QByteArray("a b") << 6;
    QTest::newRow("zeros of the parameter") << QByteArray("c1 x") << QByteArray("c01") << 3;
    QTest::newRow("zeros of the text") << QByteArray("c001 x") << QByteArray("c1") << 5;
    QTest::newRow("zeros within a number count")
        << QByteArray("c11 x") << QByteArray("c101") << failed;
    QTest::newRow("other word") << QByteArray("got x") << QByteArray("get") << failed;
    QTest::newRow("text too short") << QByteArray("ge") << QByteArray("get") << failed;
    QTest::newRow("steps over one character") << QByteArray("get:x") << QByteArray("get") << 4;
    QTest::newRow("text ends with the match") << QByteArray("get") << QByteArray("get") << 4;
    QTest::newRow("zero ends both") << QByteArray("c0") << QByteArray("c0") << 3;
}

void TestZetrakParse::compares_parameters()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, parameter);
    QTEST(offset(text, string_cmp_parameter(text.data(), parameter)), "position");
}

QTEST_APPLESS_MAIN(TestZetrakParse)
#include "test_zetrakparse.moc"
