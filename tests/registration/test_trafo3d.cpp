// Registration of point sets: laws, return codes, and the fast code against the plain one.
#include "registration/trafo3d.h"

#include "tests/support/fatal_logger.h"
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

} // namespace

class TestTrafo3d : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void least_squares_agree_with_eigen();
    void least_squares_codes_data();
    void least_squares_codes();
    void a_failed_system_leaves_solution_and_residual_alone();
    void a_square_system_has_residual_zero();

    void triple_gives_back_a_motion();
    void degenerate_triples_are_refused_data();
    void degenerate_triples_are_refused();
    void start_ignores_scale_and_later_points();
    void mirror_images_get_a_proper_rotation();

    void rigid_fit_agrees_with_eigen_data();
    void rigid_fit_agrees_with_eigen();
    void scale_fit_divides_the_translation();
    void fit_codes_leave_everything_alone_data();
    void fit_codes_leave_everything_alone();
    void too_many_pairs_are_refused_unread();
    void fast_fit_equals_plain_fit_bit_by_bit_data();
    void fast_fit_equals_plain_fit_bit_by_bit();
};

void TestTrafo3d::least_squares_agree_with_eigen()
{
    Source source{std::mt19937(1)};
    double worst = 0.0;
    for (int n = 1; n <= 10; ++n)
        for (int m = n; m < n + 20; ++m) {
            using RowMajor = Eigen::Matrix<double, -1, -1, Eigen::RowMajor>;
            RowMajor A = RowMajor::NullaryExpr(m, n, [&] { return source.uniform(-1, 1); });
            Eigen::VectorXd b =
                Eigen::VectorXd::NullaryExpr(m, [&] { return source.uniform(-1, 1); });
            const Eigen::VectorXd expected = A.householderQr().solve(b);
            const double expected_residual = (A * expected - b).norm();
            Eigen::VectorXd x(n);
            double residual = -1.0;
            QCOMPARE(linear_lsq_solve(x.data(), b.data(), A.data(), m, n, &residual), 0);
            const double scale = 1.0 + expected.norm();
            worst = std::max(worst, (x - expected).norm() / (scale * scale));
            worst = std::max(worst, std::fabs(residual - expected_residual) / scale);
        }
    qInfo("worst deviation from Eigen: %g", worst);
    QVERIFY(worst < 1e-10);
}

void TestTrafo3d::least_squares_codes_data()
{
    QTest::addColumn<QVector<double>>("A");
    QTest::addColumn<int>("m");
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("first"); // x[0] on success

    using Values = QVector<double>;
    QTest::newRow("eleven columns") << Values(12 * 11, 1.0) << 12 << 11 << -1 << 0.0;
    QTest::newRow("zero column") << Values{1, 0, 2, 0, 3, 0} << 3 << 2 << -2 << 0.0;
    QTest::newRow("fewer rows than columns") << Values{1, 2, 3, 4, 5, 7} << 2 << 3 << -2 << 0.0;
    QTest::newRow("nearly dependent passes") << Values{1, 1, 1, 1 + 1e-9} << 2 << 2 << 0 << 1.0;
    QTest::newRow("negative diagonal") << Values{-2} << 1 << 1 << 0 << -0.5;
    QTest::newRow("zero diagonal") << Values{0, 2} << 2 << 1 << 0 << 0.5;
}

void TestTrafo3d::least_squares_codes()
{
    QFETCH(QVector<double>, A);
    QFETCH(int, m);
    QFETCH(int, n);
    QFETCH(int, code);
    QFETCH(double, first);
    QVector<double> b(m, 1.0);
    QVector<double> x(n, 7.0);
    double residual = 7.0;
    QCOMPARE(linear_lsq_solve(x.data(), b.data(), A.data(), m, n, &residual), code);
    if (code == 0)
        QVERIFY(std::fabs(x[0] - first) < 1e-6);
    else
        QVERIFY(x == QVector<double>(n, 7.0) && residual == 7.0);
    if (code == -1)
        QVERIFY(A == QVector<double>(12 * 11, 1.0) && b == QVector<double>(m, 1.0));
}

