// Pairs measured points with reference points and fits the rigid transformation between them.
//
// No widgets, no allocation, no exceptions. Point lists are arrays of rows of three doubles, in
// millimetres.
#ifndef PAIRING_POINTPAIRING_H
#define PAIRING_POINTPAIRING_H

#include "registration/trafo3d.h"

class SearchObserver;

enum PairingStatus
{
    pairing_ok,
    pairing_not_enough_points, ///< fewer than three reference points
    pairing_counts_differ,
    pairing_no_valid_order,   ///< every order failed, there are more points than a fit takes, or
                              ///< the search was ended or needed too much work
    pairing_start_failed,     ///< trafo3d_3trafo failed, see `code`
    pairing_optimizing_failed ///< trafo3d_opttrafo failed, see `code`
};

/// What an evaluation found. Unless `status` is pairing_ok only `status` and `code` have a meaning.
struct PairingResult
{
    PairingStatus status;
    int code;                      ///< of the function that failed, otherwise 0
    int count;                     ///< number of points in the arrays below
    int order[trafo3d_max_points]; ///< index of the measured point paired with each reference point
    double residual;               ///< root mean square of the distances, as the fit returned it
    double transformed[trafo3d_max_points][3]; ///< measured points moved, in reference order
    double distances[trafo3d_max_points];      ///< of each transformed point to its reference point
    double T_reference_measured[4][4]; ///< row-major, takes measured points to reference points
};

/// Fits the measured points to the reference points: as they stand if `preserve_order` is set,
/// otherwise in the order with the smallest residual (`find_best_order`, which asks the observer).
/// With more than `trafo3d_max_points` points the ordered fit fails with the code of
/// trafo3d_opttrafo, and the unordered one with pairing_no_valid_order.
void evaluate_pairing(const double (*reference)[3], int reference_count,
                      const double (*measured)[3], int measured_count, bool preserve_order,
                      PairingResult* result, SearchObserver* observer = nullptr);

#endif
