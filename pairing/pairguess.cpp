#include "pairing/pairguess.h"

#include "pairing/rotationfit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

const int reference_pairs = pair_guesses / guesses_per_pair;

double dot(const double* a, const double* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

/// |a x b| from the squared lengths and the dot product.
double cross_length(double aa, double bb, double ab)
{
    return std::sqrt(std::max(0.0, aa * bb - ab * ab));
}

struct Guess
{
    double error; // sum of the squared distances of the two pairs
    int measured[2];
    bool operator<(const Guess& other) const { return error < other.error; }
};

/// Chooses two reference points that are not used yet: far out, and in different directions.
void choose_reference(const CenteredPoints& points, bool* used, int* pair)
{
    pair[0] = pair[1] = -1;
    for (int i = 0; i < points.n; ++i)
        if (!used[i]
            && (pair[0] < 0 || points.reference_square[i] > points.reference_square[pair[0]]))
            pair[0] = i;
    used[pair[0]] = true;

    const double* first = points.reference[pair[0]];
    double largest = -1.0;
    for (int i = 0; i < points.n; ++i) {
        const double area =
            cross_length(points.reference_square[pair[0]], points.reference_square[i],
                         dot(first, points.reference[i]));
        if (!used[i] && area > largest) {
            largest = area;
            pair[1] = i;
        }
    }
    used[pair[1]] = true;
}

/// Least error of two pairs over all rotations: with H of rank two, the sum of its singular values
/// s1 + s2 is the square root of |H|^2 + 2 s1 s2, and s1 s2 = |a1 x a2| |b1 x b2|.
class PairError
{
public:
    PairError(const CenteredPoints& points_, const int* reference)
        : points(points_), aa{points.reference_square[reference[0]],
                              points.reference_square[reference[1]]},
          ab(dot(points.reference[reference[0]], points.reference[reference[1]])),
          area(cross_length(aa[0], aa[1], ab))
    {
    }

    double operator()(int j, int k) const
    {
        const double bb[2] = {points.measured_square[j], points.measured_square[k]};
        const double b_dot = dot(points.measured[j], points.measured[k]);
        const double squares = aa[0] * bb[0] + aa[1] * bb[1] + 2.0 * ab * b_dot;
        const double trace_square = squares + 2.0 * area * cross_length(bb[0], bb[1], b_dot);
        return aa[0] + aa[1] + bb[0] + bb[1] - 2.0 * std::sqrt(std::max(0.0, trace_square));
    }

private:
    const CenteredPoints& points;
    const double aa[2];
    const double ab;
    const double area;
};

/// Returns the number of guesses, the best ones first.
int find_guesses(const CenteredPoints& points, const int* reference, Guess* guesses)
{
    const PairError error_of(points, reference);
    int count = 0;
    for (int j = 0; j < points.n; ++j)
        for (int k = 0; k < points.n; ++k) {
            const Guess guess = {j == k ? std::numeric_limits<double>::infinity() : error_of(j, k),
                                 {j, k}};
            if (j == k || (count == guesses_per_pair && !(guess < guesses[count - 1])))
                continue;
            if (count == guesses_per_pair)
                --count;
            Guess* const place = std::upper_bound(guesses, guesses + count, guess);
            std::copy_backward(place, guesses + count, guesses + count + 1);
            *place = guess;
            ++count;
        }
    return count;
}

} // namespace

int guess_rotations(const CenteredPoints& points, double (*quaternions)[4])
{
    bool used[trafo3d_max_points] = {false};
    int written = 0;
    for (int p = 0; p < reference_pairs && 2 * (p + 1) <= points.n; ++p) {
        int reference[2] = {0, 0};
        Guess guesses[guesses_per_pair];
        choose_reference(points, used, reference);
        const int count = find_guesses(points, reference, guesses);
        for (int g = 0; g < count; ++g) {
            double H[3][3] = {{0.0}};
            for (int k = 0; k < 2; ++k)
                add_pair(H, points.reference[reference[k]],
                         points.measured[guesses[g].measured[k]]);
            likely_rotation(H, quaternions[written++]);
        }
    }
    return written;
}
