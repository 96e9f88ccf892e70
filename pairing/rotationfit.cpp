#include "pairing/rotationfit.h"

#include <algorithm>
#include <cmath>

namespace
{

/// Zeroes entry (p, q) of the symmetric A by a rotation, and turns the columns of V with it.
void jacobi_step(double (*A)[4], double (*V)[4], int p, int q)
{
    if (A[p][q] == 0.0)
        return;
    const double theta = (A[q][q] - A[p][p]) / (2.0 * A[p][q]);
    const double t =
        (theta < 0.0 ? -1.0 : 1.0) / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
    const double c = 1.0 / std::sqrt(t * t + 1.0);
    const double s = t * c;
    for (int k = 0; k < 4; ++k) {
        const double kp = A[k][p], kq = A[k][q];
        A[k][p] = c * kp - s * kq;
        A[k][q] = s * kp + c * kq;
    }
    for (int k = 0; k < 4; ++k) {
        const double pk = A[p][k], qk = A[q][k];
        A[p][k] = c * pk - s * qk;
        A[q][k] = s * pk + c * qk;
        const double vp = V[k][p], vq = V[k][q];
        V[k][p] = c * vp - s * vq;
        V[k][q] = s * vp + c * vq;
    }
}

double off_diagonal(const double (*A)[4])
{
    double sum = 0.0;
    for (int p = 0; p < 4; ++p)
        for (int q = p + 1; q < 4; ++q)
            sum += A[p][q] * A[p][q];
    return sum;
}

/// out = a vector at right angles to the three others.
void set_normal(double* out, const double* a, const double* b, const double* c)
{
    for (int r = 0; r < 4; ++r) { // the minors of a determinant, with alternating signs
        const int x = (r + 1) % 4, y = (r + 2) % 4, z = (r + 3) % 4;
        const double minor = a[x] * (b[y] * c[z] - b[z] * c[y]) - a[y] * (b[x] * c[z] - b[z] * c[x])
                             + a[z] * (b[x] * c[y] - b[y] * c[x]);
        out[r] = r % 2 == 0 ? minor : -minor;
    }
}

/// Determinant of four columns, with the opposite sign.
double determinant(const double* a, const double* b, const double* c, const double* d)
{
    double normal[4];
    set_normal(normal, a, b, c);
    return quaternion_dot(normal, d);
}

/// Characteristic polynomial x^4 + c2 x^2 + c1 x + c0 of N(H). c0 = det N follows from det H,
/// |H|^2 and the squares of the cofactors: with the singular values s (the last signed) the
/// eigenvalues are s1 + s2 + s3, s1 - s2 - s3 and so on.
struct Quartic
{
    explicit Quartic(const double (*H)[3]);
    double slope(double x) const { return (4.0 * x * x + 2.0 * c2) * x + c1; }
    double operator()(double x) const { return ((x * x + c2) * x + c1) * x + c0; }

    double squares; ///< |H|^2
    double c2, c1, c0;
};

Quartic::Quartic(const double (*H)[3]) : squares(matrix_dot(H, H)), c2(-2.0 * squares)
{
    double cofactors[3][3];
    for (int r = 0; r < 3; ++r) {
        const double* u = H[(r + 1) % 3];
        const double* v = H[(r + 2) % 3];
        cofactors[r][0] = u[1] * v[2] - u[2] * v[1];
        cofactors[r][1] = u[2] * v[0] - u[0] * v[2];
        cofactors[r][2] = u[0] * v[1] - u[1] * v[0];
    }
    c1 = -8.0 * (H[0][0] * cofactors[0][0] + H[0][1] * cofactors[0][1] + H[0][2] * cofactors[0][2]);
    c0 = squares * squares - 4.0 * matrix_dot(cofactors, cofactors);
}

/// Newton's method from above, where the polynomial is convex.
double largest_root(const Quartic& quartic)
{
    const int most_steps = 20; // five are usual; where two roots coincide each halves the error
    const double enough = 1e-12;
    double x = std::sqrt(3.0 * quartic.squares);
    for (int step = 0; step < most_steps; ++step) {
        const double slope = quartic.slope(x);
        const double change = slope > 0.0 ? quartic(x) / slope : 0.0;
        x -= change;
        if (!(change > enough * x))
            break;
    }
    return x;
}

} // namespace

void quaternion_form(double (*out)[4], const double (*H)[3])
{
    out[0][0] = H[0][0] + H[1][1] + H[2][2];
    out[1][1] = H[0][0] - H[1][1] - H[2][2];
    out[2][2] = -H[0][0] + H[1][1] - H[2][2];
    out[3][3] = -H[0][0] - H[1][1] + H[2][2];
    out[0][1] = out[1][0] = H[2][1] - H[1][2];
    out[0][2] = out[2][0] = H[0][2] - H[2][0];
    out[0][3] = out[3][0] = H[1][0] - H[0][1];
    out[1][2] = out[2][1] = H[0][1] + H[1][0];
    out[1][3] = out[3][1] = H[0][2] + H[2][0];
    out[2][3] = out[3][2] = H[1][2] + H[2][1];
}

