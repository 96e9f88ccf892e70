#include "pairing/rotationcells.h"

#include "pairing/rotationfit.h"

#include <algorithm>
#include <cmath>

namespace
{

const double golden = 1.6180339887498949;
const double edge_cosine = golden / 2.0; // neighbours are 36 degrees apart

bool is_even(const int* permutation)
{
    int inversions = 0;
    for (int i = 0; i < 4; ++i)
        for (int j = i + 1; j < 4; ++j)
            inversions += permutation[i] > permutation[j];
    return inversions % 2 == 0;
}

/// Sign that brings q to the side of p if the two are neighbours, otherwise 0.
int neighbour_sign(const double* p, const double* q)
{
    const double cosine = quaternion_dot(p, q);
    if (std::fabs(std::fabs(cosine) - edge_cosine) > 0.01)
        return 0;
    return cosine > 0.0 ? 1 : -1;
}

} // namespace

const RotationCells& RotationCells::instance()
{
    static const RotationCells cells;
    return cells;
}

RotationCells::RotationCells()
{
    add_vertices();
    add_cells();
}

/// All even permutations of (golden, 1, 1 / golden, 0) / 2, (1, 1, 1, 1) / 2 and (1, 0, 0, 0) with
/// all signs; of each pair q and -q the one whose first component that is not 0 is positive.
int RotationCells::add_vertices()
{
    int count = 0;
    int place[4] = {0, 1, 2, 3};
    do {
        const double parts[4] = {golden / 2.0, 0.5, 0.5 / golden, 0.0};
        for (int signs = 0; is_even(place) && signs < 8; ++signs) {
            double* q = vertices[count];
            for (int k = 0; k < 4; ++k)
                q[place[k]] = (k < 3 && (signs >> k) % 2 ? -1.0 : 1.0) * parts[k];
            const double* leading = q;
            while (*leading == 0.0)
                ++leading;
            count += *leading > 0.0;
        }
    } while (std::next_permutation(place, place + 4));

    for (int signs = 0; signs < 8; ++signs, ++count)
        for (int k = 0; k < 4; ++k)
            vertices[count][k] = k < 3 && (signs >> k) % 2 ? -0.5 : 0.5;
    for (int axis = 0; axis < 4; ++axis, ++count)
        for (int k = 0; k < 4; ++k)
            vertices[count][k] = k == axis ? 1.0 : 0.0;
    return count;
}

void RotationCells::add_cells()
{
    int neighbour[vertex_count][vertex_count];
    for (int i = 0; i < vertex_count; ++i)
        for (int j = 0; j < vertex_count; ++j)
            neighbour[i][j] = neighbour_sign(vertices[i], vertices[j]);

    int count = 0;
    for (int i = 0; i < vertex_count; ++i) {
        for (int j = i + 1; j < vertex_count; ++j) {
            const int sj = neighbour[i][j];
            for (int k = j + 1; sj != 0 && k < vertex_count; ++k) {
                const int sk = neighbour[i][k];
                if (sk == 0 || neighbour[j][k] != sj * sk)
                    continue;
                for (int l = k + 1; l < vertex_count; ++l) {
                    const int sl = neighbour[i][l];
                    if (sl == 0 || neighbour[j][l] != sj * sl || neighbour[k][l] != sk * sl)
                        continue;
                    const int cell[4] = {i, j, k, l};
                    const int sign[4] = {1, sj, sk, sl};
                    std::copy(cell, cell + 4, cells[count]);
                    std::copy(sign, sign + 4, signs[count]);
                    ++count;
                }
            }
        }
    }
}
