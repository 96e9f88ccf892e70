#include "src/bsMatrix.h"
#include "tests/src/rigid_samples.h"
#include "tests/support/abort_catcher.h"

#include <QtTest>

#include <functional>
#include <iostream>
#include <limits>
#include <sstream>

namespace
{

// Element (r, c) is 10 r + c.
bsMatrix numbered()
{
    bsMatrix m;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            m(r, c) = 10 * r + c;
    return m;
}

} // namespace

class TestMatrix : public QObject
{
    Q_OBJECT

private slots:
    void lies_in_memory_column_after_column();
    void starts_as_null_and_not_as_identity();
    void stops_the_program_on_misuse();
    void equality_has_a_strict_tolerance();
    void products_apply_the_right_factor_first();
    void divides_by_the_fourth_coordinate();
    void rotations_turn_as_documented();
    void fast_inverse_undoes_hard_poses();
    void fast_inverse_keeps_the_corner();
    void gauss_inverse_follows_its_own_pivot_rule();
    void determinant_and_norm();
    void orthonormal_looks_at_lengths_only();
    void goes_through_streams();
};

void TestMatrix::lies_in_memory_column_after_column()
{
    const bsMatrix m = numbered();
    const double* array = m;
    QCOMPARE(array[12], 3.0);
    QCOMPARE(array[3], 30.0);
    QCOMPARE(bsMatrix(array).data(2, 1), 21.0);
    QVERIFY(m.getRow(1) == bsVector(10, 11, 12));
    QVERIFY(m.getColumn(3) == bsVector(3, 13, 23));
    QVERIFY(!std::signbit((-bsMatrix())(0, 0)));
    bsMatrix transposed;
    QCOMPARE(&m.getTranspose(transposed), &transposed);
    QCOMPARE(transposed(1, 3), 31.0);
    QVERIFY(transposed.transpose() == m);
}

void TestMatrix::starts_as_null_and_not_as_identity()
{
    QVERIFY(bsMatrix() == bsMatrix::getNullMatrix());
    QVERIFY(bsMatrix() != bsMatrix::getIdentityMatrix());
    QVERIFY(bsMatrix(3.0).setIdentity() == bsMatrix::getIdentityMatrix());
    QVERIFY(bsMatrix(3.0).setNull() == bsMatrix());
    QCOMPARE(&bsMatrix::getIdentityMatrix(), &bsMatrix::getIdentityMatrix());
}

void TestMatrix::stops_the_program_on_misuse()
{
    bsMatrix m;
    const bsMatrix& same = m;
    const struct
    {
        std::function<void()> code;
        const char* expression;
        const char* function;
    } misuses[] = {
        {[&] { m.setRow(4, bsVector(), 0); }, "`n>=0 && n<4'", "setRow"},
        {[&] { m.setColumn(4, bsVector(), 0); }, "`n>=0 && n<4'", "setColumn"},
        {[&] { m.getRow(-1); }, "`n>=0 && n<4'", "getRow"},
        {[&] { m.getColumn(-1); }, "`n>=0 && n<4'", "getColumn"},
        {[&] { m = same; }, "`&m != this'", "operator="},
    };
    for (const auto& misuse : misuses) {
        const std::string said = stderr_of_abort(misuse.code);
        QVERIFY2(said.find("src/bsMatrix.") == 0, misuse.function);
        QVERIFY2(said.find(misuse.expression) != std::string::npos, said.c_str());
        QVERIFY2(said.find(misuse.function) != std::string::npos, said.c_str());
    }
}

void TestMatrix::equality_has_a_strict_tolerance()
{
    for (int i = 0; i < 16; ++i) {
        double values[16] = {};
        values[i] = 1e-8;
        QVERIFY(bsMatrix(values) == bsMatrix());
        values[i] = -1e-7;
        QVERIFY(bsMatrix(values) != bsMatrix());
        values[i] = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(bsMatrix(values) != bsMatrix(values));
    }
}

void TestMatrix::products_apply_the_right_factor_first()
{
    const bsMatrix turn = bsMatrix().rotationZ(90);
    const bsMatrix move = bsMatrix().translation(bsVector(1, 2, 3));
    QVERIFY(move * turn * bsVector(1, 0, 0) == bsVector(1, 3, 3));
    QVERIFY(turn * move * bsVector(1, 0, 0) == bsVector(-2, 2, 3));
    bsMatrix m(move);
    QVERIFY((m *= turn) == move * turn);
    m = numbered();
    m *= m;
    QVERIFY(m == numbered() * numbered());
    QCOMPARE(m(1, 2), 10.0 * 2 + 11 * 12 + 12 * 22 + 13 * 32);
    QVERIFY(bsMatrix().scaling(bsVector(2, 3, 4)) * bsVector(1, 1, 1) == bsVector(2, 3, 4));
}

void TestMatrix::divides_by_the_fourth_coordinate()
{
    bsMatrix m = bsMatrix::getIdentityMatrix();
    m(3, 3) = 2.0;
    QVERIFY(m * bsVector(2, 4, 6) == bsVector(1, 2, 3));
    m(3, 3) = 0.0;
    QVERIFY(m * bsVector(2, 4, 6) == bsVector(2, 4, 6));
    m(3, 0) = 0.5;
    QVERIFY(m * bsVector(2, 4, 6) == bsVector(2, 4, 6));
    m(3, 3) = std::numeric_limits<double>::quiet_NaN();
    QVERIFY(std::isnan((m * bsVector(2, 4, 6)).x));
}