void TestTrafo3d::a_failed_system_leaves_solution_and_residual_alone()
{
    double A[6] = {1, 1, 1, 1, 1, 1}; // the second column vanishes exactly in the first step
    double b[3] = {1, 2, 3};
    double x[2] = {7, 7};
    double residual = 7;
    A[0] = A[2] = A[4] = 0.0;
    QCOMPARE(linear_lsq_solve(x, b, A, 3, 2, &residual), -2);
    QVERIFY(x[0] == 7 && x[1] == 7 && residual == 7);
}

void TestTrafo3d::a_square_system_has_residual_zero()
{
    double A[4] = {3, 1, 1, 2};
    double b[2] = {9, 8};
    double x[2];
    double residual = 7;
    QCOMPARE(linear_lsq_solve(x, b, A, 2, 2, &residual), 0);
    QCOMPARE(residual, 0.0);
    QVERIFY(std::fabs(x[0] - 2) < 1e-14 && std::fabs(x[1] - 3) < 1e-14);
}

void TestTrafo3d::triple_gives_back_a_motion()
{
    Source source{std::mt19937(2)};
    double worst = 0.0;
    for (int repeat = 0; repeat < 200; ++repeat) {
        Points measured = source.points(3, 500.0);
        const Eigen::Isometry3d motion = source.motion(3000.0);
        Points reference = motion * measured;
        Trafo T;
        QCOMPARE(trafo3d_3trafo(rows(T), rows(reference), rows(measured)), 0);
        worst = std::max(worst, (moved(T, measured) - reference).norm());
        QVERIFY(T.row(3) == Eigen::RowVector4d(0, 0, 0, 1));
    }
    qInfo("worst distance: %g mm", worst);
    QVERIFY(worst < 1e-7);
}

void TestTrafo3d::degenerate_triples_are_refused_data()
{
    QTest::addColumn<QVector<double>>("triple");
    QTest::addColumn<int>("code");
    using Values = QVector<double>;
    QTest::newRow("first two equal") << Values{1, 2, 3, 1, 2, 3, 4, 5, 7} << -1;
    QTest::newRow("third equals first") << Values{1, 2, 3, 4, 5, 7, 1, 2, 3} << -1;
    QTest::newRow("exactly collinear") << Values{0, 0, 0, 1, 2, 3, 2, 4, 6} << -1;
    QTest::newRow("collinear but for rounding") << Values{0, 0, 0, 1, 2, 3, 2, 4, 6 + 1e-15} << 0;
    QTest::newRow("not a number") << Values{0, 0, 0, 1, not_a_number, 3, 2, 4, 6} << 0;
}

void TestTrafo3d::degenerate_triples_are_refused()
{
    QFETCH(QVector<double>, triple);
    QFETCH(int, code);
    Source source{std::mt19937(3)};
    Points odd = Eigen::Map<Points>(triple.data(), 3, 3);
    Points sound = source.points(3, 1.0);
    for (bool odd_is_target : {true, false}) {
        Trafo T = Trafo::Constant(7.0);
        QCOMPARE(trafo3d_3trafo(rows(T), rows(odd_is_target ? odd : sound),
                                rows(odd_is_target ? sound : odd)),
                 code);
        QCOMPARE(T == Trafo::Constant(7.0), code != 0);
    }
}

void TestTrafo3d::start_ignores_scale_and_later_points()
{
    Source source{std::mt19937(4)};
    Points measured = source.points(4, 500.0);
    const Eigen::Isometry3d motion = source.motion(100.0);
    Points reference = motion * Points(3.0 * measured);
    reference.col(3).setConstant(not_a_number);
    Trafo T;
    QCOMPARE(trafo3d_3trafo(rows(T), rows(reference), rows(measured)), 0);
    QVERIFY((T.topLeftCorner<3, 3>() - motion.linear()).norm() < 1e-12);
    QVERIFY((moved(T, measured).col(0) - reference.col(0)).norm() < 1e-9);
}

void TestTrafo3d::mirror_images_get_a_proper_rotation()
{
    Source source{std::mt19937(5)};
    Points measured = source.points(4, 500.0);
    Points reference = measured;
    reference.row(2) *= -1.0;
    Trafo T;
    QCOMPARE(trafo3d_3trafo(rows(T), rows(reference), rows(measured)), 0);
    QVERIFY(std::fabs(T.topLeftCorner<3, 3>().determinant() - 1.0) < 1e-12);
    double residual;
    if (trafo3d_opttrafo(rows(T), nullptr, rows(reference), rows(measured), 4, &residual) == 0)
        QVERIFY(std::fabs(T.topLeftCorner<3, 3>().determinant() - 1.0) < 1e-12 && residual > 1.0);
}

