// The registration functions written down step by step, against which the fast ones are compared.
//
// Header only, so that a test of the fast code can include it. It is kept as plain as possible on
// purpose: do not optimise.
#ifndef TESTS_SUPPORT_PLAIN_TRAFO3D_H
#define TESTS_SUPPORT_PLAIN_TRAFO3D_H

#include <cmath>
#include <cstring>

namespace plain
{

enum
{
    max_columns = 10,
    max_parameters = 7,
    most_points = 50,
    max_rows = 3 * most_points
};

constexpr double rotation_unit = 0.01;   // sine of the angle for a parameter of 1
constexpr double translation_unit = 0.1; // in the unit of the points
constexpr double scale_unit = 0.001;
constexpr double damping = 0.5;
constexpr double converged_change = 0.001; // in the unit of the points
constexpr int max_tries = 10;
constexpr int max_iterations = 10;

inline int linear_lsq_solve(double* x, double* b, double* A, int m, int n, double* residual);
inline void perform(double (*out)[3], double (*T)[4], double (*in)[3], int n);

inline double dot(const double* a, const double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline double length(const double* a) { return std::sqrt(dot(a, a)); }

inline void difference(double* out, const double* a, const double* b)
{
    for (int r = 0; r < 3; ++r)
        out[r] = a[r] - b[r];
}

inline void cross(double* out, const double* a, const double* b)
{
    out[0] = a[1] * b[2] - a[2] * b[1];
    out[1] = a[2] * b[0] - a[0] * b[2];
    out[2] = a[0] * b[1] - a[1] * b[0];
}

/// Orthonormal right-handed axes of a triple of points: along the first leg, within the plane,
/// normal to it. Returns false if the triple is degenerate.
inline bool triple_axes(double (*axes)[3], const double (*points)[3])
{
    double legs[2][3];
    difference(legs[0], points[1], points[0]);
    difference(legs[1], points[2], points[0]);
    const double leg_length = length(legs[0]);
    if (leg_length == 0.0)
        return false;

    double normal[3];
    cross(normal, legs[0], legs[1]);
    const double normal_length = length(normal);
    if (normal_length == 0.0)
        return false;

    for (int r = 0; r < 3; ++r) {
        axes[0][r] = legs[0][r] / leg_length;
        axes[2][r] = normal[r] / normal_length;
    }
    cross(axes[1], axes[2], axes[0]);
    const double third_length = length(axes[1]);
    if (third_length == 0.0)
        return false;
    for (int r = 0; r < 3; ++r)
        axes[1][r] /= third_length;
    return true;
}

/// Root mean square of the distances of n point pairs; not a number for n of 0.
inline double calc_residual(double (*a)[3], double (*b)[3], int n)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        double d[3];
        difference(d, a[i], b[i]);
        sum += dot(d, d);
    }
    return std::sqrt(sum / n);
}

/// out = in changed by the small parameters p: the rotation step happens in the source's frame,
/// the translation step is not rotated.
inline int change_trafo(double (*out)[4], double (*in)[4], double* p)
{
    for (int r = 0; r < 3; ++r)
        out[r][3] = in[r][3] + translation_unit * p[3 + r];
    std::memcpy(out[3], in[3], sizeof(double[4]));

    const double s1 = rotation_unit * p[0];
    const double s2 = rotation_unit * p[1];
    const double s3 = rotation_unit * p[2];
    const double c1 = std::sqrt(1.0 - s1 * s1);
    const double c2 = std::sqrt(1.0 - s2 * s2);
    const double c3 = std::sqrt(1.0 - s3 * s3);
    const double M[3][3] = {
        {c2 * c3, -c2 * s3, s2},
        {c1 * s3 + s1 * s2 * c3, c1 * c3 - s1 * s2 * s3, -s1 * c2},
        {s1 * s3 - c1 * s2 * c3, s1 * c3 + c1 * s2 * s3, c1 * c2},
    };
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            out[r][c] = in[r][0] * M[0][c] + in[r][1] * M[1][c] + in[r][2] * M[2][c];

    if (p[6] != 0.0) {
        const double factor = 1.0 + scale_unit * p[6];
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                out[r][c] *= factor;
    }
    return 0;
}

/// Displacement of all points under one unit step of each active parameter, as m rows of np.
inline void fill_jacobian(double* A, int np, double (*cur)[4], double (*source)[3],
                          double (*now)[3], int n)
{
    double trial[4][4];
    double moved[most_points][3];
    for (int j = 0; j < np; ++j) {
        double p[max_parameters] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
        p[j] = 1.0;
        change_trafo(trial, cur, p);
        perform(moved, trial, source, n);
        for (int i = 0; i < n; ++i)
            for (int c = 0; c < 3; ++c)
                A[(3 * i + c) * np + j] = moved[i][c] - now[i][c];
    }
}

