#include "src/bsVector.h"
#include "tests/support/abort_catcher.h"

#include <QtTest>

#include <cmath>
#include <iostream>
#include <limits>
#include <sstream>

Q_DECLARE_METATYPE(bsVector)

namespace
{

const double not_a_number = std::numeric_limits<double>::quiet_NaN();

bool is_exactly(const bsVector& v, double x, double y, double z)
{
    return v.x == x && v.y == y && v.z == z;
}

std::string text_of(const bsVector& v)
{
    std::ostringstream out;
    out << v;
    return out.str();
}

} // namespace

class TestVector : public QObject
{
    Q_OBJECT

private slots:
    void is_an_array_of_three();
    void calculates_component_by_component();
    void compares_all_components_at_once_data();
    void compares_all_components_at_once();
    void normalizes_all_but_tiny_vectors();
    void snaps_ties_to_the_later_axis_data();
    void snaps_ties_to_the_later_axis();
    void spherical_and_angles_agree();
    void goes_through_streams();
};

void TestVector::is_an_array_of_three()
{
    bsVector v(1, 2, 3);
    v[2] = 30;
    double* values = v;
    values[0] = 10;
    const bsVector copy(v);
    const double* copied = copy;
    QVERIFY(is_exactly(bsVector(copied[0], copied[1], copied[2]), 10, 2, 30));
    for (int bad : {-1, 3}) {
        const std::string said = stderr_of_abort([&] { v[bad] = 1; });
        QVERIFY(said.find("src/bsVector.") == 0);
        QVERIFY(said.find("operator[]") != std::string::npos);
        QVERIFY(said.find("`false'") != std::string::npos);
    }
}

void TestVector::calculates_component_by_component()
{
    const bsVector a(1, 2, 3);
    const bsVector b(2, 4, -8);
    QVERIFY(is_exactly(a + b, 3, 6, -5));
    QVERIFY(is_exactly(a - b, -1, -2, 11));
    QVERIFY(is_exactly(a * b, 2, 8, -24));
    QVERIFY(is_exactly(b / a, 2, 2, -8.0 / 3.0));
    QVERIFY(is_exactly(a * 2.0, 2, 4, 6));
    QVERIFY(is_exactly(a ^ b, 2 * -8 - 3 * 4, 3 * 2 - 1 * -8, 1 * 4 - 2 * 2));
    QVERIFY(is_exactly(bsVector(5, 9, 11) / 49.0, 5.0 / 49.0, 9.0 / 49.0, 11.0 / 49.0));
    QCOMPARE(bsVector::dotProduct(a, b), -14.0);
    QVERIFY(std::signbit((-bsVector()).x));
    QVERIFY(is_exactly(bsVector(a).minimize(b), 1, 2, -8));
    QVERIFY(is_exactly(bsVector(a).maximize(b), 2, 4, 3));
    bsVector v(a);
    v ^= v;
    QVERIFY(is_exactly(v, 0, 0, 0));
}

void TestVector::compares_all_components_at_once_data()
{
    QTest::addColumn<bsVector>("a");
    QTest::addColumn<bsVector>("b");
    QTest::addColumn<QString>("holds");
    QTest::newRow("same") << bsVector(1, 2, 3) << bsVector(1, 2, 3) << "== <= >=";
    QTest::newRow("nearly equal") << bsVector(0.0) << bsVector(1e-8, 0, 0) << "== <=";
    QTest::newRow("tolerance excluded") << bsVector(0.0) << bsVector(1e-7, 0, 0) << "!= <=";
    QTest::newRow("one component equal") << bsVector(0.0) << bsVector(1, 1, 0) << "!= <=";
    QTest::newRow("all smaller") << bsVector(0.0) << bsVector(1, 2, 3) << "!= < <=";
    QTest::newRow("all greater") << bsVector(1, 2, 3) << bsVector(0.0) << "!= > >=";
    QTest::newRow("neither") << bsVector(1, 0, 0) << bsVector(0, 1, 0) << "!=";
    QTest::newRow("equal and neither") << bsVector(1e-8, 0, 0) << bsVector(0, 1e-8, 0) << "==";
    QTest::newRow("NaN") << bsVector(0, 0, not_a_number) << bsVector(0, 0, not_a_number) << "!=";
}

