// Kinds of point lists that are hard for the order search, for its tests and benchmarks.
#ifndef TESTS_SUPPORT_PAIRINGKINDS_H
#define TESTS_SUPPORT_PAIRINGKINDS_H

#include "tests/support/pairinglists.h"

#include <limits>

namespace pairing_kinds
{

constexpr double meter = 1000.0;

using Lists = PairingLists;

inline void measure_maybe_exactly(Lists& lists)
{
    if (lists.toss())
        lists.copy();
    else
        lists.measure(lists.toss() ? 0.0 : 1.0, lists.toss() ? 0.0 : meter);
}

inline void make_noisy(Lists& lists, double factor = 1.0)
{
    const double noises[] = {0.1, 1.0, 5.0, 20.0};
    lists.scatter(meter);
    lists.measure(noises[lists.index() % 4], meter);
    lists.scale(factor);
}

inline void make_tetrahedron(Lists& lists)
{
    const double corners[4][3] = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
    lists.scatter(2.0);
    for (int i = 0; i < std::min(lists.n, 4); ++i)
        std::copy(corners[i], corners[i] + 3, lists.reference[i]);
    lists.scale(300.0);
    measure_maybe_exactly(lists);
}

inline void make_square(Lists& lists)
{
    lists.cube(meter);
    for (int i = 0; i < lists.n; ++i)
        lists.reference[i][2] = i < 4 ? 0.0 : 100.0 * i;
    measure_maybe_exactly(lists);
}

inline void make_lattice(Lists& lists)
{
    lists.lattice(2 + lists.index() % 2, 100.0);
    measure_maybe_exactly(lists);
    if (lists.toss())
        lists.measured[0][lists.index() % 3] += 1e-13;
}

/// Points along a line, off it by `deviation` times their spread.
inline void make_line(Lists& lists, double deviation)
{
    const double direction[3] = {0.9, 0.3, 0.31};
    for (int i = 0; i < lists.n; ++i) {
        const double t = lists.uniform(-meter, meter);
        for (int c = 0; c < 3; ++c)
            lists.reference[i][c] = t * direction[c] + deviation * lists.uniform(-meter, meter);
    }
    lists.measure(lists.toss() ? 0.0 : 1.0, meter);
}

inline void make_duplicates(Lists& lists)
{
    lists.scatter(meter);
    for (int i = 1; i < lists.n; ++i)
        if (lists.index() == 0)
            std::memcpy(lists.reference[i], lists.reference[lists.index()], sizeof(double[3]));
    measure_maybe_exactly(lists);
    if (lists.toss())
        std::memcpy(lists.measured[lists.index()], lists.measured[lists.index()],
                    sizeof(double[3]));
}

inline void make_monstrous(Lists& lists)
{
    static constexpr double factors[] = {1e-300, 1e-163, 1e-157, 1e-83, 1e-43, 1e27,
                                         1e35,   1e36,   1e74,   1e97,  1e151, 1e297};
    make_noisy(lists);
    lists.scale(factors[int(lists.uniform(0.0, 12.0)) % 12]);
}

inline void make_not_finite(Lists& lists)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    const double odd[] = {std::nan(""), endless, -endless, 1e300, 1e-300};
    make_noisy(lists);
    double(*list)[3] = lists.toss() ? lists.reference : lists.measured;
    list[lists.index()][lists.index() % 3] = odd[int(lists.uniform(0.0, 5.0)) % 5];
}

/// An equilateral triangle and points on its axis, measured with another radius.
inline void make_axial(Lists& lists)
{
    const double radius = lists.uniform(200.0, 600.0);
    const double measured_radius = radius * lists.uniform(0.8, 1.2);
    const double half_height = lists.uniform(50.0, 400.0);
    int place[trafo3d_max_points];
    std::iota(place, place + lists.n, 0);
    std::rotate(place, place + lists.index(), place + lists.n);
    for (int i = 0; i < lists.n; ++i) {
        const double angle = 2.0943951023931953 * i;
        const bool is_corner = i < 3;
        double* a = lists.reference[i];
        double* b = lists.measured[place[i]];
        a[0] = is_corner ? radius * std::cos(angle) : 0.0;
        a[1] = is_corner ? radius * std::sin(angle) : 0.0;
        a[2] = b[2] = is_corner ? 0.0 : half_height * (i % 2 ? 1 : -1) * (1 + (i - 3) / 2);
        b[0] = is_corner ? measured_radius * std::cos(angle) : 0.0;
        b[1] = is_corner ? measured_radius * std::sin(angle) : 0.0;
    }
}

/// A box of a meter by two thin edges; its corners, some of them twice.
inline void make_thin_box(Lists& lists)
{
    const double width = std::pow(10.0, lists.uniform(-4.0, 1.0));
    const double height = lists.toss() ? 0.0 : std::pow(10.0, lists.uniform(-4.0, 1.0));
    lists.cube(1.0);
    for (int i = 0; i < lists.n; ++i) {
        lists.reference[i][0] *= meter;
        lists.reference[i][1] *= width;
        lists.reference[i][2] *= height;
    }
    lists.measure(lists.toss() ? 0.0 : width / 100.0, lists.toss() ? 0.0 : meter);
}

inline void make_object(Lists& lists, double size, double noise, double shift = meter)
{
    lists.scatter(size);
    lists.measure(noise, shift);
}

inline void make_slipped(Lists& lists)
{
    make_object(lists, meter, 1.0);
    lists.reference[lists.index()][lists.index() % 3] *= 10.0;
}

