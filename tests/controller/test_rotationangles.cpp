// Laws of the room rotation over angles that hurt.
#include "controller/rotationangles.h"

#include <QtTest>

#include <cmath>
#include <cstdio>

namespace
{

const double hard_angles[] = {0.0,   1e-6,   0.01,  30.0,  44.99, 89.99, 90.0,   90.01,
                              120.5, 179.99, 180.0, -0.01, -30.0, -90.0, -135.0, -179.0};

/// R = Rx Ry Rz by plain products, row after row.
void product_of_turns(double (*R)[3], double rx, double ry, double rz)
{
    const double angles[3] = {rx, ry, rz};
    double product[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int axis = 0; axis < 3; ++axis) {
        const double a = angles[axis] / room_degrees_per_radian;
        double turn[3][3] = {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}};
        const int i = (axis + 1) % 3;
        const int j = (axis + 2) % 3;
        turn[axis][axis] = 1.0;
        turn[i][i] = turn[j][j] = std::cos(a);
        turn[i][j] = -std::sin(a);
        turn[j][i] = std::sin(a);
        double next[3][3];
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                next[r][c] = product[r][0] * turn[0][c] + product[r][1] * turn[1][c]
                             + product[r][2] * turn[2][c];
        std::copy(&next[0][0], &next[0][0] + 9, &product[0][0]);
    }
    std::copy(&product[0][0], &product[0][0] + 9, &R[0][0]);
}

} // namespace

class TestRotationAngles : public QObject
{
    Q_OBJECT

private slots:
    void the_matrix_is_the_product_of_the_three_turns()
    {
        double worst = 0.0;
        for (double rx : hard_angles)
            for (double ry : hard_angles)
                for (double rz : hard_angles) {
                    double R[3][3];
                    product_of_turns(R, rx, ry, rz);
                    double m[9];
                    _angles2matrix(m, rx, ry, rz);
                    for (int i = 0; i < 9; ++i)
                        worst = std::max(worst, std::fabs(m[i] - R[i % 3][i / 3]));
                }
        std::printf("worst error of the matrix: %g\n", worst);
        QVERIFY(worst < 1e-15);
    }

    void angles_of_a_record_give_its_rotation_again()
    {
        double worst = 0.0;
        for (double rx : hard_angles)
            for (double ry : hard_angles)
                for (double rz : hard_angles) {
                    double elements[9];
                    angles_to_rotation(rx, ry, rz, elements);
                    beautify_rotation(elements);
                    // Within 0.006 degrees of the pole the two other angles are one.
                    if (std::fabs(std::fabs(elements[2]) - 1.0) < 5e-9 && elements[0] != 0.0)
                        continue;
                    double ax, ay, az;
                    rotation_to_angles(elements, ax, ay, az);
                    QVERIFY(!(ax < -180.0) && !(ay < -180.0) && !(az < -180.0));
                    double again[9];
                    angles_to_rotation(ax, ay, az, again);
                    for (int i = 0; i < 9; ++i)
                        worst = std::max(worst, std::fabs(again[i] - elements[i]));
                }
        std::printf("worst error after angles and back: %g\n", worst);
        QVERIFY(worst < 2e-6); // what the short pi costs at 180 degrees
    }

    void at_the_pole_rx_carries_both_turns()
    {
        // Ry(90) after Rx(30): rows of R.
        const double s = 0.5;
        const double c = std::sqrt(0.75);
        const double elements[9] = {0, 0, 1, s, c, 0, -c, s, 0};
        double rx, ry, rz;
        rotation_to_angles(elements, rx, ry, rz);
        QVERIFY(std::fabs(rx - 30.0) < 1e-4);
        QVERIFY(std::fabs(ry - 90.0) < 1e-4);
        QCOMPARE(rz, 0.0);
    }

    void an_element_a_digit_above_one_is_a_right_angle()
    {
        const double elements[9] = {0, 0, 1.00000001, 0, 1, 0, -1, 0, 0};
        double rx, ry, rz;
        rotation_to_angles(elements, rx, ry, rz);
        QVERIFY(std::fabs(ry - 90.0) < 1e-4);
    }

    void minus_pi_shows_as_plus_180()
    {
        const double elements[9] = {-1, 0, 0, 0, -1, 0, 0, 0, 1};
        double rx, ry, rz;
        rotation_to_angles(elements, rx, ry, rz);
        QCOMPARE(rz, 180.0);
    }

    void beautify()
    {
        const double stays = 99.0; // all nine stay
        const double rows[][2] = {{1.0000009, 1.0},   {0.9999991, 1.0}, {1.000001, stays},
                                  {-0.9999995, -1.0}, {-9e-7, 0.0},     {-0.0, 0.0},
                                  {0.00001, stays},   {0.5, stays},     {std::nan(""), stays}};
        for (const auto& row : rows) {
            double elements[9] = {1e-7, 1.0, 0.0, -1.0, 0.0, 0.0, row[0], 0.0, 1.0};
            beautify_rotation(elements);
            QCOMPARE(elements[0], row[1] == stays ? 1e-7 : 0.0);
            if (row[1] != stays)
                QVERIFY(elements[6] == row[1] && (row[1] != 0.0 || !std::signbit(elements[6])));
            else
                QVERIFY(elements[6] == row[0] || std::isnan(row[0]));
        }
    }

    void what_counts_as_default()
    {
        // Translation, rotation, scaling. A shift whose sum is zero passes, a turn does not.
        const double defaults[][13] = {{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1},
                                       {5, -5, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1}};
        const double others[][13] = {{0, 0.001, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1},
                                     {0, 0, 0, 0, 1, 0, -1, 0, 0, 0, 0, 1, 1},
                                     {0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1.00001}};
        for (const auto& row : defaults)
            QVERIFY(is_default_transformation(row, row + 3, row[12]));
        for (const auto& row : others)
            QVERIFY(!is_default_transformation(row, row + 3, row[12]));
    }
};

QTEST_APPLESS_MAIN(TestRotationAngles)
#include "test_rotationangles.moc"
