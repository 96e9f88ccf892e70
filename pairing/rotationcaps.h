// The few parts of rotation space where the best rotation of an order with a small residual can be.
#ifndef PAIRING_ROTATIONCAPS_H
#define PAIRING_ROTATIONCAPS_H

#include "pairing/centeredpoints.h"

class SearchBudget;

/// Split the reference points into groups. If all points together have the sum of squared distances
/// E, then in some group the sum is not above the group's share of E (by its number of points), for
/// else the total would be. So if for each group all triples of measured points are found that fit
/// within the share for some rotation, the best rotation of every order within E is near one of
/// theirs: q^T N q of a group falls off with the angle to the first eigenvector of its N at least
/// like lambda_1 cos^2 + lambda_2 sin^2, which leaves a cap around it (see rotationfit.h).
///
/// With well-fitting lists there are few such triples, and nearly all of the rotations need not be
/// looked at.
class RotationCaps
{
public:
    enum
    {
        capacity = 600
    };

    /// Both must outlive the caps.
    RotationCaps(const CenteredPoints& points, SearchBudget* budget);

    /// Finds the caps for orders with a sum of products of at least `least_trace`. Returns false if
    /// there are too many or the budget is over; then nothing may be left out.
    bool find(double least_trace);

    int count() const { return m_count; }

    /// Sine of the largest angle from a cap's center to its border.
    double widest_sine() const;
    const double* center(int cap) const { return m_caps[cap].quaternion; }

    /// Whether all of a cap lies within the angle of `center` (or of its opposite).
    bool is_inside(int cap, const double* center, double cosine, double sine) const;

    /// Whether a cap has a quaternion within the angle of `center` (or of its opposite).
    bool is_near(int cap, const double* center, double cosine, double sine) const;

private:
    enum
    {
        group_size = 3
    };

    struct Cap
    {
        double quaternion[4];
        double cosine;
        double sine;
    };

    bool add_caps(const int* group, double share);
    bool add_cap(const int* group, const int* triple, double share);
    bool fits(const int* group, const int* triple, int last, double share) const;

    const CenteredPoints& m_points;
    SearchBudget* m_budget;
    int m_outside_in[trafo3d_max_points]; // reference points by falling distance to the centroid
    double m_reference_radius[trafo3d_max_points];
    double m_measured_radius[trafo3d_max_points];
    Cap m_caps[capacity];
    int m_count;
};

#endif
