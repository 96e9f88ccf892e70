// Reference-point files: what is recognised, what becomes a point, and the repair of numbers.
#include "matching/referencepointfile.h"
#include "tests/support/comma_locale.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>

#include <fstream>
#include <sstream>

namespace
{

QString describe(const std::vector<bsVector>& points)
{
    QStringList texts;
    for (const bsVector& p : points)
        texts << QString("%1 %2 %3").arg(p.x).arg(p.y).arg(p.z);
    return texts.join("; ");
}

// What reading `content` makes of a list of one point (7, 8, 9); "unknown" if it stays.
QString read(const QByteArray& content)
{
    std::istringstream stream(content.toStdString());
    std::vector<bsVector> points(1, bsVector(7, 8, 9));
    if (read_reference_points(stream, points))
        return describe(points);
    return describe(points) == "7 8 9" ? "unknown" : "changed";
}

QByteArray keyed(int axis, const QByteArray& value)
{
    return "Documentation_mPos[3][" + QByteArray::number(axis) + "]:3:\xB6" + value + "\xB6\n";
}

// Gives its text, then fails as a broken disk does.
struct BrokenBuffer : std::stringbuf
{
    explicit BrokenBuffer(const std::string& text) : std::stringbuf(text, std::ios::in) {}
    int_type underflow() override { throw std::ios_base::failure("read error"); }
};

} // namespace

class TestReferencePointFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void reads_the_three_formats()
    {
        const char* const rows[][2] = {
            {"1 1 2 3\n2 -4.5 5e1 6\n", "1 2 3; -4.5 50 6"},
            {"(1) 1 2 3\n(7)4 5 6\n", "1 2 3; 4 5 6"},
            {"Object 1\n\n 1 9 9 9\n1 1 2 3\n", "1 2 3"},
            {"1 1 2 3\n\nx\n2 4 5\n  3 7 8 9 end\n", "1 2 3; 7 8 9"},
            {"1\t1  2\t3\r\n\t 2 4 5 6\r\n", "1 2 3; 4 5 6"},
            {"(1) 1 2 3\n (2) 4 5 6\n(3) 7 8 9\n", "1 2 3; 7 8 9"},
            {"(1) 1 2 3\n( 2) 4 5 6\n(3 ) 7 8 9\n", "1 2 3; 4 5 6"},
            {"1st object\n2 4 5 6\n", "4 5 6"},
            {"2 1 2 3\n3 4 5 6\n", "unknown"},
            {"10 1 2 3\n", "1 2 3"},
            {"1.5 2 3\n1-4-5-6\n", "0.5 2 3; -4 -5 -6"},
            {"1 1 2 3\n99999999999999999999 4 5 6\n", "1 2 3; 4 5 6"},
            {"1 1,5 2 3\n", ""},
            {"1 nan 2 3\n2 1 -inf 3\n3 1 2 1e39\n4 1 2 0x10\n", "1 2 16"},
            {"1 1 2 3\n2 4 5 6", "1 2 3"},
            {"1 1 2 3", ""},
            {"(1)\n", ""},
            {"", "unknown"},
            {"\xEF\xBB\xBF"
             "1 1 2 3\n",
             "1 2 3"}, // a byte order mark
            {"1 -2147483520 2 3\n1 1 2147483648 3\n", "-2.14748e+09 2 3"},
            {"1 1 2 3| 4\n|2 4 5 6\n3 7 8| 9\n", "1 2 3"}, // | is a zero byte
        };
        for (const auto& row : rows)
            QCOMPARE(read(QByteArray(row[0]).replace('|', '\0')), QString(row[1]));
    }

    void reads_keyed_blocks()
    {
        const QByteArray x = keyed(0, "1") + keyed(0, "2");
        const QByteArray y = keyed(1, "3") + keyed(1, "4");
        const QByteArray z = keyed(2, "5") + keyed(2, "6");
        const QByteArray rows[][2] = {
            {"head\n" + x + y + z, "1 3 5; 2 4 6"},
            {(x + y + z).chopped(1), "1 3 5; 2 4 6"},
            {x + y, "1 3 -999; 2 4 -999"},
            {x + keyed(1, "3") + z, "1 3 5; 2 -999 6"},
            {keyed(0, "1") + y + z + z, "1 3 5"},
            {y + x + y, "1 3 -999; 2 4 -999"},
            {x + y + z + "1 1 1 1\n2 2 2 2\n", "1 3 5; 2 4 6"}, // what ends the blocks is lost
            {keyed(0, "1") + "\n1 4 5 6\n", "1 -999 -999; 4 5 6"},
            {x + y + z + "\n" + keyed(0, "8"), "1 3 5; 2 4 6; 8 -999 -999"},
            {x + y + z + "\n" + keyed(0, "8") + keyed(1, "7") + y, "1 7 5; 2 4 6; 8 -999 -999"},
            {"Documentation_mPos[3][0]:3:\xC2\xB6" + QByteArray("1\xC2\xB6\n"), ""}, // in UTF-8
        };
        for (const auto& row : rows)
            QCOMPARE(read(row[0]), QString(row[1]));
    }

    void reads_under_a_comma_locale()
    {
        const CommaLocale comma;
        if (!comma.isActive())
            QSKIP("localedef could not make a locale here");
        QCOMPARE(read("1 1.5 2,5 3\n2 1.5 2.25 3\n"), QString("1.5 2.25 3"));
        QCOMPARE(read(keyed(0, "1.5")), QString("1.5 -999 -999"));
        QVERIFY(comma.isActive());
    }

    void long_lines_are_no_points()
    {
        const QByteArray point = "2 4 5 6";
        const QByteArray longest = point + QByteArray(reference_file_max_line - point.size(), ' ');
        QCOMPARE(read("1 1 2 3\n" + longest + "\n3 7 8 9\n"), QString("1 2 3; 4 5 6; 7 8 9"));
        QCOMPARE(read("1 1 2 3\n" + longest + " \n3 7 8 9\n"), QString("1 2 3; 7 8 9"));
        QCOMPARE(read("1" + longest + "1 4 5 6\n" + point + "\n"), QString("unknown"));
        QCOMPARE(read("x" + longest + "\n1 1 2 3\n"), QString("1 2 3"));
        QCOMPARE(read(keyed(0, "1") + "x" + longest + "\n" + keyed(1, "2")),
                 QString("1 -999 -999"));
        QCOMPARE(read("1 1 2 3\n" + longest + longest), QString("1 2 3"));
    }

    void too_many_points_are_refused()
    {
        const QByteArray most = QByteArray("1 1 2 3\n").repeated(reference_file_max_points);
        QCOMPARE(read(most).count(';'), reference_file_max_points - 1);
        QCOMPARE(read(most + "1 1 2 3\n"), QString("unknown"));
        QCOMPARE(read(keyed(0, "1").repeated(reference_file_max_points + 1)), QString("unknown"));
    }

    void junk_ends_in_time()
    {
        const int megabytes = qEnvironmentVariableIsSet("RA_EXHAUSTIVE") ? 100 : 4;
        const QByteArray rows[][2] = {{QByteArray(1, '\0'), "unknown"},
                                      {"\n", "unknown"},
                                      {"1\n", ""},
                                      {"1", "unknown"},
                                      {keyed(0, ""), ""}};
        for (const auto& row : rows) {
            const QByteArray junk = row[0].repeated((megabytes << 20) / row[0].size());
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(read(junk), QString(row[1]));
            QVERIFY2(timer.elapsed() < megabytes * 1000, "slower than 1 MB/s");
        }
    }

    void read_errors_change_nothing()
    {
        std::vector<bsVector> points(1, bsVector(7, 8, 9));
        BrokenBuffer buffer("1 1 2 3\n2 4 5 6\n");
        std::istream broken(&buffer);
        std::ifstream folder("/"), missing("/no such file");
        QVERIFY(!read_reference_points(broken, points));
        QVERIFY(!read_reference_points(folder, points) && !read_reference_points(missing, points));
        QCOMPARE(describe(points), QString("7 8 9"));
    }

    void written_lines_read_back_through_float()
    {
        QCOMPARE(reference_point_line(1, "-3.5", "12,345", "x"), QString("1 -3.50 12.34 0.00\n"));
        std::istringstream stream(reference_point_line(2, "0.1", "16777217", "+4").toStdString());
        std::vector<bsVector> points(1);
        QVERIFY(!read_reference_points(stream, points) && points.size() == 1);
        stream.str("1 0.10 16777217.00 +4.00\n");
        stream.clear();
        QVERIFY(read_reference_points(stream, points));
        QVERIFY(points[0] == bsVector(0.1f, 16777216, 4)
                && points[0].x == 0.100000001490116119384765625);
    }

    void repairs_numbers()
    {
        const QString minus(QChar(0x2212)), thin(QChar(0x2009)), mark(QChar(0x200e));
        const struct
        {
            QString text;
            const char* repaired;
            bool good;
        } rows[] = {{"12", "12.00", true},
                    {"12,5", "12.50", true},
                    {"0.999", "0.99", true},
                    {"1.2.3", "1.20", true},
                    {"+5", "+5.00", true},
                    {"007", "007.00", true},
                    {".5", "0.50", false},
                    {"12.x", "12.0", false},
                    {"1e3", "0.00", false},
                    {"", "0.00", false},
                    {"-2147483648.9", "-2147483648.90", true},
                    {"2147483648", "0.00", false},
                    {minus + "5", "-5.00", true},
                    {QString(QChar(0x2013)) + "0,5", "-0.50", true},
                    {thin + "100.5" + QChar(0xa0), "100.50", true},
                    {mark + "100\n" + mark, "100.00", true},
                    {"1" + thin + "000", "0.00", false},
                    {"7.-5", "7.0", false},
                    {QChar(0x0663), "0.00", false}}; // an Arabic digit
        for (const auto& row : rows) {
            QString text = row.text;
            QCOMPARE(repair_number(text), row.good);
            QCOMPARE(text, QString(row.repaired));
        }
    }

    void appends_the_extension()
    {
        const char* const rows[][2] = {{"points", "points.txt"},     {" a b.txt\n", "a b.txt"},
                                       {"a.TXT", "a.TXT.txt"},       {"a.txt.bak", "a.txt.bak.txt"},
                                       {"/tmp/x.txt", "/tmp/x.txt"}, {"txt", "txt.txt"}};
        for (const auto& row : rows) {
            QString name = row[0];
            add_txt_extension(name);
            QCOMPARE(name, QString(row[1]));
        }
    }
};

QTEST_APPLESS_MAIN(TestReferencePointFile)
#include "test_referencepointfile.moc"
