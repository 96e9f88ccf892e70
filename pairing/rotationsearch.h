// Enters into a contest every order whose best rotation could win it, by halving sets of rotations.
#ifndef PAIRING_ROTATIONSEARCH_H
#define PAIRING_ROTATIONSEARCH_H

#include "pairing/assignment.h"
#include "pairing/centeredpoints.h"
#include "pairing/orderlisting.h"
#include "pairing/pairguess.h"
#include "pairing/rotationcaps.h"
#include "pairing/rotationcells.h"

class OrderContest;
class SearchBudget;

/// Branch and bound over the rotations of space.
///
/// The residual r of an order with its best rotation R satisfies
///   n r^2 = sum |a_i|^2 + sum |b_j|^2 - 2 <R, H>,   H = sum of a_i b_order[i]^T,
/// so an order can only matter if <R, H> reaches a least trace that follows from the ceiling of the
/// contest. For a given matrix M the largest <M, H> of all orders is an assignment problem.
///
/// A set of rotations is a tetrahedron: the unit quaternions q = sum w_k v_k with w_k >= 0 and four
/// corners v_k. With the bilinear form B(p, q) of rotationfit.h
///   <R(q), H> = sum over k, l of w_k w_l <B(v_k, v_l), H>,   and   1 = sum of w_k w_l v_k . v_l,
/// so <R(q), H> is a mean, weighted with w_k w_l v_k . v_l, of the ten values <M_kl, H> with
/// M_kl = B(v_k, v_l) / (v_k . v_l), and at most the largest of them. The ten assignment problems
/// thus bound all orders for all rotations of the tetrahedron at once. The bound exceeds the true
/// maximum by an amount that falls with the square of the size.
///
/// A tetrahedron that reaches the least trace is halved along its longest edge, until the few
/// assignments within reach can be listed with the last prices.
class RotationSearch : private OrderVisitor
{
public:
    /// `tolerance`: by how much a fit may fall below the residual of the best rotation, in the
    /// points' unit. All must outlive the search.
    RotationSearch(const CenteredPoints& points, OrderContest* contest, SearchBudget* budget,
                   double tolerance);

    /// Enters a few orders guessed from pairs of points, usually enough for lists that fit well.
    /// To be called before the others.
    void enter_guessed_orders();

    /// Enters good orders, until one has succeeded and some more. Follows alternating best
    /// rotations and best assignments from the most promising corners until they settle.
    void enter_good_orders();

    /// Enters every order that can succeed with a residual up to the contest's ceiling. Returns
    /// false if it gave up, after so much work or because the budget is over.
    bool enter_orders_within_reach(double most_work);

private:
    enum
    {
        corners = 4
    };

    /// One matrix M_kl with what is known of its assignment problem.
    struct Product
    {
        double M[3][3];
        double upper;   ///< bound of the profit, infinite before the first solution
        double lower;   ///< profit of some order
        bool is_solved; ///< both are the profit of the best assignment
        double price[trafo3d_max_points];
        double H[3][3]; ///< of the best assignment
    };

    struct Tetrahedron
    {
        const double* corner[corners];
        Product* product[corners][corners]; ///< symmetric
    };

    struct Seed
    {
        double quaternion[4];
        double trace;
        bool operator<(const Seed& other) const { return trace > other.trace; }
    };

    void init(Product* product, const double* p, const double* q, const double* price);
    void fill_profits(const double (*M)[3]);
    void solve(Product* product, double enough);
    void climb(const double* quaternion);

    /// Caps that reach into a tetrahedron.
    struct NearCaps
    {
        int count;
        short caps[RotationCaps::capacity];
    };

    bool fits_well() const;
    Seed make_seed(const double* quaternion);
    void visit_cells();
    void visit_cell(int cell, const NearCaps& caps);
    void visit(const Tetrahedron& t, const NearCaps& caps);
    void split(const Tetrahedron& t, int k, int l, const NearCaps& caps);
    void visit_around_caps(const NearCaps& caps);
    void visit_around(const double* center, const NearCaps& caps);
    bool find_near_caps(NearCaps* near, const Tetrahedron& t, const NearCaps& caps) const;
    bool can_reach(const Tetrahedron& t);
    bool can_reach(Product* product, const Tetrahedron& t);
    bool list_orders(const Tetrahedron& t, bool at_any_cost);
    bool list_orders(Product* product, int most_steps);

    virtual bool visit_order(const int* order);
    virtual bool count_step();
    void offer(const int* order);
    void update_least_trace();
    bool is_over() const;

    const CenteredPoints& m_points;
    OrderContest* m_contest;
    SearchBudget* m_budget;
    const double m_tolerance;
    double m_least_trace;
    double m_floor_trace;        // never look below this for now
    double m_top_trace;          // of all orders met so far
    double m_last_work;          // spent from the budget when this search ends
    const Tetrahedron* m_listed; // whose orders are being listed
    double m_guesses[pair_guesses][4];
    int m_guess_count;
    double m_start_price[trafo3d_max_points];
    Assignment m_assignment;
    OrderListing m_listing;
    RotationCaps m_caps;
    bool m_caps_hold; // outside of them nothing can matter

    // Of the cells, made when first asked for:
    Product* cell_product(int cell, int k, int l);
    Product m_cell_products[RotationCells::vertex_count + RotationCells::edge_count];
    Product* m_cell_product_of[RotationCells::vertex_count][RotationCells::vertex_count];
    int m_cell_product_count;
};

#endif
