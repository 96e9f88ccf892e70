// Registration of point sets: laws, return codes, and the fast fit against the plain one.
#include "registration/trafo3d.h"

#include "tests/support/plain_trafo3d.h"

#include <Eigen/Geometry>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace
{

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
constexpr double endless = std::numeric_limits<double>::infinity();

using Points = Eigen::Matrix<double, 3, Eigen::Dynamic>;
using Trafo = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;

double (*rows(Points& points))[3] { return reinterpret_cast<double(*)[3]>(points.data()); }

double (*rows(Trafo& trafo))[4] { return reinterpret_cast<double(*)[4]>(trafo.data()); }

bool same_bits(const void* a, const void* b, std::size_t size)
{
    return std::memcmp(a, b, size) == 0;
}

/// Random lists and their true transformation.
struct Source
{
    std::mt19937 random;

    double uniform(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(random);
    }

    Points points(int n, double half_size)
    {
        return Points::NullaryExpr(3, n, [&] { return uniform(-half_size, half_size); });
    }

    Eigen::Isometry3d motion(double shift)
    {
        Eigen::Isometry3d made = Eigen::Isometry3d::Identity();
        const Eigen::Vector4d q = Eigen::Vector4d::NullaryExpr([&] { return uniform(-1, 1); });
        made.linear() = Eigen::Quaterniond(q.normalized()).toRotationMatrix();
        made.translation() = points(1, shift);
        return made;
    }
};

double root_mean_square(const Points& a, const Points& b)
{
    return std::sqrt((a - b).squaredNorm() / a.cols());
}

Points moved(Trafo& trafo, Points& source)
{
    Points out(3, source.cols());
    trafo3d_perform(rows(out), rows(trafo), rows(source), int(source.cols()));
    return out;
}

/// The fast fit gives what the plain one gives, bit by bit.
void compare_fits(double size, double noise, double odd)
{
    Source source{std::mt19937(9)};
    for (int n = 3; n <= trafo3d_max_points; ++n)
        for (int repeat = 0; repeat < 40; ++repeat) {
            Points measured = source.points(n, size);
            Points reference = source.points(n, noise * size);
            if (repeat % 4 == 0)
                reference += measured;
            else
                reference += source.motion(size) * measured;
            if (repeat % 8 == 1) // zeros of both signs
                measured.row(repeat % 3) *= -0.0;
            if (odd != 0.0)
                (repeat % 2 ? measured : reference)(repeat % 3, repeat % n) = odd;
            Trafo T = Trafo::Constant(7.0);
            trafo3d_3trafo(rows(T), rows(reference), rows(measured));
            Trafo plain_T = T;
            double scale = 7.0, plain_scale = 7.0, residual = 7.0, plain_residual = 7.0;
            const bool rigid = repeat % 3 != 0;
            QCOMPARE(trafo3d_opttrafo(rows(T), rigid ? nullptr : &scale, rows(reference),
                                      rows(measured), n, &residual),
                     plain::fit_trafo(rows(plain_T), rigid ? nullptr : &plain_scale,
                                      rows(reference), rows(measured), n, &plain_residual));
            QVERIFY(same_bits(T.data(), plain_T.data(), sizeof(double[16])));
            QVERIFY(same_bits(&residual, &plain_residual, sizeof residual));
            QVERIFY(same_bits(&scale, &plain_scale, sizeof scale));
        }
}

} // namespace

class TestTrafo3d : public QObject
{
    Q_OBJECT

private slots:
    void least_squares_agree_with_eigen()
    {
        Source source{std::mt19937(1)};
        const auto number = [&] { return source.uniform(-1, 1); };
        using RowMajor = Eigen::Matrix<double, -1, -1, Eigen::RowMajor>;
        for (int n = 1; n <= 10; ++n)
            for (int m = n; m < n + 20; ++m) {
                RowMajor A = RowMajor::NullaryExpr(m, n, number);
                Eigen::VectorXd b = Eigen::VectorXd::NullaryExpr(m, number), x(n);
                const Eigen::VectorXd expected = A.householderQr().solve(b);
                const double expected_residual = (A * expected - b).norm();
                const double scale = 1.0 + expected.norm();
                double residual = -1.0;
                QCOMPARE(linear_lsq_solve(x.data(), b.data(), A.data(), m, n, &residual), 0);
                QVERIFY((x - expected).norm() < 1e-10 * scale * scale);
                QVERIFY(std::fabs(residual - expected_residual) < 1e-10 * scale);
                QVERIFY(m > n || residual == 0.0);
            }
    }