void TestTrafo3d::rigid_fit_agrees_with_eigen_data()
{
    QTest::addColumn<double>("noise");
    QTest::addColumn<double>("tolerance"); // mm; the fit ends at changes below 0.001 mm
    QTest::newRow("exact") << 0.0 << 1e-9;
    QTest::newRow("noise of 1 mm") << 1.0 << 0.001;
    QTest::newRow("noise of 20 mm") << 20.0 << 0.001;
}

void TestTrafo3d::rigid_fit_agrees_with_eigen()
{
    QFETCH(double, noise);
    QFETCH(double, tolerance);
    Source source{std::mt19937(6)};
    int failures = 0;
    double worst = 0.0;
    for (int n = 3; n <= trafo3d_max_points; ++n)
        for (int repeat = 0; repeat < 4; ++repeat) {
            Points measured = source.points(n, 500.0);
            Points reference = source.motion(3000.0) * measured + source.points(n, noise);
            Trafo T;
            double residual = -1.0;
            QCOMPARE(trafo3d_3trafo(rows(T), rows(reference), rows(measured)), 0);
            if (trafo3d_opttrafo(rows(T), nullptr, rows(reference), rows(measured), n, &residual)
                != 0) {
                ++failures; // from a small first triple ten steps may not suffice
                continue;
            }
            const Trafo best = Eigen::umeyama(measured, reference, false);
            Trafo closed_form = best;
            const double least = root_mean_square(moved(closed_form, measured), reference);
            QVERIFY(residual >= least - 1e-9);
            worst = std::max(worst, residual - least);
            QVERIFY(std::fabs(root_mean_square(moved(T, measured), reference) - residual) < 1e-9);
            QVERIFY(
                (T.topLeftCorner<3, 3>() * T.topLeftCorner<3, 3>().transpose()).isIdentity(1e-10));
        }
    qInfo("worst excess over the closed form: %g mm, %d failures of 192", worst, failures);
    QVERIFY(worst < tolerance);
    QVERIFY(failures < 10);
}

void TestTrafo3d::scale_fit_divides_the_translation()
{
    Source source{std::mt19937(7)};
    for (double factor : {0.7, 1.0, 1.4}) {
        Points measured = source.points(10, 500.0);
        const Eigen::Isometry3d motion = source.motion(1000.0);
        Points reference = factor * (motion * measured);
        Trafo T;
        double scale = -1.0;
        double residual = -1.0;
        trafo3d_3trafo(rows(T), rows(reference), rows(measured));
        QCOMPARE(trafo3d_opttrafo(rows(T), &scale, rows(reference), rows(measured), 10, &residual),
                 0);
        QVERIFY(std::fabs(scale - factor) < 1e-6);
        QVERIFY(std::fabs(T.row(0).head<3>().norm() - 1.0) < 1e-14);
        QVERIFY((T.topRows<3>() - motion.matrix().topRows<3>()).norm() < 1e-2);
        QVERIFY(residual < 1e-2);
    }
}

void TestTrafo3d::fit_codes_leave_everything_alone_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("code");
    QTest::newRow("all source points in the origin") << 0 << -1;
    QTest::newRow("fewer equations than unknowns") << 1 << -1;
    QTest::newRow("a coordinate that is no number") << 2 << -2;
    QTest::newRow("lists that do not belong together") << 3 << -3;
}

