#include "src/bsMatrix.h"
#include "tests/src/rigid_samples.h"
#include "tests/support/abort_catcher.h"

#include <QtTest>

#include <cmath>
#include <functional>
#include <map>

namespace
{

// Element (r, c) is 10 r + c.
bsMatrix numbered()
{
    bsMatrix m;
    for (int i = 0; i < 16; ++i)
        m(i / 4, i % 4) = 10 * (i / 4) + i % 4;
    return m;
}

} // namespace

class TestMatrix : public QObject
{
    Q_OBJECT

private slots:
    void lies_in_memory_column_after_column()
    {
        const bsMatrix m = numbered();
        const double* array = m;
        QCOMPARE(array[12], 3.0);
        QCOMPARE(bsMatrix(array).data(2, 1), 21.0);
        QVERIFY(m.getRow(1) == bsVector(10, 11, 12));
        QVERIFY(m.getColumn(3) == bsVector(3, 13, 23));
        QVERIFY(!std::signbit((-bsMatrix())(0, 0)));
        bsMatrix transposed;
        QCOMPARE(m.getTranspose(transposed)(1, 3), 31.0);
        QVERIFY(transposed.transpose() == m);
        QVERIFY(bsMatrix() == bsMatrix::getNullMatrix());
    }

    void stops_the_program_on_misuse()
    {
        bsMatrix m;
        const bsMatrix& same = m;
        const std::map<std::string, std::function<void()>> misuses = {
            {"setRow", [&] { m.setRow(4, bsVector(), 0); }},
            {"setColumn", [&] { m.setColumn(4, bsVector(), 0); }},
            {"getRow", [&] { m.getRow(-1); }},
            {"getColumn", [&] { m.getColumn(-1); }},
            {"operator=", [&] { m = same; }},
        };
        for (const auto& misuse : misuses) {
            const std::string said = stderr_of_abort(misuse.second);
            const bool assigns = misuse.first == "operator=";
            const auto expression = said.find(assigns ? "`&m != this'" : "`n>=0 && n<4'");
            QVERIFY2(said.find("src/bsMatrix.") == 0, misuse.first.c_str());
            QVERIFY2(said.find(misuse.first) < expression, said.c_str());
        }
    }

    void equality_has_a_strict_tolerance()
    {
        for (int i = 0; i < 16; ++i) {
            double values[16] = {};
            values[i] = 1e-8;
            QVERIFY(bsMatrix(values) == bsMatrix());
            values[i] = -1e-7;
            QVERIFY(bsMatrix(values) != bsMatrix());
            values[i] = NAN;
            QVERIFY(bsMatrix(values) != bsMatrix(values));
        }
    }

    void products_apply_the_right_factor_first()
    {
        const bsMatrix turn = bsMatrix().rotationZ(90);
        bsMatrix m = bsMatrix().translation(bsVector(1, 2, 3));
        QVERIFY(turn * m * bsVector(1, 0, 0) == bsVector(-2, 2, 3));
        m *= turn;
        QVERIFY(m * bsVector(1, 0, 0) == bsVector(1, 3, 3));
        m = numbered();
        m *= m;
        QCOMPARE(m(1, 2), 10.0 * 2 + 11 * 12 + 12 * 22 + 13 * 32);
        // The product with a vector divides by the fourth coordinate.
        const bsVector v(2, 4, 6);
        m.setIdentity();
        m(3, 3) = 2.0;
        QVERIFY(m * v == bsVector(1, 2, 3));
        m(3, 3) = 0.0;
        QVERIFY(m * v == v);
        m(3, 3) = NAN;
        QVERIFY(std::isnan((m * v).x));
    }

