#include "src/bsFrame.h"
#include "tests/src/rigid_samples.h"

#include <QtTest>

class TestFrame : public QObject
{
    Q_OBJECT

private slots:
    void a_copy_stands_where_its_source_stands();
    void a_copy_recomputes_its_orientation();
    void a_loop_is_found_among_the_ancestors();
};

void TestFrame::a_copy_stands_where_its_source_stands()
{
    bsFrame world;
    double worst = 0.0;
    for (const bsMatrix& pose : hard_poses()) {
        const bsFrame source(pose, &world);
        if (!has_safe_trace(pose) || !has_safe_trace(source.orientation.toMatrix()))
            continue;
        const bsFrame copy(source);
        QVERIFY(copy.position == pose.getColumn(3));
        QCOMPARE(copy.getReferenceFrame(), &world);
        worst = std::max(
            worst, largest_difference(copy.orientation.toMatrix(), source.orientation.toMatrix()));
    }
    qInfo("worst error: %g", worst);
    QVERIFY(worst < 1e-10);
}

void TestFrame::a_copy_recomputes_its_orientation()
{
    bsFrame frame(bsVector(1, 2, 3), bsQuaternion(0, 0, 0, -1), nullptr);
    QCOMPARE(frame.orientation.w, -1.0);
    frame = bsFrame(frame);
    QCOMPARE(frame.orientation.w, 1.0);
    // Twice the length: the matrix of (0, 0, 2, 0) has the diagonal -7, -7, 1.
    frame.orientation.setValues(0, 0, 2, 0);
    QCOMPARE(bsFrame(frame).orientation.z, 2.0);
    frame.orientation.setValues(0, 0, 0, 2);
    QCOMPARE(bsFrame(frame).orientation.w, 1.0);
}

void TestFrame::a_loop_is_found_among_the_ancestors()
{
    bsFrame a;
    bsFrame b;
    bsFrame c;
    QVERIFY(!a.isCreatingLoop(nullptr));
    QVERIFY(!a.isCreatingLoop(&a));
    b.setReferenceFrame(&a);
    c.setReferenceFrame(&b);
    QVERIFY(a.isCreatingLoop(&c));
    QVERIFY(!c.isCreatingLoop(&a));
}

QTEST_APPLESS_MAIN(TestFrame)
#include "test_bsFrame.moc"
