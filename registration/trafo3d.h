// Rigid registration of point sets on plain arrays: no classes, no allocation, no exceptions.
//
// A transformation is a row-major array of four rows of four doubles: rotation (and any scale) in
// rows 0 to 2 and columns 0 to 2, translation in column 3, last row 0, 0, 0, 1. A point list is an
// array of rows of three doubles. Results come through pointer arguments; the int result is 0 on
// success and negative on failure. All zero tests are exact; nothing here has a tolerance unless it
// says so.
#ifndef REGISTRATION_TRAFO3D_H
#define REGISTRATION_TRAFO3D_H

/// Most point pairs that `trafo3d_opttrafo` takes.
constexpr int trafo3d_max_points = 50;

/// Finds x that minimises |A x - b| by Householder QR factorisation without column pivoting.
/// `x`: n values, out. `b`: m values, overwritten. `A`: m rows of n columns, row-major,
/// overwritten. `residual`: |A x - b|, out.
/// Returns 0; -1 if n is above 10 (nothing is touched); -2 if a column is exactly dependent or m is
/// below n. On failure `x` and `residual` are untouched, `A` and `b` are left part-way through.
int linear_lsq_solve(double* x, double* b, double* A, int m, int n, double* residual);

/// out[i] = T in[i] for n points. The last row of T is not read. `out` and `in` must differ.
void trafo3d_perform(double (*out)[3], double (*T)[4], double (*in)[3], int n);

/// First estimate from the first three point pairs: the first source point falls on the first
/// target point, the directions from first to second point coincide, and so do the planes of the
/// triples. A proper rotation without scale.
/// Returns 0, or -1 if either triple is degenerate; then `T` keeps its content.
int trafo3d_3trafo(double (*T)[4], double (*target)[3], double (*source)[3]);

/// Refines `T` so that it carries the n source points onto the target points with the smallest
/// root mean square distance: Gauss-Newton with step halving, ended by a change of the residual of
/// less than 0.001 in the unit of the points. `scale` null: rigid fit. Otherwise the scale is
/// fitted, divided out of all of rows 0 to 2 (the translation too), and stored in `*scale`.
/// Returns 0; -1 for a linear system that cannot be solved, or for n above `trafo3d_max_points`
/// (nothing is touched); -2 if ten halvings brought no improvement; -3 after ten iterations
/// without convergence. On failure `T`, `*scale` and `*residual` are untouched.
int trafo3d_opttrafo(double (*T)[4], double* scale, double (*target)[3], double (*source)[3], int n,
                     double* residual);

#endif