    void rotations_turn_as_documented()
    {
        const bsVector v(1, 2, 3);
        QVERIFY(bsMatrix().rotationX(90) * v == bsVector(1, -3, 2));
        QVERIFY(bsMatrix().rotationY(90) * v == bsVector(3, 2, -1));
        QVERIFY(bsMatrix().rotationZ(90) * v == bsVector(-2, 1, 3));
        QVERIFY(bsMatrix(5.0).rotation(-33.3, bsVector(0, 1, 0)) == bsMatrix().rotationY(33.3));
        QVERIFY(bsMatrix().rotation(120, bsVector(1, 1, 1).normalize()) * v == bsVector(2, 3, 1));
    }

    void fast_inverse_undoes_hard_poses()
    {
        const bsMatrix& identity = bsMatrix::getIdentityMatrix();
        for (const bsMatrix& pose : hard_poses()) {
            bsMatrix inverse;
            pose.fastInvert(inverse);
            QVERIFY(largest_difference(inverse * pose, identity) < 1e-11);
            QVERIFY(largest_difference(inverse.fastInvert(), pose) < 1e-11);
        }
        bsMatrix odd_corner = bsMatrix().translation(2, 4, 6);
        odd_corner.setRow(3, bsVector(7, 8, 9), 2.0);
        odd_corner.fastInvert();
        QVERIFY(odd_corner.getColumn(3) == bsVector(-2, -4, -6));
        QVERIFY(odd_corner.getRow(3) == bsVector());
        QCOMPARE(odd_corner(3, 3), 2.0);
    }

    void gauss_inverse_follows_its_own_pivot_rule()
    {
        // Every diagonal element is 0, which the search takes at once, and dividing by it gives
        // NaNs.
        bsMatrix out;
        bsMatrix().rotationX(90).gaussInvert(out);
        QVERIFY(std::isnan(out(1, 1)) || std::isinf(out(1, 1)));
        // No element of a column is small: each search ends at the last row. The rows change places
        // but for their last column, so that the inverse is right but for its last column.
        bsMatrix m = numbered() + bsMatrix(1.0);
        m(0, 0) = 5;
        m(2, 1) = -7;
        m(3, 3) = 100;
        m.gaussInvert(out);
        bsMatrix difference = m * out - bsMatrix::getIdentityMatrix();
        QVERIFY(bsVector(difference.getColumn(3)) != bsVector());
        difference.setColumn(3, bsVector(), 0.0);
        QVERIFY(difference == bsMatrix());
        QVERIFY(m.gaussInvert() == out);
    }

    void determinant_and_norm()
    {
        const bsMatrix a = numbered() + bsMatrix().rotationX(33) * 40.0;
        const bsMatrix b = numbered() - bsMatrix().scaling(7, -30, 20);
        const double product = a.getDeterminant() * b.getDeterminant();
        QVERIFY(std::fabs((a * b).getDeterminant() / product - 1.0) < 1e-9);
        QVERIFY(bsMatrix().scaling(bsVector(2, 3, -4)) * bsVector(1.0) == bsVector(2, 3, -4));
        QCOMPARE(bsMatrix().scaling(2, 3, -4).getDeterminant(), -24.0);
        bsMatrix corner;
        corner(0, 0) = 5.0;
        QCOMPARE(corner.getNorm(), 0.0);
        corner(3, 3) = 3.0;
        corner(0, 3) = 4.0;
        QCOMPARE(corner.getNorm(), 5.0);
    }

    void orthonormal_looks_at_lengths_only()
    {
        bsMatrix m = bsMatrix::getIdentityMatrix();
        m.setRow(0, bsVector(0.7071068, 0.7071068, 0), 100);
        m.setRow(1, bsVector(0.7071068, 0.7071068, 0), 100);
        for (double square : {1.0, 1.0011, 0.9989, double(NAN)}) {
            m(2, 2) = std::sqrt(square);
            QCOMPARE(m.isOrthonormal(), square == 1.0 || std::isnan(square));
        }
    }
};

QTEST_APPLESS_MAIN(TestMatrix)
#include "test_bsMatrix.moc"