    void least_squares_codes()
    {
        using Values = QVector<double>;
        const struct
        {
            Values A;
            int m, n, code;
            double first; // x[0] on success
        } rows[] = {
            {Values(12 * 11, 1.0), 12, 11, -1, 0.0}, // untouched
            {{1, 0, 2, 0, 3, 0}, 3, 2, -2, 0.0},
            {{1, 2, 3, 4, 5, 7}, 2, 3, -2, 0.0},
            {{1, 1, 1, 1 + 1e-9}, 2, 2, 0, 1.0}, // nearly dependent passes
            {{-2}, 1, 1, 0, -0.5},
            {{0, 2}, 2, 1, 0, 0.5},
        };
        for (const auto& row : rows) {
            Values A = row.A, b(row.m, 1.0), x(row.n, 7.0);
            double residual = 7.0;
            QCOMPARE(linear_lsq_solve(x.data(), b.data(), A.data(), row.m, row.n, &residual),
                     row.code);
            QVERIFY(row.code ? x == Values(row.n, 7.0) && residual == 7.0
                             : std::fabs(x[0] - row.first) < 1e-6);
            QVERIFY(row.code != -1 || (A == row.A && b == Values(row.m, 1.0)));
        }
    }

    void triple_gives_back_a_motion()
    {
        Source source{std::mt19937(2)};
        for (double scale : {1.0, 3.0}) // must not matter
            for (int repeat = 0; repeat < 200; ++repeat) {
                Points measured = source.points(4, 500.0);
                const Eigen::Isometry3d motion = source.motion(3000.0);
                Points reference = motion * Points(scale * measured);
                reference.col(3).setConstant(not_a_number);
                Trafo T;
                QCOMPARE(trafo3d_3trafo(rows(T), rows(reference), rows(measured)), 0);
                const Points off = moved(T, measured) - reference;
                QVERIFY(off.leftCols(scale == 1.0 ? 3 : 1).norm() < 1e-7);
                QVERIFY((T.topLeftCorner<3, 3>() - motion.linear()).norm() < 1e-9);
                QVERIFY(T.row(3) == Eigen::RowVector4d(0, 0, 0, 1));
            }
    }

    void degenerate_triples_are_refused()
    {
        Points sound = Source{std::mt19937(3)}.points(3, 1.0);
        const struct
        {
            double triple[9];
            int code;
        } cases[] = {
            {{1, 2, 3, 1, 2, 3, 4, 5, 7}, -1},
            {{1, 2, 3, 4, 5, 7, 1, 2, 3}, -1},
            {{0, 0, 0, 1, 2, 3, 2, 4, 6 + 1e-15}, 0}, // collinear but for rounding
            {{0, 0, 0, 1, not_a_number, 3, 2, 4, 6}, 0},
        };
        for (const auto& row : cases)
            for (bool odd_is_target : {true, false}) {
                Points odd = Eigen::Map<const Points>(row.triple, 3, 3);
                Trafo T = Trafo::Constant(7.0);
                QCOMPARE(trafo3d_3trafo(rows(T), rows(odd_is_target ? odd : sound),
                                        rows(odd_is_target ? sound : odd)),
                         row.code);
                QCOMPARE(T == Trafo::Constant(7.0), row.code != 0);
            }
    }

    /// Between lists that no motion brings together. Pairings that are equally good are told apart
    /// by such bits.
    void start_value_and_solution_keep_their_bits()
    {
        double source[3][3] = {{-2, 8, 1}, {17, -21, 9}, {6, 4, 40}};
        double target[3][3] = {{12, -7, 30}, {41, 5, 28}, {3, 19, -11}};
        const double expected[] = {0x1.2eacd8eb514f8p+4,  -0x1.edf75ed89b9ep+1,
                                   0x1.0ae08aac56cdbp+5,  0x1.92d033a8f8ad5p-2,
                                   -0x1.498b375a624c2p-3, -0x1.0bd6b8fd11127p-2};
        double T[4][4], residual;
        QCOMPARE(trafo3d_3trafo(T, target, source), 0);
        double got[6] = {T[0][3], T[1][3], T[2][3]}; // each made of a whole row
        QCOMPARE(linear_lsq_solve(got + 3, source[0], target[0], 3, 3, &residual), 0);
        QVERIFY(same_bits(got, expected, sizeof expected));
    }