inline void touch_twice(Lists& lists)
{
    make_object(lists, 300.0, 1.0);
    for (int k = 0; k < 2; ++k) {
        const int from = lists.index(), to = lists.index();
        for (int c = 0; c < 3; ++c)
            lists.measured[to][c] = lists.measured[from][c] + (lists.toss() ? 0.0 : 0.3);
    }
}

/// Points within a box of these edges, measured with a noise of 1 mm.
inline void make_box(Lists& lists, double x, double y, double z)
{
    lists.scatter(1.0);
    for (int i = 0; i < lists.n; ++i) {
        lists.reference[i][0] *= x;
        lists.reference[i][1] *= y;
        lists.reference[i][2] *= z;
    }
    lists.measure(1.0, meter);
}

inline void make_clusters(Lists& lists)
{
    lists.scatter(0.1);
    for (int i = 0; i < lists.n; i += 2)
        lists.reference[i][0] += meter;
    lists.measure(lists.toss() ? 0.0 : 0.1, meter);
}

inline void make_narrow_triangle(Lists& lists)
{
    const double width = std::pow(10.0, lists.uniform(-14.0, -2.0));
    lists.scatter(meter);
    for (int c = 0; c < 3; ++c)
        lists.reference[2][c] =
            (lists.reference[0][c] + lists.reference[1][c]) / 2.0 + width * lists.normal();
    measure_maybe_exactly(lists);
}

inline void make_foreign(Lists& lists, double size, double measured_size, bool is_flat = false)
{
    lists.scatter(size);
    lists.scatter(lists.measured, measured_size);
    for (int i = 0; is_flat && i < lists.n; ++i)
        lists.reference[i][2] = 0.0;
}

inline void make_integers(Lists& lists)
{
    for (double(*list)[3] : {lists.reference, lists.measured})
        for (int i = 0; i < lists.n; ++i)
            for (int c = 0; c < 3; ++c)
                list[i][c] = 100.0 * (lists.index() - 2);
}

/// Two orders that fit equally well but for a shift of one point across their plane of symmetry.
inline void make_near_tie(Lists& lists)
{
    lists.scatter(meter);
    for (int i = 0; i + 1 < lists.n; i += 2) {
        std::copy(lists.reference[i], lists.reference[i] + 3, lists.reference[i + 1]);
        lists.reference[i + 1][0] *= -1.0;
    }
    lists.measure(0.0, 0.0);
    lists.measured[lists.index()][0] += std::pow(10.0, lists.uniform(-12.0, 0.0));
}

struct Kind
{
    const char* name;
    void (*make)(Lists& lists);
};

inline const Kind all[] = {
    {"noise", [](Lists& lists) { make_noisy(lists); }},
    {"exact", [](Lists& lists) { lists.scatter(meter), lists.measure(0.0, meter); }},
    {"cube corners", [](Lists& lists) { lists.cube(meter), measure_maybe_exactly(lists); }},
    {"tetrahedron", make_tetrahedron},
    {"square", make_square},
    {"icosahedron", [](Lists& lists) { lists.icosahedron(meter), measure_maybe_exactly(lists); }},
    {"lattice with collinear triples", make_lattice},
    {"collinear", [](Lists& lists) { make_line(lists, 0.0); }},
    {"nearly collinear",
     [](Lists& lists) { make_line(lists, std::pow(10.0, lists.uniform(-16.0, -1.0))); }},
    {"duplicated points", make_duplicates},
    {"all points equal", [](Lists& lists) { lists.measure(lists.toss() ? 0.0 : 1.0, meter); }},
    {"one point elsewhere", [](Lists& lists) { make_noisy(lists), lists.displace_one(500.0); }},
    {"lists that do not belong together", [](Lists& lists) { make_foreign(lists, meter, meter); }},
    {"measured larger", [](Lists& lists) { make_foreign(lists, meter, 3.0 * meter); }},
    {"flat reference", [](Lists& lists) { make_foreign(lists, meter, meter, true); }},
    {"measured in meters",
     [](Lists& lists) {
         make_noisy(lists);
         for (double(&point)[3] : lists.measured)
             for (double& coordinate : point)
                 coordinate /= meter;
     }},
    {"triangle and axis", make_axial},
    {"thin box", make_thin_box},
    {"one coordinate ten times", make_slipped},
    {"points touched twice", touch_twice},
    {"small object far away", [](Lists& lists) { make_object(lists, 50.0, 0.5, 5.0 * meter); }},
    {"object of 10 mm", [](Lists& lists) { make_object(lists, 10.0, 1.0); }},
    {"within 0.1 mm", [](Lists& lists) { make_object(lists, 0.1, 0.1); }},
    {"bar", [](Lists& lists) { make_box(lists, meter, 10.0, 10.0); }},
    {"line of 1 mm", [](Lists& lists) { make_box(lists, meter, 1.0, 1.0); }},
    {"same point touched",
     [](Lists& lists) { make_box(lists, 0.0, 0.0, 0.0), lists.scatter(meter); }},
    {"clusters", make_clusters},
    {"first triangle narrow", make_narrow_triangle},
    {"integers", make_integers},
    {"near tie", make_near_tie},
    {"mirrored",
     [](Lists& lists) {
         make_noisy(lists);
         for (double(&point)[3] : lists.measured)
             point[2] *= -1.0;
     }},
    {"huge", [](Lists& lists) { make_noisy(lists, 1e6); }},
    {"tiny", [](Lists& lists) { make_noisy(lists, 1e-6); }},
    {"tiny and remote", // far smaller than their distance to the origin
     [](Lists& lists) { lists.scatter(1e-6), lists.measure(lists.toss() ? 1e-9 : 0.0, meter); }},
    {"near overflow and underflow", make_monstrous},
    {"not finite", make_not_finite},
};

} // namespace pairing_kinds

#endif
