#include "registration/trafo3d.h"

#include <cmath>

namespace
{

constexpr int max_columns = 10;

} // namespace

// Long because it is one factorisation in the sequence that gives the results their last bits.
int linear_lsq_solve(double* x, double* b, double* A, int m, int n, double* residual)
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
        // The loop above has set d for all columns. NOLINTNEXTLINE(clang-analyzer-core.*)
        x[i] = (b[i] - sum) / d[i];
    }
    double sum = 0.0;
    for (int i = n; i < m; ++i)
        sum += b[i] * b[i];
    *residual = std::sqrt(sum);
    return 0;
}