void TestTrafo3d::fit_codes_leave_everything_alone()
{
    QFETCH(int, kind);
    QFETCH(int, code);
    Source source{std::mt19937(8)};
    Points reference = source.points(12, 500.0);
    Points measured = source.points(12, 500.0);
    Trafo start = Trafo::Identity();
    int n = 12;
    if (kind == 0)
        measured.setZero();
    if (kind == 1)
        n = 1;
    if (kind == 2)
        reference(1, 11) = not_a_number;
    if (kind == 3) // a point's turn from the true place, it cannot settle in ten steps
        trafo3d_3trafo(rows(start), rows(reference), rows(measured));
    for (bool fit_scale : {false, true}) {
        Trafo T = start;
        double scale = 7.0;
        double residual = 7.0;
        const int got = trafo3d_opttrafo(rows(T), fit_scale ? &scale : nullptr, rows(reference),
                                         rows(measured), n, &residual);
        if (kind == 3 && fit_scale)
            continue; // with a scale it may settle
        QCOMPARE(got, code);
        QVERIFY(T == start && scale == 7.0 && residual == 7.0);
    }
}

void TestTrafo3d::too_many_pairs_are_refused_unread()
{
    Trafo T = Trafo::Identity();
    double residual = 7.0;
    QCOMPARE(
        trafo3d_opttrafo(rows(T), nullptr, nullptr, nullptr, trafo3d_max_points + 1, &residual),
        -1);
    QVERIFY(T == Trafo::Identity() && residual == 7.0);
}

void TestTrafo3d::fast_fit_equals_plain_fit_bit_by_bit_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("noise"); // relative to the size
    QTest::addColumn<double>("odd");   // put into one coordinate unless 0
    QTest::newRow("exact") << 500.0 << 0.0 << 0.0;
    QTest::newRow("noise") << 500.0 << 0.02 << 0.0;
    QTest::newRow("nothing in common") << 500.0 << 1.0 << 0.0;
    QTest::newRow("tiny") << 1e-6 << 0.02 << 0.0;
    QTest::newRow("huge") << 1e6 << 0.02 << 0.0;
    QTest::newRow("near overflow") << 1e150 << 0.5 << 0.0;
    QTest::newRow("near underflow") << 1e-155 << 0.5 << 0.0;
    QTest::newRow("not a number") << 500.0 << 0.02 << not_a_number;
    QTest::newRow("infinite") << 500.0 << 0.02 << endless;
}

void TestTrafo3d::fast_fit_equals_plain_fit_bit_by_bit()
{
    QFETCH(double, size);
    QFETCH(double, noise);
    QFETCH(double, odd);
    Source source{std::mt19937(9)};
    int codes[4] = {0, 0, 0, 0};
    for (int n = 3; n <= trafo3d_max_points; ++n)
        for (int repeat = 0; repeat < 40; ++repeat) {
            Points measured = source.points(n, size);
            Points reference =
                repeat % 4 == 0
                    ? Points(measured + source.points(n, noise * size))
                    : Points(source.motion(size) * measured + source.points(n, noise * size));
            if (repeat % 8 == 1) // zeros of both signs
                measured.row(repeat % 3) *= -0.0;
            if (odd != 0.0)
                (repeat % 2 ? measured : reference)(repeat % 3, repeat % n) = odd;
            Trafo start = Trafo::Constant(7.0), plain_start = start;
            QCOMPARE(trafo3d_3trafo(rows(start), rows(reference), rows(measured)),
                     plain::start_trafo(rows(plain_start), rows(reference), rows(measured)));
            if (odd == 0.0) // the sign of what is no number is free
                QVERIFY(same_bits(start.data(), plain_start.data(), sizeof(double[16])));
            Trafo T = start, plain_T = start;
            double scale = 7.0, plain_scale = 7.0, residual = 7.0, plain_residual = 7.0;
            const bool rigid = repeat % 3 != 0;
            const int code = trafo3d_opttrafo(rows(T), rigid ? nullptr : &scale, rows(reference),
                                              rows(measured), n, &residual);
            QCOMPARE(code, plain::fit_trafo(rows(plain_T), rigid ? nullptr : &plain_scale,
                                            rows(reference), rows(measured), n, &plain_residual));
            QVERIFY(same_bits(T.data(), plain_T.data(), sizeof(double[16])));
            QVERIFY(same_bits(&residual, &plain_residual, sizeof residual));
            QVERIFY(same_bits(&scale, &plain_scale, sizeof scale));
            ++codes[-code];
        }
    qInfo("%d fits, %d without solution, %d without improvement, %d without convergence", codes[0],
          codes[1], codes[2], codes[3]);
}

QTEST_APPLESS_MAIN(TestTrafo3d)
#include "test_trafo3d.moc"
