#include "pairing/rotationsearch.h"

#include "pairing/ordercontest.h"
#include "pairing/rotationfit.h"
#include "pairing/searchbudget.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{

const double infinity = std::numeric_limits<double>::infinity();

// Cosines of an edge, the angle between two quaternions (half of that between the rotations):
const double list_cosine = 0.9;            // longer edges leave too many orders to list
const double smallest_cosine = 1.0 - 1e-9; // halving shorter edges gains nothing any more
const double small_cap = 0.03;             // sine up to which a cap gets a tetrahedron of its own
const int list_steps = 400;                // before halving is thought cheaper

// In the budget's unit:
const double listing_work = 300.0;
const double step_work = 40.0;
const double rotation_work = 1500.0;
const double visit_work = 2000.0;
const double cap_work = 10.0;
const double assignment_work = 3e3;
const double profit_work = 4.0; // of each row and column
const double caps_work = 600.0; // for each cap found or passed over

} // namespace

RotationSearch::RotationSearch(const CenteredPoints& points, OrderContest* contest,
                               SearchBudget* budget, double tolerance)
    : m_points(points), m_contest(contest), m_budget(budget), m_tolerance(tolerance),
      m_floor_trace(-infinity), m_top_trace(-infinity), m_last_work(infinity), m_listed(nullptr),
      m_guess_count(0), m_listing(m_assignment, *contest, points.n), m_caps(points, budget),
      m_caps_hold(false), m_cell_product_count(0)
{
    // With these a row prefers the nearest point, as it should if the lists fit well.
    for (int j = 0; j < points.n; ++j)
        m_start_price[j] = 0.5 * points.measured_square[j];
    update_least_trace();
}

void RotationSearch::update_least_trace()
{
    m_least_trace =
        std::max(m_floor_trace, m_points.least_trace(m_contest->ceiling(), m_tolerance));
}

bool RotationSearch::is_over() const
{
    return m_budget->is_over() || m_budget->spent() > m_last_work;
}

/// Enters an order if it can matter.
void RotationSearch::offer(const int* order)
{
    double H[3][3];
    cross_covariance(H, m_points, order);
    if (trace_stays_below(H, m_least_trace))
        return;
    m_contest->enter(order);
    update_least_trace();
}

/// Enters a listed order if it can matter and its best rotation lies in the tetrahedron. If not,
/// that rotation lies in another one that lists the order, too.
bool RotationSearch::visit_order(const int* order)
{
    m_budget->spend(listing_work);
    if (m_contest->is_known(order))
        return true;
    double H[3][3];
    double quaternion[4];
    cross_covariance(H, m_points, order);
    if (trace_stays_below(H, m_least_trace))
        return true;
    m_budget->spend(rotation_work);
    if (best_rotation(H, quaternion) < m_least_trace || !is_between(m_listed->corner, quaternion))
        return true;
    m_contest->enter(order);
    update_least_trace();
    return true;
}

bool RotationSearch::count_step()
{
    m_budget->spend(step_work);
    return !is_over();
}

void RotationSearch::init(Product* product, const double* p, const double* q, const double* price)
{
    rotation_product(product->M, p, q);
    const double cosine = quaternion_dot(p, q);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            product->M[r][c] /= cosine;
    product->upper = infinity;
    product->lower = -infinity;
    product->is_solved = false;
    std::memcpy(product->price, price, m_points.n * sizeof price[0]);
}

void RotationSearch::fill_profits(const double (*M)[3])
{
    const int n = m_points.n;
    for (int i = 0; i < n; ++i) {
        const double* a = m_points.reference[i];
        double t[3];
        for (int c = 0; c < 3; ++c)
            t[c] = a[0] * M[0][c] + a[1] * M[1][c] + a[2] * M[2][c];
        double* row = m_assignment.profit[i];
        for (int j = 0; j < n; ++j)
            row[j] = t[0] * m_points.measured_x[j] + t[1] * m_points.measured_y[j]
                     + t[2] * m_points.measured_z[j];
    }
}

/// Finds the best assignment, or at least that its profit is not above `enough`.
void RotationSearch::solve(Product* product, double enough)
{
    m_budget->spend(assignment_work + profit_work * m_points.n * m_points.n);
    fill_profits(product->M);
    std::memcpy(m_assignment.price, product->price, m_points.n * sizeof product->price[0]);
    product->upper = m_assignment.solve(m_points.n, enough);
    std::memcpy(product->price, m_assignment.price, m_points.n * sizeof product->price[0]);
    if (product->upper <= enough)
        return;
    product->is_solved = true;
    product->lower = product->upper;
    cross_covariance(product->H, m_points, m_assignment.column);
}

RotationSearch::Product* RotationSearch::cell_product(int cell, int k, int l)
{
    const RotationCells& cells = RotationCells::instance();
    const int vertex[2] = {cells.cells[cell][k], cells.cells[cell][l]};
    Product*& product = m_cell_product_of[vertex[0]][vertex[1]];
    if (!product) {
        product = &m_cell_products[m_cell_product_count++];
        m_cell_product_of[vertex[1]][vertex[0]] = product;
        init(product, cells.vertices[vertex[0]], cells.vertices[vertex[1]], m_start_price);
    }
    return product;
}

/// If the best orders met so far failed, orders far below them are within reach. Looking at the
/// best ones first may show one that succeeds, which brings most others out of reach.
bool RotationSearch::enter_orders_within_reach(double most_work)
{
    const double steps[] = {1.0 / 4096.0, 1.0 / 512.0, 1.0 / 64.0, 1.0 / 8.0};
    m_last_work = m_budget->spent() + most_work;

    const double least = -0.5 * (m_points.reference_sum + m_points.measured_sum); // of any order
    const double gap = m_top_trace - std::max(least, m_least_trace);
    const double small_gap = 1e-4 * m_top_trace;
    for (double step : steps) {
        if (step * gap <= small_gap)
            continue;
        m_floor_trace = m_top_trace - step * gap;
        update_least_trace();
        visit_cells();
        if (m_least_trace > m_floor_trace || is_over())
            return !is_over();
    }
    m_floor_trace = -infinity;
    update_least_trace();
    visit_cells();
    return !is_over();
}

