#include "src/bsFrame.h"
#include "tests/src/rigid_samples.h"

#include <QtTest>

class TestFrame : public QObject
{
    Q_OBJECT

private slots:
    void a_copy_stands_where_its_source_stands()
    {
        bsFrame world;
        for (const bsMatrix& pose : hard_poses()) {
            const bsFrame source(pose, &world), copy(source);
            const bool safe = has_safe_trace(pose) && has_safe_trace(source.orientation.toMatrix());
            QCOMPARE(copy.getReferenceFrame(), &world);
            QVERIFY(!safe || largest_difference(copy.toMatrix(), source.toMatrix()) < 1e-10);
        }
    }

    void a_copy_recomputes_its_orientation()
    {
        bsFrame frame(bsVector(1, 2, 3), bsQuaternion(0, 0, 0, -1), nullptr);
        frame = bsFrame(frame);
        QCOMPARE(frame.orientation.w, 1.0);
        // Twice the length: the matrix of (0, 0, 2, 0) has the diagonal -7, -7, 1.
        frame.orientation.setValues(0, 0, 2, 0);
        QCOMPARE(bsFrame(frame).orientation.z, 2.0);
    }

    void a_loop_is_found_among_the_ancestors()
    {
        bsFrame a, b, c;
        b.setReferenceFrame(&a);
        c.setReferenceFrame(&b);
        QVERIFY(a.isCreatingLoop(&c));
        QVERIFY(!c.isCreatingLoop(&a));
        QVERIFY(!a.isCreatingLoop(&a));
        QVERIFY(!a.isCreatingLoop(nullptr));
    }
};

QTEST_APPLESS_MAIN(TestFrame)
#include "test_bsFrame.moc"
