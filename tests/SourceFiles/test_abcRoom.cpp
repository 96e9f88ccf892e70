#include "SourceFiles/abcRoom.h"
#include "controller/roomadjustmentdata.h"
#include "tests/support/fatal_logger.h"

#include <QSignalSpy>
#include <QtTest>

#include <random>
#include <vector>

namespace
{

RoomAdjustmentData record_of(const bsMatrix& m)
{
    RoomAdjustmentData data;
    for (int i = 0; i < 9; ++i)
        data.rotation[i] = m(i % 3, i / 3);
    for (int r = 0; r < 3; ++r)
        data.translation[r] = m(r, 3);
    data.scaling = 1.25;
    return data;
}

bsMatrix matrix_of(const RoomAdjustmentData& data)
{
    bsMatrix m =
        bsMatrix().translation(data.translation[0], data.translation[1], data.translation[2]);
    for (int i = 0; i < 9; ++i)
        m(i % 3, i / 3) = data.rotation[i];
    return m;
}

bsMatrix some_pose()
{
    return bsMatrix().translation(100, -20, 3) * bsMatrix().rotationX(20)
           * bsMatrix().rotationZ(-70);
}

void move(abcRoom& room, double x)
{
    room.frame.position.setValues(x, 2 * x, 0);
    room.frame.orientation.fromAxis(x, bsVector(1, 1, 0));
}

} // namespace

class TestRoom : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void loads_and_saves_what_is_stored()
    {
        const bsMatrix& identity = bsMatrix::getIdentityMatrix();
        abcRoom room(nullptr);
        QSignalSpy loaded(&room, SIGNAL(roomLoaded(bool)));
        RoomAdjustmentData data = record_of(some_pose());
        QVERIFY(room.load(&data));
        QVERIFY(room.loaded_inverse * some_pose() == identity);
        QVERIFY(room.getOriginFramePosition() == some_pose().getColumn(3));
        QCOMPARE(loaded.count(), 2);
        QVERIFY(!loaded[0][0].toBool() && loaded[1][0].toBool() && !room.modified);

        move(room, 33);
        const bsMatrix movement = room.frame.toMatrix();
        for (bool is_stored : {false, true}) {
            const bsMatrix expected = is_stored ? movement : identity;
            QVERIFY(!is_stored || room.store());
            room.save(&data, true);
            QVERIFY(matrix_of(data) * expected == identity);
            room.save(&data, false);
            QVERIFY(some_pose() * matrix_of(data) == expected);
            QCOMPARE(data.scaling, 1.25);
        }
    }

    void stores_nothing_below_the_tolerance()
    {
        abcRoom room(nullptr);
        move(room, 5);
        QVERIFY(room.store());
        room.undo();
        room.setModified(false);
        room.frame.position.setValues(9e-8, 0, 0);
        QVERIFY(!room.store());
        QVERIFY(!room.modified);
        QCOMPARE(room.frame.position.x, 9e-8);
        QCOMPARE(room.redo_list.size(), 1);
        room.cumulated = bsMatrix().translation(1, 0, 0);
        QVERIFY(room.store());
        QVERIFY(room.redo_list.isEmpty());
        QVERIFY(room.last_stored == room.cumulated);
    }

    void agrees_with_a_plain_list_of_states()
    {
        abcRoom room(nullptr);
        std::vector<bsMatrix> states(1, bsMatrix::getIdentityMatrix());
        std::size_t current = 0;
        std::mt19937 random(20);
        for (int step = 0; step < 500; ++step) {
            const unsigned int what = random() % 4;
            if (what == 0) {
                room.undo();
                current -= current > 0;
            } else if (what == 1) {
                room.redo();
                current += current + 1 < states.size();
            } else {
                move(room, 1.0 + random() % 50);
                states.resize(current + 1);
                states.push_back(states[current++] * room.frame.toMatrix());
                QVERIFY(room.store());
                QVERIFY(room.frame.toMatrix() == bsMatrix::getIdentityMatrix());
            }
            QVERIFY(room.getCumulatedTransformation() == states[current]);
            QCOMPARE(room.undo_list.size(), static_cast<int>(current));
            QCOMPARE(room.redo_list.size(), static_cast<int>(states.size() - 1 - current));
        }
    }

    void unloading_keeps_the_display()
    {
        abcRoom room(nullptr);
        RoomAdjustmentData data = record_of(some_pose());
        room.load(&data);
        room.setScaleFactor(7.0);
        room.xy_grid_on = true;
        room.undo_limit = 2; // drops the oldest
        for (int i = 0; i < 4; ++i) {
            room.frame.position.setValues(1, 0, 0);
            room.store();
        }
        QCOMPARE(room.undo_list.size(), 2);
        QCOMPARE(room.undo_list.first()(0, 3), 2.0);
        room.initialize();
        QVERIFY(!room.loaded && !room.modified && room.undo_list.isEmpty());
        QVERIFY(room.getOriginFramePosition() == bsVector());
        QCOMPARE(room.getScaleFactor(), 7.0);
        QVERIFY(room.xy_grid_on);
    }
};

QTEST_MAIN(TestRoom)
#include "test_abcRoom.moc"
