#include "registration/trafo3d.h"

#include "registration/stepsystem.h"

#include <cmath>
#include <cstring>

namespace
{

constexpr int max_parameters = 7;
constexpr int max_rows = 3 * trafo3d_max_points; // one for each coordinate

constexpr double rotation_unit = 0.01;   // sine of the angle for a parameter of 1
constexpr double translation_unit = 0.1; // in the unit of the points
constexpr double scale_unit = 0.001;
constexpr double damping = 0.5;
constexpr double converged_change = 0.001; // in the unit of the points
constexpr int max_tries = 10;
constexpr int max_iterations = 10;

double dot(const double* a, const double* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

double length(const double* a) { return std::sqrt(dot(a, a)); }

void difference(double* out, const double* a, const double* b)
{
    for (int r = 0; r < 3; ++r)
        out[r] = a[r] - b[r];
}

void cross(double* out, const double* a, const double* b)
{
    out[0] = a[1] * b[2] - a[2] * b[1];
    out[1] = a[2] * b[0] - a[0] * b[2];
    out[2] = a[0] * b[1] - a[1] * b[0];
}

/// Orthonormal right-handed axes of a triple of points: along the first leg, within the plane,
/// normal to it. Returns false if the triple is degenerate.
bool triple_axes(double (*axes)[3], const double (*points)[3])
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
double calc_residual(double (*a)[3], double (*b)[3], int n)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        double d[3];
        difference(d, a[i], b[i]);
        sum += dot(d, d);
    }
    return std::sqrt(sum / n);
}

/// M = Rx Ry Rz for angles given by their sines; the cosines are taken positive.
void rotation_from_sines(double (*M)[3], double s1, double s2, double s3)
{
    const double c1 = std::sqrt(1.0 - s1 * s1);
    const double c2 = std::sqrt(1.0 - s2 * s2);
    const double c3 = std::sqrt(1.0 - s3 * s3);
    M[0][0] = c2 * c3;
    M[0][1] = -c2 * s3;
    M[0][2] = s2;
    M[1][0] = c1 * s3 + s1 * s2 * c3;
    M[1][1] = c1 * c3 - s1 * s2 * s3;
    M[1][2] = -s1 * c2;
    M[2][0] = s1 * s3 - c1 * s2 * c3;
    M[2][1] = s1 * c3 + c1 * s2 * s3;
    M[2][2] = c1 * c2;
}

/// The 3 x 3 part of out = that of in, multiplied by M from the right.
void turn(double (*out)[4], double (*in)[4], const double (*M)[3])
{
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            out[r][c] = in[r][0] * M[0][c] + in[r][1] * M[1][c] + in[r][2] * M[2][c];
}

/// out = in changed by the small parameters p: the rotation step happens in the source's frame,
/// the translation step is not rotated.
int change_trafo(double (*out)[4], double (*in)[4], double* p)
{
    for (int r = 0; r < 3; ++r)
        out[r][3] = in[r][3] + translation_unit * p[3 + r];
    std::memcpy(out[3], in[3], sizeof(double[4]));

    double M[3][3];
    rotation_from_sines(M, rotation_unit * p[0], rotation_unit * p[1], rotation_unit * p[2]);
    turn(out, in, M);

    if (p[6] != 0.0) {
        const double factor = 1.0 + scale_unit * p[6];
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                out[r][c] *= factor;
    }
    return 0;
}

/// Rotations of the unit steps of parameters 0 to 2, and that of all others, which do not turn.
struct UnitRotations
{
    double M[4][3][3];
    UnitRotations()
    {
        for (int j = 0; j < 4; ++j)
            rotation_from_sines(M[j], j == 0 ? rotation_unit : 0.0, j == 1 ? rotation_unit : 0.0,
                                j == 2 ? rotation_unit : 0.0);
    }
};

template <int np>
using System = StepSystem<np, max_rows>;

/// The transformation after one unit step of each parameter, parameter by parameter in `lanes`.
template <int np>
struct UnitSteps
{
    enum
    {
        lanes = System<np>::lanes
    };

    double entry[3][4][lanes];

    explicit UnitSteps(double (*cur)[4])
    {
        static const UnitRotations rotations;
        double turned[4][4][4];
        for (int j = 0; j < 4; ++j)
            turn(turned[j], cur, rotations.M[j]);
        for (int r = 0; r < 3; ++r)
            for (int j = 0; j < lanes; ++j) {
                const double factor = j == 6 ? 1.0 + scale_unit : 1.0;
                for (int c = 0; c < 3; ++c)
                    entry[r][c][j] = turned[j < 3 ? j : 3][r][c] * factor;
                entry[r][3][j] = cur[r][3] + (j == 3 + r ? translation_unit : 0.0);
            }
    }
};

/// Displacement of all points under one unit step of each parameter, and what they lack to the
/// target, as 3 n rows.
template <int np>
void fill_system(System<np>* system, double (*cur)[4], double (*target)[3], double (*source)[3],
                 double (*now)[3], int n)
{
    const UnitSteps<np> steps(cur);
    for (int i = 0; i < n; ++i) {
        const double x = source[i][0], y = source[i][1], z = source[i][2];
        for (int c = 0; c < 3; ++c) {
            const double(*entry)[UnitSteps<np>::lanes] = steps.entry[c];
            double* row = system->rows[3 * i + c];
            for (int j = 0; j < UnitSteps<np>::lanes; ++j)
                row[j] =
                    entry[0][j] * x + entry[1][j] * y + entry[2][j] * z + entry[3][j] - now[i][c];
            row[System<np>::right_side] = target[i][c] - now[i][c];
        }
    }
}

void divide_scale_out(double (*T)[4], double* scale)
{
    const double s = length(T[0]);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 4; ++c)
            T[r][c] /= s;
    *scale = s;
}

/// Long because its two loops are one search with three ways to end.
template <int np>
int opt_trafo(double (*T)[4], double* scale, double (*target)[3], double (*source)[3], int n,
              double* residual)
{
    double cur[4][4];
    double trial[4][4];
    double now[trafo3d_max_points][3];
    System<np> system;

    std::memcpy(cur, T, sizeof cur);
    trafo3d_perform(now, cur, source, n);
    double old = calc_residual(target, now, n);
    double r = old;

    for (int iteration = 1;; ++iteration) {
        fill_system(&system, cur, target, source, now, n);
        double p[max_parameters] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
        if (!system.solve(p, 3 * n))
            return -1;

        for (int attempt = 1;; ++attempt) {
            change_trafo(trial, cur, p);
            trafo3d_perform(now, trial, source, n);
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

    if (np == max_parameters)
        divide_scale_out(trial, scale);
    std::memcpy(T, trial, sizeof trial);
    *residual = r;
    return 0;
}

} // namespace

void trafo3d_perform(double (*out)[3], double (*T)[4], double (*in)[3], int n)
{
    for (int i = 0; i < n; ++i)
        for (int r = 0; r < 3; ++r)
            out[i][r] = T[r][0] * in[i][0] + T[r][1] * in[i][1] + T[r][2] * in[i][2] + T[r][3];
}

int trafo3d_3trafo(double (*T)[4], double (*target)[3], double (*source)[3])
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

int trafo3d_opttrafo(double (*T)[4], double* scale, double (*target)[3], double (*source)[3], int n,
                     double* residual)
{
    if (n > trafo3d_max_points)
        return -1;
    return scale ? opt_trafo<7>(T, scale, target, source, n, residual)
                 : opt_trafo<6>(T, scale, target, source, n, residual);
}
