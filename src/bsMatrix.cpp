// Long because the type has many operations; each is one formula.
#include "src/bsMatrix.h"

#include "src/bsAssert.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#define ASSERT_LINE_INDEX(n) BS_ASSERT(n >= 0 && n < 4, "n>=0 && n<4", "src/bsMatrix.cpp")

namespace
{

constexpr int element_count = 16;
constexpr double tolerance = 1e-7;
constexpr double radians_per_degree = 0.017453292519943295;

constexpr double identity_elements[element_count] = {
    1.0, 0.0, 0.0, 0.0, //
    0.0, 1.0, 0.0, 0.0, //
    0.0, 0.0, 1.0, 0.0, //
    0.0, 0.0, 0.0, 1.0, //
};

// Determinant of rows r, r + 1 and columns a, b.
double minorOf(const bsMatrix& m, int r, int a, int b)
{
    return m.data(r, a) * m.data(r + 1, b) - m.data(r, b) * m.data(r + 1, a);
}

bool isUnitLength(const bsVector& v)
{
    const double squared = bsVector::dotProduct(v, v);
    return !(squared < 0.999 || squared > 1.001);
}

// A matrix on the left and, to begin with, the identity on the right.
struct EliminationTable
{
    double cell[4][8];

    explicit EliminationTable(const bsMatrix& m)
    {
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c) {
                cell[r][c] = m.data(r, c);
                cell[r][4 + c] = r == c ? 1.0 : 0.0;
            }
    }

    // The first row from k on whose element in column k is small, or the last row.
    int pivotRow(int k) const
    {
        int p = k;
        while (p < 3 && !(std::fabs(cell[p][k]) < tolerance))
            ++p;
        return p;
    }

    // The last column stays behind; results depend on it.
    void swapRows(int a, int b) { std::swap_ranges(cell[a], cell[a] + 7, cell[b]); }

    void scaleRow(int r, double factor)
    {
        for (double& value : cell[r])
            value *= factor;
    }

    void subtractRow(int from, int r, double factor)
    {
        for (int c = 0; c < 8; ++c)
            cell[from][c] -= factor * cell[r][c];
    }

    void eliminateColumn(int k)
    {
        const int p = pivotRow(k);
        if (p != k)
            swapRows(p, k);
        scaleRow(k, 1.0 / cell[k][k]);
        for (int r = 0; r < 4; ++r)
            if (r != k)
                subtractRow(r, k, cell[r][k] / cell[k][k]);
    }
};

} // namespace

bsMatrix::bsMatrix(const double* p) { std::copy(p, p + element_count, elements); }

bsMatrix::bsMatrix(const bsMatrix& m)
{
    std::copy(m.elements, m.elements + element_count, elements);
}

bsMatrix& bsMatrix::operator=(const bsMatrix& m)
{
    BS_ASSERT(&m != this, "&m != this", "src/bsMatrix.cpp");
    std::copy(m.elements, m.elements + element_count, elements);
    return *this;
}

void bsMatrix::setAll(double v) { std::fill(elements, elements + element_count, v); }

bsMatrix& bsMatrix::setNull()
{
    setAll(0.0);
    return *this;
}

bsMatrix& bsMatrix::setIdentity()
{
    std::copy(identity_elements, identity_elements + element_count, elements);
    return *this;
}

const bsMatrix& bsMatrix::getIdentityMatrix()
{
    static const bsMatrix identity(identity_elements);
    return identity;
}

const bsMatrix& bsMatrix::getNullMatrix()
{
    static const bsMatrix null;
    return null;
}

void bsMatrix::setRow(int n, const bsVector& v, double w)
{
    ASSERT_LINE_INDEX(n);
    data(n, 0) = v.x;
    data(n, 1) = v.y;
    data(n, 2) = v.z;
    data(n, 3) = w;
}

void bsMatrix::setColumn(int n, const bsVector& v, double w)
{
    ASSERT_LINE_INDEX(n);
    data(0, n) = v.x;
    data(1, n) = v.y;
    data(2, n) = v.z;
    data(3, n) = w;
}

