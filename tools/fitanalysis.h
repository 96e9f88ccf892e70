// What the matching dialog makes of two point lists, and what it does not tell.
#ifndef TOOLS_FITANALYSIS_H
#define TOOLS_FITANALYSIS_H

#include "pairing/pointpairing.h"
#include "src/bsMatrix.h"
#include "tools/mistakes.h"
#include "tools/verdict.h"

#include <optional>

/// Another pairing beside the one that the dialog takes.
struct OtherPairing
{
    std::vector<int> order; ///< index of the measured point of each reference point
    double residual;        ///< of its best rigid fit, mm
    double turn;            ///< by which it would turn the room, degrees
    double shift;           ///< by which it would move the room's origin, mm
    bool is_within_noise;   ///< fits as well as noise can tell, and gives another room
    bool is_proven;         ///< no pairing in between was left out of the search
};

/// A rigid fit that is better than the dialog's, but out of its reach.
struct UnreachedFit
{
    std::vector<int> order;
    double residual;      ///< mm
    PairingStatus status; ///< of the dialog's fit on this order; pairing_ok if it stops early
    int code;             ///< of the function that failed
};

struct FitAnalysis
{
    PairingResult dialog;
    double noise;
    double residual_limit = 0.0; ///< largest residual that the noise explains, mm
    double rounding = 0.0;       ///< by how much the settings sent miss the fit at a point, mm
    bool is_on_line = false;     ///< the reference points leave a turn open; nothing else is told
    std::optional<OtherPairing> next;
    std::optional<UnreachedFit> unreached;
    std::vector<PointMistake> point_mistakes;
    QString list_mistake;
    QStringList surplus_points; ///< of the longer list, numbers from 1
    QStringList doubts;         ///< why the verdict is not good, a sentence each
    Verdict verdict;

    bool has_fit() const { return dialog.status == pairing_ok; }
};

/// `noise`: standard deviation of a coordinate of a measured point in mm, above 0.
FitAnalysis analyze_fit(const Points& reference, const Points& measured, bool ordered,
                        double noise);

/// The dialog's solution as a matrix.
bsMatrix solved_motion(const PairingResult& dialog);

#endif