void TestVector::compares_all_components_at_once()
{
    QFETCH(bsVector, a);
    QFETCH(bsVector, b);
    QStringList holding;
    const auto note = [&holding](bool holds, const char* name) {
        if (holds)
            holding << name;
    };
    note(a == b, "==");
    note(a != b, "!=");
    note(a < b, "<");
    note(a > b, ">");
    note(a <= b, "<=");
    note(a >= b, ">=");
    QTEST(holding.join(' '), "holds");
}

void TestVector::normalizes_all_but_tiny_vectors()
{
    QVERIFY(is_exactly(bsVector(1e-8, 0, 0).normalize(), 1e-8, 0, 0));
    QVERIFY(is_exactly(bsVector(0, 2e-7, 0).normalize(), 0, 1, 0));
    QVERIFY(is_exactly(bsVector(3, 0, -4).normalize(), 0.6, 0, -0.8));
    QVERIFY(std::isnan(bsVector(1, not_a_number, 0).normalize().x));
}

void TestVector::snaps_ties_to_the_later_axis_data()
{
    QTest::addColumn<bsVector>("from");
    QTest::addColumn<QString>("axis");
    QTest::newRow("x") << bsVector(1, 0, 0) << "{1,0,0}";
    QTest::newRow("-x") << bsVector(-5, 4, 4) << "{-1,0,0}";
    QTest::newRow("x and y tie") << bsVector(1, 1, 0) << "{0,1,0}";
    QTest::newRow("x leads by too little") << bsVector(1 + 5e-8, -1, 0) << "{0,-1,0}";
    QTest::newRow("x beats y and ties with z") << bsVector(2, 1, -2) << "{0,0,-1}";
    QTest::newRow("y and z tie") << bsVector(0, 1, 1) << "{0,0,1}";
    QTest::newRow("all tie") << bsVector(-1, -1, -1) << "{0,0,-1}";
    QTest::newRow("null") << bsVector() << "{0,0,-1}";
}

void TestVector::snaps_ties_to_the_later_axis()
{
    QFETCH(bsVector, from);
    QTEST(QString::fromStdString(text_of(from.getSnappedToAxis())), "axis");
}

void TestVector::spherical_and_angles_agree()
{
    const double degree = std::acos(-1.0) / 180.0;
    double worst = 0.0;
    for (double elevation : {-89.999999, -45.0, -1e-6, 0.0, 30.0, 90.0})
        for (double azimuth : {-180.0, -90.0, 0.0, 1e-6, 60.0, 180.0}) {
            const bsVector v =
                bsVector().setValuesFromSpherical(elevation * degree, azimuth * degree, 2.0);
            const double from_y = bsVector::getAngleD(v, bsVector(0, 1, 0));
            const double z = 2.0 * std::cos(elevation * degree) * std::cos(azimuth * degree);
            worst = std::max({worst, std::fabs(from_y - (90.0 - elevation)), std::fabs(v.z - z)});
        }
    qInfo("worst error: %g", worst);
    QVERIFY(worst < 1e-5);
    QVERIFY(bsVector().setValuesFromSpherical(0, 90 * degree, 3) == bsVector(3, 0, 0));
    QVERIFY(std::isnan(bsVector::getAngleR(bsVector(), bsVector(1, 0, 0))));
    QVERIFY(bsVector::isOrthogonal(bsVector(1, 0, 0), bsVector(9e-8, 1, 0)));
    QVERIFY(!bsVector::isOrthogonal(bsVector(1, 0, 0), bsVector(1e-7, 1, 0)));
}

void TestVector::goes_through_streams()
{
    QCOMPARE(text_of(bsVector(1, -2.5, 1e-9)), std::string("{1,-2.5,1e-09}"));
    std::istringstream in("1.5 -2\n3e2");
    std::ostringstream prompts;
    std::streambuf* const standard_output = std::cout.rdbuf(prompts.rdbuf());
    bsVector v;
    in >> v;
    std::cout.rdbuf(standard_output);
    QVERIFY(is_exactly(v, 1.5, -2, 300));
    QCOMPARE(prompts.str(), std::string("x : \ny : \nz : "));
}

QTEST_APPLESS_MAIN(TestVector)
#include "test_bsVector.moc"