void TestMatrix::rotations_turn_as_documented()
{
    const bsVector x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    QVERIFY(bsMatrix().rotationX(90) * y == z);
    QVERIFY(bsMatrix().rotationY(90) * z == x);
    QVERIFY(bsMatrix().rotationZ(90) * x == y);
    double worst = 0.0;
    for (double a : hard_angles()) {
        const double errors[] = {
            largest_difference(bsMatrix(5.0).rotation(a, x), bsMatrix().rotationX(-a)),
            largest_difference(bsMatrix(5.0).rotation(a, y), bsMatrix().rotationY(-a)),
            largest_difference(bsMatrix(5.0).rotation(a, z), bsMatrix().rotationZ(-a)),
        };
        worst = std::max(worst, *std::max_element(errors, errors + 3));
    }
    qInfo("worst error: %g", worst);
    QVERIFY(worst < 1e-15);
    QVERIFY(bsMatrix().rotation(120, bsVector(1, 1, 1).normalize()) * x == z);
}

void TestMatrix::fast_inverse_undoes_hard_poses()
{
    double worst_product = 0.0;
    double worst_twice = 0.0;
    for (const bsMatrix& pose : hard_poses()) {
        bsMatrix inverse;
        pose.fastInvert(inverse);
        worst_product =
            std::max(worst_product, largest_difference(inverse * pose, bsMatrix().setIdentity()));
        worst_twice = std::max(worst_twice, largest_difference(inverse.fastInvert(), pose));
    }
    qInfo("worst error: %g of the product, %g of the double inverse", worst_product, worst_twice);
    QVERIFY(worst_product < 1e-11);
    QVERIFY(worst_twice < 1e-11);
}

void TestMatrix::fast_inverse_keeps_the_corner()
{
    bsMatrix m = bsMatrix().translation(2, 4, 6);
    m.setRow(3, bsVector(7, 8, 9), 2.0);
    m.fastInvert();
    QVERIFY(m.getColumn(3) == bsVector(-2, -4, -6));
    QVERIFY(m.getRow(3) == bsVector());
    QCOMPARE(m(3, 3), 2.0);
}

void TestMatrix::gauss_inverse_follows_its_own_pivot_rule()
{
    // Every diagonal element is 0, which the search takes at once, and dividing by it gives NaNs.
    bsMatrix out;
    bsMatrix().rotationX(90).gaussInvert(out);
    QVERIFY(std::isnan(out(1, 1)) || std::isinf(out(1, 1)));
    // No element of a column is small: the search ends at the last row.
    bsMatrix m = numbered() + bsMatrix(1.0);
    m(0, 0) = 5;
    m(2, 1) = -7;
    m.gaussInvert(out);
    m.gaussInvert();
    QVERIFY(m == out);
    QVERIFY(std::isfinite(out(0, 0)));
}

void TestMatrix::determinant_and_norm()
{
    bsMatrix a = numbered() + bsMatrix().rotationX(33) * 40.0;
    const bsMatrix b = numbered() - bsMatrix().scaling(7, -30, 20);
    QVERIFY(std::fabs(a.getDeterminant()) > 1.0 && std::fabs(b.getDeterminant()) > 1.0);
    const double product = a.getDeterminant() * b.getDeterminant();
    QVERIFY(std::fabs((a * b).getDeterminant() / product - 1.0) < 1e-9);
    QVERIFY(std::fabs((a *= 2.0).getDeterminant() * b.getDeterminant() / product - 16.0) < 1e-9);
    QCOMPARE(bsMatrix().scaling(2, 3, -4).getDeterminant(), -24.0);
    bsMatrix corner;
    corner(0, 0) = 5.0;
    QCOMPARE(corner.getNorm(), 0.0);
    corner(3, 3) = 3.0;
    corner(0, 3) = 4.0;
    QCOMPARE(corner.getNormeSquared(), 25.0);
    QCOMPARE(corner.getNorm(), 5.0);
}

void TestMatrix::orthonormal_looks_at_lengths_only()
{
    bsMatrix m;
    m.setRow(0, bsVector(0.7071068, 0.7071068, 0), 100);
    m.setRow(1, bsVector(0.7071068, 0.7071068, 0), 100);
    m.setRow(2, bsVector(0, 0, 1), 100);
    QVERIFY(m.isOrthonormal());
    m(2, 2) = std::sqrt(1.0011);
    QVERIFY(!m.isOrthonormal());
    m(2, 2) = std::sqrt(0.9989);
    QVERIFY(!m.isOrthonormal());
    m(2, 2) = std::numeric_limits<double>::quiet_NaN();
    QVERIFY(m.isOrthonormal());
}

void TestMatrix::goes_through_streams()
{
    std::ostringstream out;
    out << numbered();
    const std::string text = out.str();
    QVERIFY(text.find("[0\t1\t2\t3\t]\n[10\t11\t12\t13\t]\n") == 0);
    QCOMPARE(std::count(text.begin(), text.end(), '\n'), std::ptrdiff_t(4));
    std::istringstream in("0 1 2 3 10 11 12 13 20 21 22 23 30 31 32 33");
    std::ostringstream prompts;
    std::streambuf* const standard_output = std::cout.rdbuf(prompts.rdbuf());
    bsMatrix m;
    in >> m;
    std::cout.rdbuf(standard_output);
    QVERIFY(m == numbered());
    QCOMPARE(prompts.str(), std::string("? a0 b0 c0 d0 : ? a1 b1 c1 d1 : "
                                        "? a2 b2 c2 d2 : ? a3 b3 c3 d3 : "));
}

QTEST_APPLESS_MAIN(TestMatrix)
#include "test_bsMatrix.moc"