inline void divide_scale_out(double (*T)[4], double* scale)
{
    const double s = length(T[0]);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 4; ++c)
            T[r][c] /= s;
    *scale = s;
}

inline int opt_trafo(double (*T)[4], double* scale, double (*target)[3], double (*source)[3], int n,
                     double* residual, int fit_scale)
{
    const int np = fit_scale ? 7 : 6;
    double cur[4][4];
    double trial[4][4];
    double now[most_points][3];
    double A[max_rows * max_parameters];
    double b[max_rows];

    std::memcpy(cur, T, sizeof cur);
    perform(now, cur, source, n);
    double old = calc_residual(target, now, n);
    double r = old;

    for (int iteration = 1;; ++iteration) {
        for (int i = 0; i < n; ++i)
            difference(&b[3 * i], target[i], now[i]);
        fill_jacobian(A, np, cur, source, now, n);

        double p[max_parameters] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
        double unused_residual;
        if (linear_lsq_solve(p, b, A, 3 * n, np, &unused_residual) != 0)
            return -1;

        for (int attempt = 1;; ++attempt) {
            change_trafo(trial, cur, p);
            perform(now, trial, source, n);
            r = calc_residual(target, now, n);
            // A trial that is a hair worse than `cur` also ends the search, here and below.
            if (old > r || std::fabs(old - r) < converged_change)
                break;
            for (int j = 0; j < max_parameters; ++j)
                p[j] *= damping;
            if (attempt == max_tries)
                return -2;
        }
        if (std::fabs(old - r) < converged_change)
            break;
        if (iteration == max_iterations)
            return -3;
        std::memcpy(cur, trial, sizeof cur);
        old = r;
    }

    if (fit_scale)
        divide_scale_out(trial, scale);
    std::memcpy(T, trial, sizeof trial);
    *residual = r;
    return 0;
}

inline int linear_lsq_solve(double* x, double* b, double* A, int m, int n, double* residual)
{
    if (n > max_columns)
        return -1;
    double d[max_columns];

    for (int k = 0; k < n; ++k) {
        if (k >= m)
            return -2;
        double s = 0.0;
        for (int i = k; i < m; ++i)
            s += A[i * n + k] * A[i * n + k];
        if (s == 0.0)
            return -2;
        const double v = A[k * n + k];
        const double alpha = v < 0.0 ? std::sqrt(s) : -std::sqrt(s);
        d[k] = alpha;
        A[k * n + k] = v - alpha;
        const double beta = 1.0 / (alpha * v - s);
        for (int j = k + 1; j < n; ++j) {
            double sum = 0.0;
            for (int i = k; i < m; ++i)
                sum += A[i * n + k] * A[i * n + j];
            const double t = beta * sum;
            for (int i = k; i < m; ++i)
                A[i * n + j] += A[i * n + k] * t;
        }
        double sum = 0.0;
        for (int i = k; i < m; ++i)
            sum += A[i * n + k] * b[i];
        const double t = beta * sum;
        for (int i = k; i < m; ++i)
            b[i] += A[i * n + k] * t;
    }

    for (int i = n - 1; i >= 0; --i) {
        double sum = 0.0;
        for (int j = i + 1; j < n; ++j)
            sum += A[i * n + j] * x[j];
        x[i] = (b[i] - sum) / d[i];
    }
    double sum = 0.0;
    for (int i = n; i < m; ++i)
        sum += b[i] * b[i];
    *residual = std::sqrt(sum);
    return 0;
}

inline void perform(double (*out)[3], double (*T)[4], double (*in)[3], int n)
{
    for (int i = 0; i < n; ++i)
        for (int r = 0; r < 3; ++r)
            out[i][r] = T[r][0] * in[i][0] + T[r][1] * in[i][1] + T[r][2] * in[i][2] + T[r][3];
}

inline int start_trafo(double (*T)[4], double (*target)[3], double (*source)[3])
{
    double Fa[3][3]; // rows are the axes
    double Fb[3][3];
    if (!triple_axes(Fa, target) || !triple_axes(Fb, source))
        return -1;

    double R[3][3];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            R[r][c] = Fa[0][r] * Fb[0][c] + Fa[1][r] * Fb[1][c] + Fa[2][r] * Fb[2][c];
    for (int r = 0; r < 3; ++r) {
        std::memcpy(T[r], R[r], sizeof R[r]);
        T[r][3] = target[0][r]
                  - (R[r][0] * source[0][0] + R[r][1] * source[0][1] + R[r][2] * source[0][2]);
        T[3][r] = 0.0;
    }
    T[3][3] = 1.0;
    return 0;
}

inline int fit_trafo(double (*T)[4], double* scale, double (*target)[3], double (*source)[3], int n,
                     double* residual)
{
    if (n > most_points)
        return -1;
    return opt_trafo(T, scale, target, source, n, residual, scale != nullptr);
}

} // namespace plain

#endif
