#include "coarse/coordinatecalculator.h"
#include "src/bsMatrix.h"

#include <QtTest/QtTest>

#include <array>
#include <vector>

namespace
{

// Columns are the positive axes of `axis`, written in the room: X right, Y up, Z out of the
// picture.
bsMatrix axes_in_room(const CoordinateAxix& axis)
{
    const int towards[] = {axis.right, axis.up, axis.out};
    bsMatrix result;
    result(3, 3) = 1.0;
    for (int direction = 0; direction < 3; ++direction)
        result(direction, towards[direction] / 2) = towards[direction] % 2 ? -1.0 : 1.0;
    return result;
}

bool is_legal(const CoordinateAxix& axis)
{
    const bool opposite =
        axis.left == (axis.right ^ 1) && axis.down == (axis.up ^ 1) && axis.in == (axis.out ^ 1);
    return opposite && axes_in_room(axis).getDeterminant() == 1.0;
}

CoordinateAxix assignment(int right, int up, int out)
{
    return {right ^ 1, right, up, up ^ 1, out, out ^ 1};
}

// All 24 right-handed assignments, found without any table.
std::vector<CoordinateAxix> all_assignments()
{
    std::vector<CoordinateAxix> result;
    for (int i = 0; i < 6 * 6 * 6; ++i)
        if (is_legal(assignment(i / 36, i / 6 % 6, i % 6)))
            result.push_back(assignment(i / 36, i / 6 % 6, i % 6));
    return result;
}

// Whether the assignment is legal in all six directions and stands so in the room.
bool stands(const CoordinateAxix& axis, const bsMatrix& in_room)
{
    return is_legal(axis) && axes_in_room(axis) == in_room;
}

using Angles = std::array<int, 3>;

Angles angles_of(CoordinateCalculator& calculator, const CoordinateAxix& axis)
{
    Angles angles = {-1, -1, -1};
    calculator.get_angle_from_coord_desc(axis, angles[0], angles[1], angles[2]);
    return angles;
}

} // namespace

class TestCoordinateCalculator : public QObject
{
    Q_OBJECT

private slots:
    // Each rotation has several triples. The habit is ry = 0, or rz = 0 where ry = +-90; two
    // assignments of each type break it.
    void each_assignment_has_its_one_triple()
    {
        QCOMPARE(all_assignments().size(), size_t(24));
        for (int type : {0, 1, 2, 3, 5}) {
            CoordinateCalculator calculator(type);
            const CoordinateAxix standard = calculator.get_standard_axis();
            int unusual = 0;
            for (const CoordinateAxix& axis : all_assignments()) {
                const Angles a = angles_of(calculator, axis);
                const bsMatrix turn = bsMatrix().rotationX(a[0]) * bsMatrix().rotationY(a[1])
                                      * bsMatrix().rotationZ(a[2]);
                QVERIFY(stands(axis, axes_in_room(standard) * turn));
                const CoordinateAxix turned = calculator.x_y_z_rotate(standard, a[0], a[1], a[2]);
                QVERIFY(stands(turned, axes_in_room(axis)));
                unusual += !(a[1] == 0 || (qAbs(a[1]) == 90 && a[2] == 0));
                for (int angle : a)
                    QVERIFY(angle >= -90 && angle <= 180);
            }
            QCOMPARE(unusual, 2);
            QCOMPARE(angles_of(calculator, assignment(1, 2, 5)), (Angles{type ? 0 : 90, 180, 0}));
        }
        CoordinateCalculator normal(0), other(1);
        QCOMPARE(angles_of(normal, assignment(1, 5, 3)), (Angles{0, 180, 0}));
        QCOMPARE(angles_of(other, assignment(4, 3, 0)), (Angles{0, 90, 180}));
    }

    void pair_is_completed_or_repaired_by_first_match()
    {
        // What stands beside a kept right, and beside a kept up, where the other choice clashes.
        const int up_and_out[6][2] = {{2, 4}, {2, 5}, {0, 5}, {0, 4}, {0, 2}, {0, 3}};
        const int right_and_out[6][2] = {{2, 5}, {2, 4}, {0, 4}, {0, 5}, {0, 3}, {0, 2}};
        CoordinateCalculator calculator(0);
        const auto is_code = [](int code) { return code >= 0 && code < 6; };
        for (int i = 0; i < 8 * 8 * 2; ++i) {
            const int right = i / 16 - 1, up = i / 2 % 8 - 1, kept = i % 2 ? right : up;
            const bool legal = is_code(right) && is_code(up) && right / 2 != up / 2;
            int r = right, u = up, out = -1;
            QCOMPARE(calculator.adjust_coordinate_desc(r, u, out, i % 2), legal);
            if (legal) {
                QVERIFY(r == right && u == up && is_legal(assignment(r, u, out)));
            } else if (is_code(kept)) {
                const int* repair = (i % 2 ? up_and_out : right_and_out)[kept];
                QVERIFY((i % 2 ? r : u) == kept && (i % 2 ? u : r) == repair[0]
                        && out == repair[1]);
            } else {
                QVERIFY(r == right && u == up && out == -1);
            }
        }
    }

    void odd_angles_make_whole_quarter_turns()
    {
        // Angle, axis code, turn made: -1 becomes 359, -450 stays negative, 1 and 6 are not
        // offered.
        const int rows[][3] = {{-90, 0, -90}, {89, 0, 0}, {-1, 0, 270}, {450, 0, 90},
                               {-450, 0, 0},  {90, 1, 0}, {90, 6, 0}};
        CoordinateCalculator calculator(0);
        const CoordinateAxix start = assignment(0, 2, 4);
        for (const auto& row : rows)
            QVERIFY(stands(calculator.around_axis_rotate(start, row[0], row[1]),
                           bsMatrix().rotationX(row[2])));
    }

    void type_decides_angles_and_standard_axes()
    {
        // Before, now; then whether the standard axes and the angles are those of the normal type.
        const int rows[][4] = {{5, 0, 1, 1},  {0, 3, 0, 0}, {0, 4, 1, 1},
                               {0, -1, 1, 1}, {0, 6, 1, 0}, {4, 4, 0, 0}};
        const CoordinateAxix z_up = assignment(0, 4, 3), y_up = assignment(0, 2, 4);
        for (const auto& row : rows) {
            CoordinateCalculator calculator(row[0]);
            calculator.set_cali_type(row[1]);
            QVERIFY(stands(calculator.get_standard_axis(), axes_in_room(row[2] ? z_up : y_up)));
            QCOMPARE(angles_of(calculator, y_up), (Angles{row[3] ? 90 : 0, 0, 0}));
        }
    }

    void descriptions_match_exactly()
    {
        CoordinateCalculator calculator(5);
        const QStringList descs = {"x", "-x", "y", "-y", "z", "-z"};
        const CoordinateAxix axis = {0, 1, 2, 3, 4, 5};
        QCOMPARE(QStringList() << calculator.get_left_desc(axis) << calculator.get_right_desc(axis)
                               << calculator.get_up_desc(axis) << calculator.get_down_desc(axis)
                               << calculator.get_out_desc(axis) << calculator.get_in_desc(axis),
                 descs);
        for (int code = -1; code <= descs.size(); ++code)
            QCOMPARE(calculator.convert_int_to_desc(code), descs.value(code));
        for (const QString& text : descs + QStringList{"X", " x", "x ", "", "+x", "--x"})
            QCOMPARE(calculator.convert_desc_to_int(text), descs.indexOf(text));
    }
};

QTEST_APPLESS_MAIN(TestCoordinateCalculator)
#include "test_coordinatecalculator.moc"