bool trace_stays_below(const double (*H)[3], double limit)
{
    // As all roots are real, x lies beyond the largest one exactly if the polynomial and all its
    // derivatives are positive there.
    //
    // Where the two largest roots nearly coincide the polynomial is small beside its terms. The
    // second derivative is positive only for |H|^2 < 3 x^2, where c2 x^2, c1 x and c0 are at most
    // 6, 8 and 12 times x^4; each is reached with fewer than 20 roundings of 1.2e-16, which makes
    // 6e-14 x^4 together. This covers it, and the derivatives with x^3 and x^2.
    const double rounding = 4e-13;
    const double smallest = 1e-70; // whose fourth power is a normal number
    const double x = limit;
    const double x2 = x * x;
    if (!(x > smallest && (6.0 - rounding) * x2 > 2.0 * matrix_dot(H, H)))
        return false;
    const Quartic quartic(H);
    return quartic.slope(x) > rounding * x2 * x && quartic(x) > rounding * x2 * x2;
}

double likely_rotation(const double (*H)[3], double* quaternion)
{
    const double clear = 1e-10; // beside it the two largest roots are far apart
    const Quartic quartic(H);
    const double root = largest_root(quartic);
    double N[4][4];
    quaternion_form(N, H);
    for (int r = 0; r < 4; ++r)
        N[r][r] -= root;
    double largest = clear * quartic.squares * quartic.squares * quartic.squares;
    double longest[4];
    bool found = false;
    for (int k = 0; k < 4; ++k) {
        double v[4];
        set_normal(v, N[(k + 1) % 4], N[(k + 2) % 4], N[(k + 3) % 4]);
        const double square = quaternion_dot(v, v);
        if (!(square > largest))
            continue;
        found = true;
        largest = square;
        std::copy(v, v + 4, longest);
    }
    if (!found)
        return best_rotation(H, quaternion);
    for (int r = 0; r < 4; ++r)
        quaternion[r] = longest[r] / std::sqrt(largest);
    return root;
}

double best_rotation(const double (*H)[3], double* quaternion, double* second)
{
    const int most_sweeps = 12; // four or five are usual
    double A[4][4];
    double V[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    quaternion_form(A, H);
    for (int sweep = 0; sweep < most_sweeps && off_diagonal(A) > 0.0; ++sweep)
        for (int p = 0; p < 4; ++p)
            for (int q = p + 1; q < 4; ++q)
                jacobi_step(A, V, p, q);

    int best = 0;
    for (int k = 1; k < 4; ++k)
        if (A[k][k] > A[best][best])
            best = k;
    for (int r = 0; r < 4; ++r)
        quaternion[r] = V[r][best];
    if (second) {
        *second = A[best == 0 ? 1 : 0][best == 0 ? 1 : 0];
        for (int k = 0; k < 4; ++k)
            if (k != best)
                *second = std::max(*second, A[k][k]);
    }
    return A[best][best];
}

void rotation_product(double (*out)[3], const double* p, const double* q)
{
    const double ww = p[0] * q[0], xx = p[1] * q[1], yy = p[2] * q[2], zz = p[3] * q[3];
    const double wx = p[0] * q[1] + p[1] * q[0], wy = p[0] * q[2] + p[2] * q[0];
    const double wz = p[0] * q[3] + p[3] * q[0], xy = p[1] * q[2] + p[2] * q[1];
    const double xz = p[1] * q[3] + p[3] * q[1], yz = p[2] * q[3] + p[3] * q[2];
    out[0][0] = ww + xx - yy - zz;
    out[0][1] = xy - wz;
    out[0][2] = xz + wy;
    out[1][0] = xy + wz;
    out[1][1] = ww - xx + yy - zz;
    out[1][2] = yz - wx;
    out[2][0] = xz - wy;
    out[2][1] = yz + wx;
    out[2][2] = ww - xx - yy + zz;
}

double quaternion_dot(const double* p, const double* q)
{
    return p[0] * q[0] + p[1] * q[1] + p[2] * q[2] + p[3] * q[3];
}

double matrix_dot(const double (*A)[3], const double (*B)[3])
{
    double sum = 0.0;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            sum += A[r][c] * B[r][c];
    return sum;
}

bool is_between(const double* const* corner, const double* q)
{
    const double whole = determinant(corner[0], corner[1], corner[2], corner[3]);
    // Each determinant is a sum of 24 products of parts below one.
    const double rounding = 1e-6 * std::fabs(whole) + 2e-14;
    const double weights[4] = {determinant(q, corner[1], corner[2], corner[3]),
                               determinant(corner[0], q, corner[2], corner[3]),
                               determinant(corner[0], corner[1], q, corner[3]),
                               determinant(corner[0], corner[1], corner[2], q)};
    const double least = *std::min_element(weights, weights + 4);
    const double most = *std::max_element(weights, weights + 4);
    return least >= -rounding || most <= rounding;
}