bsVector bsMatrix::getRow(int n) const
{
    ASSERT_LINE_INDEX(n);
    return bsVector(data(n, 0), data(n, 1), data(n, 2));
}

bsVector bsMatrix::getColumn(int n) const
{
    ASSERT_LINE_INDEX(n);
    return bsVector(data(0, n), data(1, n), data(2, n));
}

bsMatrix& bsMatrix::operator+=(const bsMatrix& m)
{
    for (int i = 0; i < element_count; ++i)
        elements[i] += m.elements[i];
    return *this;
}

bsMatrix& bsMatrix::operator-=(const bsMatrix& m)
{
    for (int i = 0; i < element_count; ++i)
        elements[i] -= m.elements[i];
    return *this;
}

bsMatrix& bsMatrix::operator*=(double d)
{
    for (double& element : elements)
        element *= d;
    return *this;
}

bsMatrix& bsMatrix::operator/=(double d)
{
    for (double& element : elements)
        element /= d;
    return *this;
}

bsMatrix bsMatrix::operator*(double d) const { return bsMatrix(*this) *= d; }

bsMatrix bsMatrix::operator/(double d) const { return bsMatrix(*this) /= d; }

bsMatrix bsMatrix::operator-() const { return bsMatrix() -= *this; }

bsMatrix& bsMatrix::operator*=(const bsMatrix& b) { return *this = *this * b; }

bsVector bsMatrix::operator*(const bsVector& v) const
{
    double sum[4];
    for (int r = 0; r < 4; ++r)
        sum[r] = data(r, 0) * v.x + data(r, 1) * v.y + data(r, 2) * v.z + data(r, 3);
    const bsVector point(sum);
    return sum[3] == 0.0 ? point : point / sum[3];
}

bsMatrix& bsMatrix::translation(double x, double y, double z)
{
    return translation(bsVector(x, y, z));
}

bsMatrix& bsMatrix::translation(const bsVector& v)
{
    setIdentity();
    setColumn(3, v, 1.0);
    return *this;
}

bsMatrix& bsMatrix::scaling(double x, double y, double z)
{
    setIdentity();
    data(0, 0) = x;
    data(1, 1) = y;
    data(2, 2) = z;
    return *this;
}

bsMatrix& bsMatrix::scaling(const bsVector& v) { return scaling(v.x, v.y, v.z); }

bsMatrix& bsMatrix::rotationX(double degrees)
{
    const double s = std::sin(degrees * radians_per_degree);
    const double c = std::cos(degrees * radians_per_degree);
    setIdentity();
    data(1, 1) = c;
    data(2, 1) = s;
    data(1, 2) = -s;
    data(2, 2) = c;
    return *this;
}

bsMatrix& bsMatrix::rotationY(double degrees)
{
    const double s = std::sin(degrees * radians_per_degree);
    const double c = std::cos(degrees * radians_per_degree);
    setIdentity();
    data(0, 0) = c;
    data(2, 0) = -s;
    data(0, 2) = s;
    data(2, 2) = c;
    return *this;
}

bsMatrix& bsMatrix::rotationZ(double degrees)
{
    const double s = std::sin(degrees * radians_per_degree);
    const double c = std::cos(degrees * radians_per_degree);
    setIdentity();
    data(0, 0) = c;
    data(1, 0) = s;
    data(0, 1) = -s;
    data(1, 1) = c;
    return *this;
}

bsMatrix& bsMatrix::rotation(double degrees, const bsVector& axis)
{
    const double s = std::sin(degrees * radians_per_degree);
    const double c = std::cos(degrees * radians_per_degree);
    const double x = axis.x;
    const double y = axis.y;
    const double z = axis.z;
    setIdentity();
    data(0, 0) = x * x + (1.0 - x * x) * c;
    data(0, 1) = x * y * (1.0 - c) + z * s;
    data(0, 2) = x * z * (1.0 - c) - y * s;
    data(1, 0) = x * y * (1.0 - c) - z * s;
    data(1, 1) = y * y + (1.0 - y * y) * c;
    data(1, 2) = y * z * (1.0 - c) + x * s;
    data(2, 0) = x * z * (1.0 - c) + y * s;
    data(2, 1) = y * z * (1.0 - c) - x * s;
    data(2, 2) = z * z + (1.0 - z * z) * c;
    return *this;
}

