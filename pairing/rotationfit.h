// Best rotation for a cross-covariance of point pairs, by unit quaternions.
//
// For H, the sum of a_i b_i^T, a rotation R with the quaternion q = (w, x, y, z) gives
// sum a_i . R b_i = <R, H> = q^T N q with a symmetric 4 x 4 matrix N(H) of trace 0 (B. K. P. Horn,
// "Closed-form solution of absolute orientation using unit quaternions", 1987). Its largest value
// over all rotations is the largest eigenvalue of N.
#ifndef PAIRING_ROTATIONFIT_H
#define PAIRING_ROTATIONFIT_H

/// out = N(H).
void quaternion_form(double (*out)[4], const double (*H)[3]);

/// Returns true only if the largest eigenvalue of N(H) is below `limit`; may return false where it
/// is below by less than about 1e-6 of the size of N. Several times faster than the eigenvalue.
bool trace_stays_below(const double (*H)[3], double limit);

/// Returns the largest eigenvalue of N(H), and its unit quaternion, both exact to rounding; the
/// second largest eigenvalue, too, if asked for.
double best_rotation(const double (*H)[3], double* quaternion, double* second = nullptr);

/// The same, but for an occasional eigenvalue that is right to half of the digits only; its vector
/// is a good one, then, not the best. Many times faster: for guesses, not for bounds.
double likely_rotation(const double (*H)[3], double* quaternion);

/// out = the matrix B(p, q) with <B(p, q), H> = p^T N(H) q. B(q, q) is the rotation of a unit q.
void rotation_product(double (*out)[3], const double* p, const double* q);

double quaternion_dot(const double* p, const double* q);

/// Whether q or -q is a sum of the four corners with weights that are not negative, but for 1e-6
/// and for the rounding, which tells nothing any more about corners closer than about 1e-5.
bool is_between(const double* const* corners, const double* q);

/// <A, B>, the sum of the products of the entries.
double matrix_dot(const double (*A)[3], const double (*B)[3]);

#endif
