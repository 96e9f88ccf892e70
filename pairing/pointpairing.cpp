#include "pairing/pointpairing.h"

#include "pairing/ordersearch.h"

#include <cmath>
#include <cstring>

namespace
{

const int least_points = 3; // that give a frame

typedef double PointList[trafo3d_max_points][3];

PairingStatus check_counts(int reference_count, int measured_count)
{
    if (reference_count < least_points)
        return pairing_not_enough_points;
    if (reference_count != measured_count)
        return pairing_counts_differ;
    return pairing_ok;
}

PairingStatus choose_order(const double (*reference)[3], const double (*measured)[3],
                           bool preserve_order, PairingResult* result, SearchObserver* observer)
{
    if (!preserve_order)
        return find_best_order(reference, measured, result->count, result->order, observer)
                   ? pairing_ok
                   : pairing_no_valid_order;
    for (int i = 0; i < result->count && i < trafo3d_max_points; ++i)
        result->order[i] = i;
    return pairing_ok;
}

PairingStatus fit(double (*reference)[3], double (*paired)[3], PairingResult* result)
{
    result->code = trafo3d_3trafo(result->T_reference_measured, reference, paired);
    if (result->code != 0)
        return pairing_start_failed;
    result->code = trafo3d_opttrafo(result->T_reference_measured, nullptr, reference, paired,
                                    result->count, &result->residual);
    return result->code == 0 ? pairing_ok : pairing_optimizing_failed;
}

double distance(const double* a, const double* b)
{
    const double d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
}

PairingStatus pair_and_fit(const double (*reference)[3], const double (*measured)[3],
                           bool preserve_order, PairingResult* result, SearchObserver* observer)
{
    const PairingStatus chosen =
        choose_order(reference, measured, preserve_order, result, observer);
    if (chosen != pairing_ok)
        return chosen;

    // A longer list fails in the fit before it is read there; the start needs only its beginning.
    PointList target;
    PointList paired;
    const int kept = result->count < trafo3d_max_points ? result->count : trafo3d_max_points;
    std::memcpy(target, reference, kept * sizeof target[0]);
    for (int i = 0; i < kept; ++i)
        std::memcpy(paired[i], measured[result->order[i]], sizeof paired[i]);

    const PairingStatus fitted = fit(target, paired, result);
    if (fitted != pairing_ok)
        return fitted;
    trafo3d_perform(result->transformed, result->T_reference_measured, paired, result->count);
    for (int i = 0; i < result->count; ++i)
        result->distances[i] = distance(result->transformed[i], reference[i]);
    return pairing_ok;
}

} // namespace

void evaluate_pairing(const double (*reference)[3], int reference_count,
                      const double (*measured)[3], int measured_count, bool preserve_order,
                      PairingResult* result, SearchObserver* observer)
{
    result->code = 0;
    result->count = reference_count;
    result->status = check_counts(reference_count, measured_count);
    if (result->status == pairing_ok)
        result->status = pair_and_fit(reference, measured, preserve_order, result, observer);
}