// Laplace expansion by the upper and the lower two rows.
double bsMatrix::getDeterminant() const
{
    const bsMatrix& m = *this;
    return minorOf(m, 0, 0, 1) * minorOf(m, 2, 2, 3) - minorOf(m, 0, 0, 2) * minorOf(m, 2, 1, 3)
           + minorOf(m, 0, 0, 3) * minorOf(m, 2, 1, 2) + minorOf(m, 0, 1, 2) * minorOf(m, 2, 0, 3)
           - minorOf(m, 0, 1, 3) * minorOf(m, 2, 0, 2) + minorOf(m, 0, 2, 3) * minorOf(m, 2, 0, 1);
}

double bsMatrix::getNormeSquared() const
{
    double sum = 0.0;
    for (int i = element_count - 1; i > 0; --i)
        sum += elements[i] * elements[i];
    return sum;
}

double bsMatrix::getNorm() const { return std::sqrt(getNormeSquared()); }

bsMatrix& bsMatrix::transpose() { return getTranspose(*this); }

bsMatrix& bsMatrix::getTranspose(bsMatrix& out) const
{
    bsMatrix transposed;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            transposed.data(r, c) = data(c, r);
    return out = transposed;
}

bsMatrix& bsMatrix::fastInvert() { return fastInvert(*this); }

bsMatrix& bsMatrix::fastInvert(bsMatrix& out) const
{
    const bsVector t = getColumn(3);
    bsMatrix inverse;
    for (int r = 0; r < 3; ++r) {
        const bsVector b = getColumn(r);
        inverse.setRow(r, b, -b.x * t.x - b.y * t.y - b.z * t.z);
    }
    inverse.data(3, 3) = data(3, 3);
    return out = inverse;
}

bsMatrix& bsMatrix::gaussInvert() { return gaussInvert(*this); }

bsMatrix& bsMatrix::gaussInvert(bsMatrix& out) const
{
    EliminationTable table(*this);
    for (int k = 0; k < 4; ++k)
        table.eliminateColumn(k);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out.data(r, c) = table.cell[r][4 + c];
    return out;
}

bool bsMatrix::isOrthonormal()
{
    for (int n = 0; n < 3; ++n)
        if (!isUnitLength(getColumn(n)) || !isUnitLength(getRow(n)))
            return false;
    return true;
}

bsMatrix operator+(const bsMatrix& a, const bsMatrix& b) { return bsMatrix(a) += b; }

bsMatrix operator-(const bsMatrix& a, const bsMatrix& b) { return bsMatrix(a) -= b; }

bsMatrix operator*(const bsMatrix& a, const bsMatrix& b)
{
    bsMatrix product;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            for (int k = 0; k < 4; ++k)
                product.data(i, j) += a.data(i, k) * b.data(k, j);
    return product;
}

bool operator==(bsMatrix a, bsMatrix b)
{
    const double* left = a;
    const double* right = b;
    for (int i = 0; i < element_count; ++i)
        if (!(std::fabs(left[i] - right[i]) < tolerance))
            return false;
    return true;
}

bool operator!=(bsMatrix a, bsMatrix b) { return !(a == b); }

std::ostream& operator<<(std::ostream& out, const bsMatrix& m)
{
    for (int r = 0; r < 4; ++r) {
        out << "[";
        for (int c = 0; c < 4; ++c)
            out << m.data(r, c) << "\t";
        out << "]\n";
    }
    return out;
}

std::istream& operator>>(std::istream& in, bsMatrix& m)
{
    for (int r = 0; r < 4; ++r) {
        std::cout << "? a" << r << " b" << r << " c" << r << " d" << r << " : ";
        for (int c = 0; c < 4; ++c)
            in >> m.data(r, c);
    }
    return in;
}