    void rigid_fit_agrees_with_eigen()
    {
        Source source{std::mt19937(6)};
        int failures = 0; // from a small first triple ten steps may not suffice
        for (double noise : {0.0, 1.0, 20.0})
            for (int n = 3; n <= trafo3d_max_points; ++n) {
                Points measured = source.points(n, 500.0);
                Points reference = source.motion(3000.0) * measured + source.points(n, noise);
                Trafo closed_form = Eigen::umeyama(measured, reference, false), T;
                const double least = root_mean_square(moved(closed_form, measured), reference);
                // The fit ends at such changes, in mm.
                const double tolerance = noise == 0.0 ? 1e-9 : 0.001;
                double residual = -1.0;
                QCOMPARE(trafo3d_3trafo(rows(T), rows(reference), rows(measured)), 0);
                const int code = trafo3d_opttrafo(rows(T), nullptr, rows(reference), rows(measured),
                                                  n, &residual);
                failures += code != 0;
                if (code != 0)
                    continue;
                QVERIFY(residual >= least - 1e-9 && residual < least + tolerance);
            }
        QVERIFY(failures < 8);
    }

    void scale_fit_divides_the_translation()
    {
        Source source{std::mt19937(7)};
        for (double factor : {0.7, 1.0, 1.4}) {
            Points measured = source.points(10, 500.0);
            const Eigen::Isometry3d motion = source.motion(1000.0);
            Points reference = factor * (motion * measured);
            Trafo T;
            double scale = -1.0, residual = -1.0;
            trafo3d_3trafo(rows(T), rows(reference), rows(measured));
            QCOMPARE(
                trafo3d_opttrafo(rows(T), &scale, rows(reference), rows(measured), 10, &residual),
                0);
            QVERIFY(std::fabs(scale - factor) < 1e-6 && residual < 1e-2);
            QVERIFY(std::fabs(T.row(0).head<3>().norm() - 1.0) < 1e-14);
            QVERIFY((T.topRows<3>() - motion.matrix().topRows<3>()).norm() < 1e-2);
        }
    }

    void fit_codes_leave_everything_alone()
    {
        Source source{std::mt19937(8)};
        Points reference = source.points(12, 500.0), measured = source.points(12, 500.0);
        Points nowhere = Points::Zero(3, 12), odd = reference;
        odd(1, 11) = not_a_number;
        Trafo away; // from here these lists do not settle in ten steps
        trafo3d_3trafo(rows(away), rows(reference), rows(measured));
        const struct
        {
            double (*reference)[3];
            double (*measured)[3];
            int n;
            Trafo start;
            int code;
        } cases[] = {
            {rows(reference), rows(nowhere), 12, Trafo::Identity(), -1},
            {rows(reference), rows(measured), 1, Trafo::Identity(), -1},
            {rows(odd), rows(measured), 12, Trafo::Identity(), -2},
            {rows(reference), rows(measured), 12, away, -3},
            {nullptr, nullptr, trafo3d_max_points + 1, Trafo::Identity(), -1},
        };
        for (const auto& row : cases)
            for (bool fit_scale : {false, true}) {
                if (row.code == -3 && fit_scale)
                    continue; // with a scale it may settle
                Trafo T = row.start;
                double scale = 7.0, residual = 7.0;
                QCOMPARE(trafo3d_opttrafo(rows(T), fit_scale ? &scale : nullptr, row.reference,
                                          row.measured, row.n, &residual),
                         row.code);
                QVERIFY(T == row.start && scale == 7.0 && residual == 7.0);
            }
    }

    void fast_fit_equals_plain_fit_bit_by_bit()
    {
        // Size, noise relative to it, and what is put into one coordinate unless it is 0.
        const double rows[][3] = {
            {500, 0, 0},         {500, 0.02, 0},  {500, 1, 0},      {1e-6, 0.02, 0},
            {1e6, 0.02, 0},      {1e150, 0.5, 0}, {1e-155, 0.5, 0}, {500, 0.02, not_a_number},
            {500, 0.02, endless}};
        for (const double(&row)[3] : rows)
            compare_fits(row[0], row[1], row[2]);
    }
};

QTEST_APPLESS_MAIN(TestTrafo3d)
#include "test_trafo3d.moc"
