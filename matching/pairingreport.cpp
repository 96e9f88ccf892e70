#include "matching/pairingreport.h"

namespace
{

QString point_line(const PairingResult& result, int i)
{
    const double* p = result.transformed[i];
    return QString::fromLatin1(
               "\n Point %1 -> %2 : (%3, %4, %5) ; distance to reference point = %6")
        .arg(i + 1)
        .arg(result.order[i] + 1)
        .arg(p[0], 0, 'f', 2)
        .arg(p[1], 0, 'f', 2)
        .arg(p[2], 0, 'f', 2)
        .arg(result.distances[i], 0, 'f', 2);
}

QString success_report(const PairingResult& result)
{
    QString text = QString::fromLatin1("Transformation evaluation report :\nResidual error : %1")
                       .arg(result.residual);
    for (int i = 0; i < result.count; ++i)
        text += point_line(result, i);
    return text + QString::fromLatin1("\nAll values are in [mm]");
}

} // namespace

QString pairing_report(const PairingResult& result)
{
    switch (result.status) {
    case pairing_not_enough_points:
        return QString::fromLatin1("Cannot evaluate the transformation : not enough points.");
    case pairing_counts_differ:
        return QString::fromLatin1("Cannot evaluate the transformation : number of reference and "
                                   "measured points is different.");
    case pairing_no_valid_order:
        return QString::fromLatin1("No valid permutation to match transformation.");
    case pairing_start_failed:
        return QString::fromLatin1(
                   "Error when calculating matching transformation (trafo3d_3trafo) : %1")
            .arg(result.code);
    case pairing_optimizing_failed:
        return QString::fromLatin1(
                   "Error when optimizing matching transformation (trafo3d_opttrafo) : %1")
            .arg(result.code);
    case pairing_ok:
        break;
    }
    return success_report(result);
}
