// The fit of two point lists written down step by step, against which the fast one is compared.
//
// Header only, so that a test of the fast code can include it. It is kept as plain as possible on
// purpose: do not optimise. Only what the fast code does in another way stands here; start value,
// solver and application are those of the registration library.
#ifndef TESTS_SUPPORT_PLAIN_TRAFO3D_H
#define TESTS_SUPPORT_PLAIN_TRAFO3D_H

#include "registration/trafo3d.h"

#include <cmath>
#include <cstring>

namespace plain
{

constexpr int max_parameters = 7;
constexpr int most_points = 50;
constexpr double rotation_unit = 0.01;   // sine of the angle for a parameter of 1
constexpr double translation_unit = 0.1; // in the unit of the points
constexpr double scale_unit = 0.001;
constexpr double damping = 0.5;
constexpr double converged_change = 0.001; // in the unit of the points
constexpr int max_tries = 10;
constexpr int max_iterations = 10;

/// Root mean square of the distances of n point pairs.
inline double residual_of(double (*a)[3], double (*b)[3], int n)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        const double d[] = {a[i][0] - b[i][0], a[i][1] - b[i][1], a[i][2] - b[i][2]};
        sum += d[0] * d[0] + d[1] * d[1] + d[2] * d[2];
    }
    return std::sqrt(sum / n);
}

/// out = in changed by the small parameters p: the rotation step happens in the source's frame,
/// the translation step is not rotated.
inline void change_trafo(double (*out)[4], double (*in)[4], const double* p)
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
    const double factor = p[6] != 0.0 ? 1.0 + scale_unit * p[6] : 1.0;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            out[r][c] = (in[r][0] * M[0][c] + in[r][1] * M[1][c] + in[r][2] * M[2][c]) * factor;
}

/// Displacement of all points under one unit step of each of np parameters, as 3 n rows of np.
inline void fill_jacobian(double* A, int np, double (*cur)[4], double (*source)[3],
                          double (*now)[3], int n)
{
    double trial[4][4];
    double moved[most_points][3];
    for (int j = 0; j < np; ++j) {
        double p[max_parameters] = {};
        p[j] = 1.0;
        change_trafo(trial, cur, p);
        trafo3d_perform(moved, trial, source, n);
        for (int i = 0; i < n; ++i)
            for (int c = 0; c < 3; ++c)
                A[(3 * i + c) * np + j] = moved[i][c] - now[i][c];
    }
}

/// As trafo3d_opttrafo.
inline int fit_trafo(double (*T)[4], double* scale, double (*target)[3], double (*source)[3], int n,
                     double* residual)
{
    if (n > most_points)
        return -1;
    const int np = scale ? 7 : 6;
    double cur[4][4], trial[4][4];
    double now[most_points][3];
    double A[3 * most_points * max_parameters], b[3 * most_points];

    std::memcpy(cur, T, sizeof cur);
    trafo3d_perform(now, cur, source, n);
    double old = residual_of(target, now, n);
    double r = old;
    for (int iteration = 1;; ++iteration) {
        for (int i = 0; i < 3 * n; ++i)
            b[i] = target[i / 3][i % 3] - now[i / 3][i % 3];
        fill_jacobian(A, np, cur, source, now, n);
        double p[max_parameters] = {};
        double unused;
        if (linear_lsq_solve(p, b, A, 3 * n, np, &unused) != 0)
            return -1;
        for (int attempt = 1;; ++attempt) {
            change_trafo(trial, cur, p);
            trafo3d_perform(now, trial, source, n);
            r = residual_of(target, now, n);
            // A trial that is a hair worse than `cur` also ends the search, here and below.
            if (old > r || std::fabs(old - r) < converged_change)
                break;
            for (double& parameter : p)
                parameter *= damping;
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

    if (scale) {
        *scale = std::sqrt(trial[0][0] * trial[0][0] + trial[0][1] * trial[0][1]
                           + trial[0][2] * trial[0][2]);
        for (int i = 0; i < 12; ++i)
            trial[i / 4][i % 4] /= *scale;
    }
    std::memcpy(T, trial, sizeof trial);
    *residual = r;
    return 0;
}

} // namespace plain

#endif
