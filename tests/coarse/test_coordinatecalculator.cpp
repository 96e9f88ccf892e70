#include "coarse/coordinatecalculator.h"
#include "tests/support/fatal_logger.h"

#include <QtTest/QtTest>

#include <algorithm>
#include <array>
#include <vector>

namespace
{

// Whole-number 3 by 3 matrices, row by row: the rotations of this unit are exact.
using Column = std::array<int, 3>;
using Matrix = std::array<Column, 3>;

Matrix product(const Matrix& a, const Matrix& b)
{
    Matrix result{};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            for (int k = 0; k < 3; ++k)
                result[r][c] += a[r][k] * b[k][c];
    return result;
}

// The right-handed rotation about axis 0, 1 or 2 by a multiple of 90 degrees.
Matrix rotation(int axis, int degrees)
{
    const int quarter = (degrees / 90 % 4 + 4) % 4;
    const int cosine[] = {1, 0, -1, 0};
    const int sine[] = {0, 1, 0, -1};
    const int next = (axis + 1) % 3, last = (axis + 2) % 3;
    Matrix result{};
    result[axis][axis] = 1;
    result[next][next] = result[last][last] = cosine[quarter];
    result[last][next] = sine[quarter];
    result[next][last] = -sine[quarter];
    return result;
}

// Columns are the positive axes of `axis`, written in the room: X right, Y up, Z out of the
// picture.
Matrix axes_in_room(const CoordinateAxix& axis)
{
    const int towards[] = {axis.right, axis.up, axis.out};
    Matrix result{};
    for (int direction = 0; direction < 3; ++direction)
        result[direction][towards[direction] / 2] = towards[direction] % 2 ? -1 : 1;
    return result;
}

int determinant(const Matrix& m)
{
    int result = 0;
    for (int c = 0, d = 1, e = 2; c < 3; ++c, d = (c + 1) % 3, e = (c + 2) % 3)
        result += m[0][c] * (m[1][d] * m[2][e] - m[1][e] * m[2][d]);
    return result;
}

bool is_legal(const CoordinateAxix& axis)
{
    const bool opposite =
        axis.left == (axis.right ^ 1) && axis.down == (axis.up ^ 1) && axis.in == (axis.out ^ 1);
    return opposite && determinant(axes_in_room(axis)) == 1;
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

bool equal(const CoordinateAxix& a, const CoordinateAxix& b)
{
    return a.right == b.right && a.up == b.up && a.out == b.out && is_legal(a) == is_legal(b);
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
    void initTestCase() { install_fatal_logger(); }

    void angles_belong_to_their_assignment()
    {
        QCOMPARE(all_assignments().size(), size_t(24));
        for (int type : {0, 1, 2, 3, 5}) {
            CoordinateCalculator calculator(type);
            const CoordinateAxix standard = calculator.get_standard_axis();
            QVERIFY(is_legal(standard));
            for (const CoordinateAxix& axis : all_assignments()) {
                const Angles a = angles_of(calculator, axis);
                const Matrix turn =
                    product(product(rotation(0, a[0]), rotation(1, a[1])), rotation(2, a[2]));
                QCOMPARE(product(axes_in_room(standard), turn), axes_in_room(axis));
                QVERIFY(equal(calculator.x_y_z_rotate(standard, a[0], a[1], a[2]), axis));
            }
        }
    }

    // Each rotation has several triples. The habit is ry = 0, or rz = 0 where ry = +-90; four
    // assignments break it.
    void among_equal_rotations_the_shown_triple_is_fixed()
    {
        CoordinateCalculator normal(0), other(1);
        QCOMPARE(angles_of(normal, assignment(1, 2, 5)), (Angles{90, 180, 0}));
        QCOMPARE(angles_of(normal, assignment(1, 5, 3)), (Angles{0, 180, 0}));
        QCOMPARE(angles_of(other, assignment(1, 2, 5)), (Angles{0, 180, 0}));
        QCOMPARE(angles_of(other, assignment(4, 3, 0)), (Angles{0, 90, 180}));
        int unusual = 0;
        for (CoordinateCalculator* calculator : {&normal, &other})
            for (const CoordinateAxix& axis : all_assignments()) {
                const Angles a = angles_of(*calculator, axis);
                unusual += !(a[1] == 0 || (qAbs(a[1]) == 90 && a[2] == 0));
                QVERIFY(*std::min_element(a.begin(), a.end()) >= -90);
                QVERIFY(*std::max_element(a.begin(), a.end()) <= 180);
            }
        QCOMPARE(unusual, 4);
    }

    void pair_is_completed_or_repaired_by_first_match()
    {
        // What stands beside a kept right, and beside a kept up, where the other choice clashes.
        const int up_and_out[6][2] = {{2, 4}, {2, 5}, {0, 5}, {0, 4}, {0, 2}, {0, 3}};
        const int right_and_out[6][2] = {{2, 5}, {2, 4}, {0, 4}, {0, 5}, {0, 3}, {0, 2}};
        CoordinateCalculator calculator(0);
        for (int right = -1; right < 7; ++right)
            for (int up = -1; up < 7; ++up)
                for (bool keep_right : {true, false}) {
                    const int kept = keep_right ? right : up;
                    const bool valid = qBound(0, right, 5) == right && qBound(0, up, 5) == up;
                    const bool legal = valid && right / 2 != up / 2;
                    int r = right, u = up, out = -1;
                    QCOMPARE(calculator.adjust_coordinate_desc(r, u, out, keep_right), legal);
                    QCOMPARE(keep_right ? r : u, kept);
                    if (legal) {
                        QVERIFY(r == right && u == up && is_legal(assignment(r, u, out)));
                    } else if (qBound(0, kept, 5) == kept) {
                        const int* repair = (keep_right ? up_and_out : right_and_out)[kept];
                        QVERIFY((keep_right ? u : r) == repair[0] && out == repair[1]);
                    } else {
                        QVERIFY(r == right && u == up && out == -1);
                    }
                }
    }

    void odd_angles_make_whole_quarter_turns()
    {
        // Angle, axis code, turns: -1 becomes 359, -450 stays negative, 1 and 6 are not offered.
        const int rows[][3] = {{-90, 0, 3},  {89, 2, 0}, {-1, 2, 3}, {450, 0, 1},
                               {-450, 0, 0}, {90, 1, 0}, {90, 6, 0}};
        CoordinateCalculator calculator(0);
        for (const auto& row : rows)
            for (const CoordinateAxix& axis : all_assignments()) {
                const CoordinateAxix turned = calculator.around_axis_rotate(axis, row[0], row[1]);
                const Matrix turn = rotation(row[1] / 2 % 3, 90 * row[2]);
                QVERIFY(is_legal(turned));
                QCOMPARE(axes_in_room(turned), product(axes_in_room(axis), turn));
            }
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
            QVERIFY(equal(calculator.get_standard_axis(), row[2] ? z_up : y_up));
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
