#include "src/bsVector.h"
#include "tests/support/abort_catcher.h"

#include <QtTest>

#include <cmath>

namespace
{

bool is_exactly(const bsVector& v, double x, double y, double z)
{
    return v.x == x && v.y == y && v.z == z;
}

} // namespace

class TestVector : public QObject
{
    Q_OBJECT

private slots:
    void is_an_array_of_three()
    {
        bsVector v(1, 2, 3);
        v[2] = 30;
        static_cast<double*>(v)[0] = 10;
        QVERIFY(is_exactly(v, 10, 2, 30));
        for (int bad : {-1, 3}) {
            const std::string said = stderr_of_abort([&] { v[bad] = 1; });
            QVERIFY(said.find("src/bsVector.") == 0);
            QVERIFY(said.find("operator[]") < said.find("`false'"));
        }
    }

    void calculates_component_by_component()
    {
        const bsVector a(1, 2, 3), b(2, 4, -8);
        QVERIFY(is_exactly(a * b, 2, 8, -24));
        QVERIFY(is_exactly(b / a, 2, 2, -8.0 / 3.0));
        QVERIFY(is_exactly(a ^ b, 2 * -8 - 3 * 4, 3 * 2 - 1 * -8, 1 * 4 - 2 * 2));
        QVERIFY(is_exactly(bsVector(5, 9, 11) / 49.0, 5.0 / 49.0, 9.0 / 49.0, 11.0 / 49.0));
        QVERIFY(std::signbit((-bsVector()).x));
        QVERIFY(is_exactly(bsVector(a).minimize(b), 1, 2, -8));
        QVERIFY(is_exactly(bsVector(a).maximize(b), 2, 4, 3));
        bsVector v(b);
        v ^= v;
        QVERIFY(is_exactly(v, 0, 0, 0));
    }

    void compares_all_components_at_once()
    {
        const struct
        {
            const char* oddity;
            bsVector a, b;
            std::string holds;
        } rows[] = {
            {"nearly equal", {0, 0, 0}, {1e-8, 0, 0}, "== <= "},
            {"tolerance excluded", {0, 0, 0}, {1e-7, 0, 0}, "!= <= "},
            {"one component equal", {0, 0, 0}, {1, 1, 0}, "!= <= "},
            {"all greater", {1, 2, 3}, {0, 0, 0}, "!= > >= "},
            {"equal and neither", {1e-8, 0, 0}, {0, 1e-8, 0}, "== "},
            {"NaN", {0, 0, NAN}, {0, 0, NAN}, "!= "},
        };
        for (const auto& row : rows) {
            const bsVector &a = row.a, &b = row.b;
            const bool results[] = {a == b, a != b, a<b, a> b, a <= b, a >= b};
            const char* const names[] = {"== ", "!= ", "< ", "> ", "<= ", ">= "};
            std::string holding;
            for (int i = 0; i < 6; ++i)
                holding += results[i] ? names[i] : "";
            QVERIFY2(holding == row.holds, row.oddity);
        }
    }

    void normalizes_all_but_tiny_vectors()
    {
        QVERIFY(is_exactly(bsVector(1e-8, 0, 0).normalize(), 1e-8, 0, 0));
        QVERIFY(is_exactly(bsVector(0, 2e-7, 0).normalize(), 0, 1, 0));
        QVERIFY(is_exactly(bsVector(3, 0, -4).normalize(), 0.6, 0, -0.8));
        QVERIFY(std::isnan(bsVector(1, NAN, 0).normalize().x));
    }

    void snaps_ties_to_the_later_axis()
    {
        const struct
        {
            const char* oddity;
            bsVector from;
            bsVector axis;
        } rows[] = {
            {"-x", {-5, 4, 4}, {-1, 0, 0}},
            {"x leads by too little", {1 + 5e-8, -1, 0}, {0, -1, 0}},
            {"x beats y and ties with z", {2, 1, -2}, {0, 0, -1}},
            {"y and z tie", {0, 1, 1}, {0, 0, 1}},
            {"null", {0, 0, 0}, {0, 0, -1}},
        };
        for (const auto& row : rows)
            QVERIFY2(row.from.getSnappedToAxis() == row.axis, row.oddity);
    }

    void spherical_and_angles_agree()
    {
        const double degree = std::acos(-1.0) / 180.0;
        for (double elevation : {-89.999999, -45.0, -1e-6, 0.0, 30.0, 90.0})
            for (double azimuth : {-180.0, -90.0, 0.0, 1e-6, 60.0, 180.0}) {
                const double e = elevation * degree, a = azimuth * degree;
                const bsVector v = bsVector().setValuesFromSpherical(e, a, 2.0);
                const double from_y = bsVector::getAngleD(v, bsVector(0, 5, 0));
                QVERIFY(std::fabs(from_y - (90.0 - elevation)) < 1e-5);
                const double flat = 2.0 * std::cos(e);
                QVERIFY(v == bsVector(flat * std::sin(a), v.y, flat * std::cos(a)));
            }
        QVERIFY(std::isnan(bsVector::getAngleR(bsVector(), bsVector(1, 0, 0))));
        QVERIFY(bsVector::isOrthogonal(bsVector(1, 0, 0), bsVector(9e-8, 1, 0)));
        QVERIFY(!bsVector::isOrthogonal(bsVector(1, 0, 0), bsVector(1e-7, 1, 0)));
    }
};

QTEST_APPLESS_MAIN(TestVector)
#include "test_bsVector.moc"
