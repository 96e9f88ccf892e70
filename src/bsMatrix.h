// A 4 by 4 matrix of doubles for homogeneous transformations, in the memory layout of OpenGL.
#ifndef SRC_BSMATRIX_H
#define SRC_BSMATRIX_H

#include "src/bsVector.h"

#include <iosfwd>

/// A value type without heap memory. Element (r, c), row r and column c from 0 to 3, is stored at
/// index r + 4c. Vectors are columns, multiplied from the right; the translation stands in
/// column 3; in a product A B, B is applied first. Angles are in degrees.
class bsMatrix
{
public:
    /// The null matrix, not the identity.
    bsMatrix() { setAll(0.0); }
    /// All sixteen elements v.
    bsMatrix(double v) { setAll(v); }
    /// Copies sixteen values in array order, that is column after column.
    bsMatrix(const double* p);
    bsMatrix(const bsMatrix& m);
    /// Assigning a matrix to itself is a programming error and stops the program.
    bsMatrix& operator=(const bsMatrix& m);

    bsMatrix& setNull();
    bsMatrix& setIdentity();
    static const bsMatrix& getIdentityMatrix();
    static const bsMatrix& getNullMatrix();

    /// Element (r, c), without range check.
    double& data(int r, int c) { return elements[r + 4 * c]; }
    double data(int r, int c) const { return elements[r + 4 * c]; }
    double& operator()(unsigned int r, unsigned int c) { return elements[r + 4 * c]; }
    double operator()(unsigned int r, unsigned int c) const { return elements[r + 4 * c]; }

    /// The sixteen elements as OpenGL takes them.
    operator double const*() const { return elements; }

    /// A row or column as a vector and its fourth element. An n outside 0 to 3 stops the program.
    void setRow(int n, const bsVector& v, double w);
    void setColumn(int n, const bsVector& v, double w);
    bsVector getRow(int n) const;
    bsVector getColumn(int n) const;

    bsMatrix& operator+=(const bsMatrix& m);
    bsMatrix& operator-=(const bsMatrix& m);
    bsMatrix& operator*=(double d);
    bsMatrix& operator/=(double d);
    bsMatrix operator*(double d) const;
    bsMatrix operator/(double d) const;
    /// 0.0 minus each element, so that a zero stays +0.0.
    bsMatrix operator-() const;

    /// This becomes this times b.
    bsMatrix& operator*=(const bsMatrix& b);
    /// Transforms the point v and divides by its fourth coordinate, unless that is exactly 0.
    bsVector operator*(const bsVector& v) const;

    /// The builders overwrite all sixteen elements and return this. rotationX, rotationY and
    /// rotationZ are right-handed.
    bsMatrix& translation(double x, double y, double z);
    bsMatrix& translation(const bsVector& v);
    bsMatrix& scaling(double x, double y, double z);
    bsMatrix& scaling(const bsVector& v);
    bsMatrix& rotationX(double degrees);
    bsMatrix& rotationY(double degrees);
    bsMatrix& rotationZ(double degrees);
    /// About an axis of length 1. Turns left-handed, the other way than the three above: what
    /// uses it relies on that.
    bsMatrix& rotation(double degrees, const bsVector& axis);

    double getDeterminant() const;

    /// Sum of the squares (and its square root) of all elements but (0, 0).
    double getNormeSquared() const;
    double getNorm() const;

    bsMatrix& transpose();
    bsMatrix& getTranspose(bsMatrix& out) const;

    /// Inverse of a rigid transformation: rotation, translation and a bottom row 0, 0, 0, w, of
    /// which w is kept. Whether the matrix is rigid is not tested.
    bsMatrix& fastInvert();
    bsMatrix& fastInvert(bsMatrix& out) const;

    /// Gauss elimination that takes as pivot the first row whose element is below 1e-7, or the
    /// last row, and leaves the last column out when it swaps rows. That is no general inverse;
    /// zero pivots give infinities and NaNs, and nothing is reported. Use fastInvert.
    bsMatrix& gaussInvert();
    bsMatrix& gaussInvert(bsMatrix& out) const;

    /// Whether rows and columns of the upper left 3 by 3 block have squared lengths from 0.999 to
    /// 1.001. Angles between them are not looked at, and NaN passes.
    bool isOrthonormal();

private:
    void setAll(double v);

    double elements[16];
};

bsMatrix operator+(const bsMatrix& a, const bsMatrix& b);
bsMatrix operator-(const bsMatrix& a, const bsMatrix& b);
bsMatrix operator*(const bsMatrix& a, const bsMatrix& b);

/// Equal if every element differs by less than 1e-7. NaN is equal to nothing.
bool operator==(bsMatrix a, bsMatrix b);
bool operator!=(bsMatrix a, bsMatrix b);

/// Writes four lines "[" and four values, each followed by a tab, "]".
std::ostream& operator<<(std::ostream& out, const bsMatrix& m);

/// Reads row after row, prompting for each on standard output.
std::istream& operator>>(std::istream& in, bsMatrix& m);

#endif