void RotationSearch::visit_cells()
{
    std::memset(m_cell_product_of, 0, sizeof m_cell_product_of);
    m_cell_product_count = 0;
    m_caps_hold = m_caps.find(m_least_trace);
    m_budget->spend(caps_work * (m_points.n * m_points.n + m_caps.count()));
    NearCaps all;
    all.count = m_caps.count();
    for (int c = 0; c < all.count; ++c)
        all.caps[c] = short(c);
    if (m_caps_hold && m_caps.widest_sine() < small_cap) {
        visit_around_caps(all);
        return;
    }
    for (int cell = 0; cell < RotationCells::cell_count; ++cell)
        visit_cell(cell, all);
}

void RotationSearch::visit_cell(int cell, const NearCaps& caps)
{
    const RotationCells& cells = RotationCells::instance();
    double corner[corners][4];
    Tetrahedron t;
    for (int k = 0; k < corners; ++k) {
        for (int r = 0; r < 4; ++r)
            corner[k][r] = cells.signs[cell][k] * cells.vertices[cells.cells[cell][k]][r];
        t.corner[k] = corner[k];
        for (int l = 0; l < corners; ++l)
            t.product[k][l] = cell_product(cell, k, l);
    }
    visit(t, caps);
}

void RotationSearch::visit(const Tetrahedron& t, const NearCaps& caps)
{
    NearCaps near;
    near.count = 0;
    m_budget->spend(cap_work * caps.count);
    if (is_over() || (m_caps_hold && !find_near_caps(&near, t, caps)) || !can_reach(t))
        return;
    m_budget->spend(visit_work);
    int longest[2] = {0, 0};
    double cosine = 1.0;
    for (int k = 0; k < corners; ++k)
        for (int l = 0; l < k; ++l) {
            const double edge = quaternion_dot(t.corner[k], t.corner[l]);
            if (edge < cosine) {
                cosine = edge;
                longest[0] = k;
                longest[1] = l;
            }
        }
    if (cosine > list_cosine && list_orders(t, cosine > smallest_cosine))
        return;
    split(t, longest[0], longest[1], near);
}

bool RotationSearch::can_reach(const Tetrahedron& t)
{
    for (int k = 0; k < corners; ++k)
        if (can_reach(t.product[k][k], t))
            return true;
    for (int k = 0; k < corners; ++k)
        for (int l = 0; l < k; ++l)
            if (can_reach(t.product[k][l], t))
                return true;
    return false;
}

/// Whether the best assignment of the product reaches the least trace. The best orders of the
/// corners often show that it does; then it need not be solved.
bool RotationSearch::can_reach(Product* product, const Tetrahedron& t)
{
    if (product->upper <= m_least_trace)
        return false;
    for (int k = 0; k < corners && product->lower <= m_least_trace; ++k)
        if (t.product[k][k]->is_solved)
            product->lower = std::max(product->lower, matrix_dot(product->M, t.product[k][k]->H));
    if (product->lower > m_least_trace)
        return true;
    solve(product, m_least_trace);
    if (product->is_solved)
        offer(m_assignment.column);
    return product->upper > m_least_trace;
}

void RotationSearch::split(const Tetrahedron& t, int k, int l, const NearCaps& caps)
{
    double middle[4];
    for (int r = 0; r < 4; ++r)
        middle[r] = t.corner[k][r] + t.corner[l][r];
    const double length = std::sqrt(quaternion_dot(middle, middle));
    for (int r = 0; r < 4; ++r)
        middle[r] /= length;

    Product fresh[corners + 1]; // with each corner, and of the middle with itself
    for (int m = 0; m < corners; ++m)
        init(&fresh[m], t.corner[m], middle, t.product[k][l]->price);
    init(&fresh[corners], middle, middle, t.product[k][l]->price);

    const bool k_promises_more = t.product[k][k]->lower > t.product[l][l]->lower;
    const int replaced[2] = {k_promises_more ? l : k, k_promises_more ? k : l};
    for (int side = 0; side < 2; ++side) {
        const int r = replaced[side];
        Tetrahedron half = t;
        half.corner[r] = middle;
        for (int m = 0; m < corners; ++m)
            half.product[m][r] = half.product[r][m] = &fresh[m];
        half.product[r][r] = &fresh[corners];
        visit(half, caps);
    }
}

/// Enters all orders whose best rotation lies in the tetrahedron and that can matter, and some
/// more. Returns false if there may be more that were too many to try.
bool RotationSearch::list_orders(const Tetrahedron& t, bool at_any_cost)
{
    m_listed = &t;
    const int most_steps = at_any_cost ? std::numeric_limits<int>::max() : list_steps;
    for (int k = 0; k < corners; ++k)
        for (int l = 0; l <= k; ++l)
            if (!list_orders(t.product[k][l], most_steps))
                return false;
    return true;
}

bool RotationSearch::list_orders(Product* product, int most_steps)
{
    if (product->upper <= m_least_trace)
        return true;
    solve(product, m_least_trace);
    if (product->upper <= m_least_trace)
        return true;
    // Regrets carry rounding errors of this size at most.
    const double rounding = 1e-12 * (m_points.reference_sum + m_points.measured_sum);
    return m_listing.list(product->upper - m_least_trace + rounding, most_steps, this);
}
