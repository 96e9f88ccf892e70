#include "src/bsQuaternion.h"
#include "tests/src/rigid_samples.h"

#include <QtTest>

#include <algorithm>
#include <iostream>
#include <sstream>

namespace
{

bool is_near(const bsQuaternion& q, double x, double y, double z, double w)
{
    const double components[] = {q.x - x, q.y - y, q.z - z, q.w - w};
    return std::all_of(components, components + 4, [](double d) { return std::fabs(d) < 1e-12; });
}

} // namespace

class TestQuaternion : public QObject
{
    Q_OBJECT

private slots:
    void survives_the_way_through_a_matrix()
    {
        for (bsMatrix pose : hard_poses()) {
            pose.setColumn(3, bsVector(), 1.0);
            const bsMatrix back = bsQuaternion().fromMatrix(pose).toMatrix();
            QVERIFY(!has_safe_trace(pose) || largest_difference(back, pose) < 1e-10);
        }
    }

    void agrees_with_the_rotation_matrices()
    {
        for (double a : hard_angles()) {
            const std::pair<bsVector, bsMatrix> rows[] = {
                {bsVector(3, 0, 0), bsMatrix().rotationX(a)},
                {bsVector(0, 1, 0), bsMatrix().rotationY(a)},
                {bsVector(0, 0, 1), bsMatrix().rotationZ(a)}};
            for (const auto& row : rows)
                QVERIFY(largest_difference(bsQuaternion(a, row.first).toMatrix(), row.second)
                        < 1e-15);
        }
    }

    void half_turns_take_the_branch_of_their_axis()
    {
        bsQuaternion q;
        for (bsVector axis : {bsVector(3, 1, 2), bsVector(1, 3, 2), bsVector(1, 2, 3)}) {
            axis.normalize();
            bsMatrix turn = bsQuaternion(axis.x, axis.y, axis.z, 0).toMatrix();
            turn(0, 0) -= 1e-9; // holds the trace below -1, whatever way it rounds
            q.fromMatrix(turn);
            QVERIFY(bsVector(q.x, q.y, q.z) == axis);
            QVERIFY(std::fabs(q.w) < 1e-12);
        }
    }

    void the_trace_is_tested_without_tolerance()
    {
        const double excess = std::ldexp(1.0, -50);
        bsQuaternion q;
        q.fromMatrix(bsMatrix().scaling(1 + excess, -1, -1));
        QCOMPARE(q.x, 0.0);
        QCOMPARE(q.w, std::sqrt(excess) / 2);
        QCOMPARE(q.fromMatrix(bsMatrix().scaling(1 - excess, -1, -1)).x, 1.0);
        q.fromMatrix(bsMatrix().scaling(-0.5, 0.5, -1));
        QVERIFY(is_near(q, 0, std::sqrt(3.0) / 2, 0, 0));
    }

    void short_ones_become_the_identity()
    {
        QVERIFY(is_near(bsQuaternion(9e-8, 0, 0, 0).normalize(), 0, 0, 0, 1));
        QVERIFY(is_near(bsQuaternion(1.1e-7, 0, 0, 0).normalize(), 1, 0, 0, 0));
        QVERIFY(is_near(bsQuaternion(0, 3, 0, -4).normalize(), 0, 0.6, 0, -0.8));
        QVERIFY(is_near(bsQuaternion(270, bsVector()), 0, 0, 0, -1));
        QVERIFY(is_near(bsQuaternion(0, 0, 0, 0) * bsQuaternion(), 0, 0, 0, 1));
    }

    void product_is_that_of_the_matrices()
    {
        for (double a : hard_angles())
            for (double b : hard_angles()) {
                bsQuaternion p(a, bsVector(-1, 0.7, 0.5));
                const bsQuaternion q(b, bsVector(1, 2, 3));
                const bsMatrix expected = p.toMatrix() * q.toMatrix();
                QVERIFY(largest_difference((p * q).toMatrix(), expected) < 1e-14);
                p *= q;
                QVERIFY(largest_difference(p.toMatrix(), expected) < 1e-14);
            }
        QVERIFY(is_near(bsQuaternion(0, 0, 0, 5) * bsQuaternion(3, 0, 0, 0), 1, 0, 0, 0));
    }

    void slerp_goes_evenly_and_jumps_at_opposites()
    {
        const bsVector axis(1, -2, 2);
        bsQuaternion q;
        for (double t : {0.0, 0.25, 0.5, 1.0}) {
            q.slerp(bsQuaternion(20, axis), bsQuaternion(140, axis), t);
            QVERIFY(q.toMatrix() == bsQuaternion(20 + 120 * t, axis).toMatrix());
        }
        q.slerp(bsQuaternion(), bsQuaternion(), 0.3);
        QVERIFY(is_near(q, 0, 0, 0, 1));
        q.slerp(bsQuaternion(0.5, 0.5, 0.5, 0.5), bsQuaternion(-0.5, -0.5, -0.5, -0.5), 0.3);
        QVERIFY(is_near(q, 0, 0, 0, 0.5));
        q.slerp(bsQuaternion(2, 0, 3, 0), bsQuaternion(-4, 0, 0, 0), 0.5);
        const double k = std::sqrt(0.5);
        QVERIFY(is_near(q, -2 * k, 0, 3 * k, 3));
    }

    /// Quaternions, vectors and matrices, with the prompts of reading them.
    void everything_goes_through_streams()
    {
        const bsMatrix moved = bsMatrix().translation(7, 8, 9);
        std::ostringstream out, prompts;
        out << bsQuaternion(1, -2.5, 0, 1e-9) << bsVector(1, -2.5, 1e-9) << moved;
        QCOMPARE(out.str(), std::string("{1, -2.5, 0, 1e-09}{1,-2.5,1e-09}[1\t0\t0\t7\t]\n"
                                        "[0\t1\t0\t8\t]\n[0\t0\t1\t9\t]\n[0\t0\t0\t1\t]\n"));
        std::istringstream in("1 2 3 4.5 1.5 -2\n3e2 1 0 0 7 0 1 0 8 0 0 1 9 0 0 0 1");
        std::streambuf* const standard_output = std::cout.rdbuf(prompts.rdbuf());
        bsQuaternion q;
        bsVector v;
        bsMatrix m;
        in >> q >> v >> m;
        std::cout.rdbuf(standard_output);
        QVERIFY(is_near(q, 1, 2, 3, 4.5) && v == bsVector(1.5, -2, 300) && m == moved);
        QCOMPARE(prompts.str(), std::string("x : \ny : \nz : \nw : x : \ny : \nz : ? a0 b0 c0 d0 : "
                                            "? a1 b1 c1 d1 : ? a2 b2 c2 d2 : ? a3 b3 c3 d3 : "));
    }
};

QTEST_APPLESS_MAIN(TestQuaternion)
#include "test_bsQuaternion.moc"
