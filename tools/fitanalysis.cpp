#include "tools/fitanalysis.h"

#include "controller/roomadjustmentdata.h"
#include "tools/noise.h"
#include "tools/pairingsearch.h"
#include "tools/rigidfit.h"
#include "tools/wiresettings.h"

#include <limits>

namespace
{

constexpr double fit_accuracy = 0.01;     // mm; the dialog's fit ends at a change below 0.001
constexpr double harmless_rounding = 3.0; // times the noise

/// The analysis of one pair of lists of the same length, three points to trafo3d_max_points.
class Analysis
{
public:
    Analysis(const Points& reference, const Points& measured, bool ordered, FitAnalysis* result)
        : m_reference(reference), m_measured(measured), m_ordered(ordered), m_result(*result)
    {
    }

    void run();

private:
    std::vector<int> chosen_order() const;
    void look_for_unreached(const RigidFit& chosen, const Pairing& best);
    void look_for_next(const RigidFit& chosen, const PairingSearch& search);
    void look_for_mistakes();
    PairingResult evaluate_in_order(const std::vector<int>& order) const;
    double residual_of(const Pairing& pairing) const
    {
        return std::sqrt(pairing.square_sum / double(m_reference.size()));
    }

    const Points& m_reference;
    const Points& m_measured;
    const bool m_ordered;
    FitAnalysis& m_result;
};

/// The order that the dialog has taken, or in its absence the order of the lists.
std::vector<int> Analysis::chosen_order() const
{
    const PairingResult& dialog = m_result.dialog;
    return dialog.status == pairing_no_valid_order
               ? counting_order(m_reference.size())
               : std::vector<int>(dialog.order, dialog.order + dialog.count);
}

/// What the dialog makes of one order.
PairingResult Analysis::evaluate_in_order(const std::vector<int>& order) const
{
    Points paired;
    for (int i : order)
        paired.push_back(m_measured[std::size_t(i)]);
    const int count = static_cast<int>(paired.size());
    PairingResult result;
    evaluate_pairing(rows(m_reference), count, rows(paired), count, true, &result);
    return result;
}

void Analysis::look_for_unreached(const RigidFit& chosen, const Pairing& best)
{
    const Pairing own = {chosen_order(), chosen.square_sum};
    const Pairing& candidate = m_ordered ? own : best;
    if (m_result.has_fit() && !(residual_of(candidate) + fit_accuracy < m_result.dialog.residual))
        return;
    const PairingResult attempt = evaluate_in_order(candidate.order);
    m_result.unreached =
        UnreachedFit{candidate.order, residual_of(candidate), attempt.status, attempt.code};
}

void Analysis::look_for_next(const RigidFit& chosen, const PairingSearch& search)
{
    const std::vector<int> order = chosen_order();
    const auto next = std::find_if(search.best.begin(), search.best.end(),
                                   [&](const Pairing& p) { return p.order != order; });
    if (!m_result.has_fit() || next == search.best.end())
        return;
    bsMatrix back;
    chosen.T_reference_measured.fastInvert(back);
    const bsMatrix change =
        fit_rigidly(m_reference, m_measured, next->order).T_reference_measured * back;
    OtherPairing other = {next->order,     residual_of(*next),
                          turn_of(change), length(change.getColumn(3)),
                          false,           search.is_complete};
    double largest_move = other.shift;
    for (const bsVector& point : m_reference)
        largest_move = std::max(largest_move, distance(change * point, point));
    other.is_within_noise =
        next->square_sum - chosen.square_sum < indistinct_square_sum(m_result.noise)
        && largest_move > m_result.noise;
    m_result.next = other;
}

void Analysis::look_for_mistakes()
{
    m_result.list_mistake = find_list_mistake(m_reference, m_measured, m_ordered, m_result.noise);
    if (m_result.list_mistake.isEmpty())
        m_result.point_mistakes =
            find_point_mistakes(m_reference, m_measured, m_ordered, m_result.noise);
}

void Analysis::run()
{
    const std::size_t wanted = 2;
    const double no_ceiling = std::numeric_limits<double>::infinity();
    const PairingSearch search =
        find_pairings(m_reference, m_measured, {wanted, no_ceiling}, chosen_order());
    const RigidFit chosen = fit_rigidly(m_reference, m_measured, chosen_order());
    m_result.residual_limit = largest_residual(m_reference.size(), m_result.noise);
    m_result.is_on_line = std::isinf(target_error(m_reference, bsVector(), m_result.noise));
    if (m_result.is_on_line)
        return;
    look_for_unreached(chosen, search.best.front());
    look_for_next(chosen, search);
    if (!m_result.has_fit() || m_result.dialog.residual > m_result.residual_limit)
        look_for_mistakes();
}

void note_rounding(const Points& measured, FitAnalysis* result)
{
    const bsMatrix solved = solved_motion(result->dialog);
    const bsMatrix in_force = motion_in_force(applied_adjustment(solved));
    for (const bsVector& point : measured)
        result->rounding = std::max(result->rounding, distance(solved * point, in_force * point));
}

QStringList doubts_about(const FitAnalysis& fit, bool ordered)
{
    QStringList doubts;
    const bool is_bad = fit.dialog.residual > fit.residual_limit;
    if (is_bad)
        doubts << QString::fromLatin1("The residual is larger than a noise of %1 mm explains "
                                      "(%2 mm).")
                      .arg(fit.noise)
                      .arg(fit.residual_limit, 0, 'f', 2);
    if (fit.next && fit.next->is_within_noise && !is_bad)
        doubts << QString::fromLatin1("Two pairings fit equally well within the noise: nothing "
                                      "but chance chose between two rooms.");
    if (ordered && fit.next && fit.next->residual + fit.noise < fit.dialog.residual)
        doubts << QString::fromLatin1("Another order of the points fits better.");
    if (fit.unreached)
        doubts << QString::fromLatin1("The best rigid fit is out of reach of the dialog's fit.");
    if (fit.rounding > harmless_rounding * fit.noise)
        doubts << QString::fromLatin1("The settings that the dialog sends miss its own fit.");
    return doubts;
}

} // namespace

bsMatrix solved_motion(const PairingResult& dialog)
{
    bsMatrix T;
    // Read as column-major, the row-major array is its own transpose.
    bsMatrix(&dialog.T_reference_measured[0][0]).getTranspose(T);
    return T;
}

FitAnalysis analyze_fit(const Points& reference, const Points& measured, bool ordered, double noise)
{
    FitAnalysis result;
    result.noise = noise;
    evaluate_pairing(rows(reference), static_cast<int>(reference.size()), rows(measured),
                     static_cast<int>(measured.size()), ordered, &result.dialog);
    if (result.dialog.status == pairing_counts_differ)
        result.surplus_points = find_surplus_points(reference, measured, noise);
    else if (result.dialog.status != pairing_not_enough_points
             && reference.size() <= trafo3d_max_points)
        Analysis(reference, measured, ordered, &result).run();
    if (result.has_fit()) {
        note_rounding(measured, &result);
        result.doubts = doubts_about(result, ordered);
    }
    result.verdict = !result.has_fit()         ? verdict_error
                     : result.doubts.isEmpty() ? verdict_good
                                               : verdict_doubtful;
    return result;
}
