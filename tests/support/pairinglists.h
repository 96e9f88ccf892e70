// Random pairs of point lists for tests and benchmarks of the pairing, the same for the same seed.
#ifndef TESTS_SUPPORT_PAIRINGLISTS_H
#define TESTS_SUPPORT_PAIRINGLISTS_H

#include "registration/trafo3d.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>
#include <random>

/// A reference list, and measured points that belong to it in an unknown order.
class PairingLists
{
public:
    int n;
    double reference[trafo3d_max_points][3] = {};
    double measured[trafo3d_max_points][3] = {};

    PairingLists(int count, unsigned seed) : n(count), m_random(seed) {}

    double uniform(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }

    int index() { return std::uniform_int_distribution<int>(0, n - 1)(m_random); }
    bool toss() { return index() % 2 == 0; }
    double normal() { return m_normal(m_random); }

    /// Random points in a cube of the given edge, about the origin.
    void scatter(double (*points)[3], double edge)
    {
        for (int i = 0; i < n; ++i)
            for (int c = 0; c < 3; ++c)
                points[i][c] = uniform(-edge / 2.0, edge / 2.0);
    }

    void scatter(double edge) { scatter(reference, edge); }

    void cube(double edge)
    {
        for (int i = 0; i < n; ++i)
            for (int c = 0; c < 3; ++c)
                reference[i][c] = (i >> c) % 2 ? edge / 2.0 : -edge / 2.0;
    }

    void icosahedron(double edge)
    {
        const double golden = 1.618033988749895;
        for (int i = 0; i < n; ++i) {
            const double u = ((i / 3) % 2 ? 0.5 : -0.5) * edge;
            const double v = ((i / 6) % 2 ? 0.5 : -0.5) * edge * golden;
            reference[i][i % 3] = 0.0;
            reference[i][(i + 1) % 3] = u;
            reference[i][(i + 2) % 3] = v;
        }
    }

    /// Points on a lattice with three places along each of the first `dimensions` axes.
    void lattice(int dimensions, double step)
    {
        for (int i = 0; i < n; ++i)
            for (int c = 0; c < 3; ++c)
                reference[i][c] = c < dimensions ? step * (m_random() % 3) : 0.0;
    }

    /// Measures the reference points in a random order, moved at random, with normal noise.
    void measure(double noise, double shift)
    {
        double q[4];
        double square = 0.0;
        for (double& part : q) {
            part = normal();
            square += part * part;
        }
        for (double& part : q)
            part /= std::sqrt(square);
        const double w = q[0], x = q[1], y = q[2], z = q[3];
        const double R[3][3] = {
            {1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y)},
            {2 * (x * y + w * z), 1 - 2 * (x * x + z * z), 2 * (y * z - w * x)},
            {2 * (x * z - w * y), 2 * (y * z + w * x), 1 - 2 * (x * x + y * y)}};
        const double t[3] = {uniform(-shift, shift), uniform(-shift, shift),
                             uniform(-shift, shift)};
        int place[trafo3d_max_points];
        shuffled(place);
        for (int i = 0; i < n; ++i)
            for (int r = 0; r < 3; ++r)
                measured[place[i]][r] = R[r][0] * reference[i][0] + R[r][1] * reference[i][1]
                                        + R[r][2] * reference[i][2] + t[r] + noise * normal();
    }

    /// Measures the reference points in a random order where they are.
    void copy()
    {
        int place[trafo3d_max_points];
        shuffled(place);
        for (int i = 0; i < n; ++i)
            std::memcpy(measured[place[i]], reference[i], sizeof reference[i]);
    }

    /// Moves one measured point in a random direction.
    void displace_one(double distance)
    {
        const double d[3] = {normal(), normal(), normal()};
        const double length = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
        double* point = measured[index()];
        for (int c = 0; c < 3; ++c)
            point[c] += distance * d[c] / length;
    }

    void scale(double factor)
    {
        for (int i = 0; i < n; ++i)
            for (int c = 0; c < 3; ++c) {
                reference[i][c] *= factor;
                measured[i][c] *= factor;
            }
    }

private:
    void shuffled(int* place)
    {
        std::iota(place, place + n, 0);
        std::shuffle(place, place + n, m_random);
    }

    std::mt19937 m_random;
    std::normal_distribution<double> m_normal;
};

#endif
