// The linear system of one optimisation step, laid out so that its columns are worked on together.
#ifndef REGISTRATION_STEPSYSTEM_H
#define REGISTRATION_STEPSYSTEM_H

#include <cmath>

/// `columns` unknowns (6 or 7) in one row for each coordinate of each point. The right side stands
/// in the column after the last, so that elimination needs no second loop for it.
///
/// The numbers are those of `linear_lsq_solve` to the last bit: every sum runs over the rows in the
/// same sequence, and only sums of different columns are interleaved.
template <int columns, int max_rows>
class StepSystem
{
public:
    enum
    {
        lanes = 8, ///< length of a row, the same for both numbers of unknowns
        right_side = columns
    };

    double rows[max_rows][lanes];

    /// Solves the first m rows, at most max_rows, by Householder QR factorisation, which overwrites
    /// them. `x` receives `columns` values. Returns false, `x` untouched, if a column is exactly
    /// dependent or m is below the number of columns.
    bool solve(double* x, int m)
    {
        double squares = 0.0;
        for (int i = 0; i < m; ++i)
            squares += rows[i][0] * rows[i][0]; // the caller's. NOLINT(clang-analyzer-core.*)
        if (!eliminate(Column<0>(), m, squares))
            return false;
        for (int i = columns - 1; i >= 0; --i) {
            double sum = 0.0;
            for (int j = i + 1; j < columns; ++j)
                sum += rows[i][j] * x[j];
            x[i] = (rows[i][right_side] - sum) / diagonal[i];
        }
        return true;
    }

private:
    template <int k>
    struct Column
    {
    };

    bool eliminate(Column<columns>, int, double) { return true; }

    /// One Householder reflection: makes column k zero below row k and applies the same reflection
    /// to all later columns. `s` is the sum of squares of column k from row k on; that of the next
    /// column is computed in the same pass.
    template <int k>
    bool eliminate(Column<k>, int m, double s)
    {
        enum
        {
            // Rounded down to an even lane for pairwise arithmetic; where that is column k itself,
            // its elements below the diagonal are not read any more.
            first = k + 1 - (k + 1) % 2
        };
        if (k >= m || s == 0.0)
            return false;
        const double v = rows[k][k];
        const double alpha = v < 0.0 ? std::sqrt(s) : -std::sqrt(s);
        diagonal[k] = alpha;
        rows[k][k] = v - alpha;
        const double beta = 1.0 / (alpha * v - s);

        double sums[lanes] = {0.0};
        for (int i = k; i < m; ++i)
            for (int j = first; j < lanes; ++j)
                sums[j] += rows[i][k] * rows[i][j];
        double factors[lanes];
        for (int j = first; j < lanes; ++j)
            factors[j] = beta * sums[j];
        double next_squares = 0.0;
        for (int i = k; i < m; ++i) {
            const double leading = rows[i][k];
            for (int j = first; j < lanes; ++j)
                rows[i][j] += leading * factors[j];
            if (i > k)
                next_squares += rows[i][k + 1] * rows[i][k + 1];
        }
        return eliminate(Column<k + 1>(), m, next_squares);
    }

    double diagonal[columns];
};

#endif
