// The results of "fit".
#include "controller/roomadjustmentdata.h"
#include "matching/pairingreport.h"
#include "tools/output.h"
#include "tools/wiresettings.h"

#include <QJsonArray>

namespace
{

std::vector<int> dialog_order(const FitAnalysis& fit)
{
    return std::vector<int>(fit.dialog.order, fit.dialog.order + fit.dialog.count);
}

QStringList settings(const FitAnalysis& fit)
{
    return wire_texts(applied_adjustment(solved_motion(fit.dialog)));
}

QString settings_text(const FitAnalysis& fit)
{
    return QString::fromLatin1("\nSettings that the dialog sends after OK and Apply:\n%1\n"
                               "Its number boxes hold two decimals; that moves the measured points "
                               "by %2 at most.\n")
        .arg(settings(fit).join(QLatin1Char('\n')), mm(fit.rounding));
}

QString next_text(const FitAnalysis& fit)
{
    const OtherPairing& next = *fit.next;
    const QString pairs = pairs_text(next.order, dialog_order(fit));
    return QString::fromLatin1("\nNext best pairing%1: point %2, otherwise the same; residual %3, "
                               "%4 more.\nIt turns the room by %5 degrees and moves its origin by "
                               "%6.%7\n")
        .arg(QLatin1String(next.is_proven ? "" : " found (there may be a better one)"), pairs,
             mm(next.residual), mm(next.residual - fit.dialog.residual),
             QString::number(next.turn, 'f', 2), mm(next.shift, 1),
             QLatin1String(next.is_within_noise ? " Noise alone decides between the two." : ""));
}

QString unreached_text(const UnreachedFit& unreached, const FitAnalysis& fit)
{
    const bool is_chosen = fit.has_fit() && unreached.order == dialog_order(fit);
    const QString failure = unreached.status == pairing_start_failed ? "trafo3d_3trafo gives %1"
                            : unreached.status == pairing_optimizing_failed
                                ? "trafo3d_opttrafo gives %1"
                                : "the fit stops early";
    return QString::fromLatin1("\nThe best rigid fit has a residual of %1%2, but the dialog does "
                               "not get there (%3).\n")
        .arg(mm(unreached.residual),
             is_chosen ? QString()
                       : QString::fromLatin1(" with point ") + pairs_text(unreached.order, {}),
             failure.contains('%') ? failure.arg(unreached.code) : failure);
}

QString place_text(const bsVector& p)
{
    return QString::fromLatin1("(%1, %2, %3)")
        .arg(p.x, 0, 'f', 2)
        .arg(p.y, 0, 'f', 2)
        .arg(p.z, 0, 'f', 2);
}

QString name_of(const PointMistake& mistake)
{
    const int reference = mistake.reference_index + 1, measured = mistake.measured_index + 1;
    switch (mistake.side) {
    case PointMistake::reference:
        return QString::fromLatin1("reference point %1").arg(reference);
    case PointMistake::measured:
        return QString::fromLatin1("measured point %1").arg(measured);
    case PointMistake::either:
        break;
    }
    return QString::fromLatin1("reference point %1 or measured point %2")
        .arg(reference)
        .arg(measured);
}

QString point_mistake_text(const PointMistake& mistake)
{
    return QString::fromLatin1("%1: %2. %3 should be about %4; without it the rest fits with a "
                               "residual of %5.\n")
        .arg(name_of(mistake), mistake.what, place_text(mistake.given),
             place_text(mistake.expected), mm(mistake.residual_of_rest));
}

QString mistakes_text(const FitAnalysis& fit)
{
    QString text;
    if (!fit.list_mistake.isEmpty())
        text = fit.list_mistake + QLatin1String(".\n");
    if (!fit.surplus_points.isEmpty())
        text = QString::fromLatin1("the lists fit without point %1 of the longer one.\n")
                   .arg(fit.surplus_points.join(QLatin1String(", ")));
    for (const PointMistake& mistake : fit.point_mistakes)
        text += point_mistake_text(mistake);
    const bool is_one = fit.point_mistakes.size() < 2;
    return text.isEmpty()
               ? text
               : QLatin1String(is_one ? "\nMistake: " : "\nOne of these mistakes:\n") + text;
}

QJsonObject next_json(const OtherPairing& next)
{
    return {{"order", order_json(next.order)},
            {"residual", next.residual},
            {"turn", next.turn},
            {"shift", next.shift},
            {"within_noise", next.is_within_noise},
            {"proven", next.is_proven}};
}

QJsonObject mistake_json(const PointMistake& mistake)
{
    const char* const sides[] = {"reference", "measured", "either"};
    return {{"reference_point", mistake.reference_index + 1},
            {"measured_point", mistake.measured_index + 1},
            {"wrong", sides[mistake.side]},
            {"what", mistake.what},
            {"given", point_json(mistake.given)},
            {"expected", point_json(mistake.expected)},
            {"residual_of_rest", mistake.residual_of_rest}};
}

QJsonArray mistakes_json(const std::vector<PointMistake>& mistakes)
{
    QJsonArray array;
    for (const PointMistake& mistake : mistakes)
        array << mistake_json(mistake);
    return array;
}

void add_solution(QJsonObject& json, const FitAnalysis& fit)
{
    const bsMatrix T = solved_motion(fit.dialog);
    QJsonArray matrix;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix << T(r, c);
    json["residual"] = fit.dialog.residual;
    json["order"] = order_json(dialog_order(fit));
    json["T_reference_measured"] = matrix;
    json["settings"] = QJsonArray::fromStringList(settings(fit));
    json["rounding"] = fit.rounding;
}

} // namespace

QString fit_text(const FitAnalysis& fit)
{
    QString text = pairing_report(fit.dialog) + QLatin1Char('\n');
    if (fit.has_fit())
        text += settings_text(fit);
    if (fit.next)
        text += next_text(fit);
    if (fit.unreached)
        text += unreached_text(*fit.unreached, fit);
    if (fit.is_on_line)
        text += QLatin1String("\nThe reference points lie on one line: any turn about it fits.\n");
    return text + mistakes_text(fit) + QLatin1Char('\n') + verdict_text(fit.verdict, fit.doubts);
}

QJsonObject fit_json(const FitAnalysis& fit)
{
    QJsonObject json = {{"command", "fit"},
                        {"verdict", verdict_name(fit.verdict)},
                        {"report", pairing_report(fit.dialog)},
                        {"noise", fit.noise},
                        {"residual_limit", fit.residual_limit},
                        {"doubts", QJsonArray::fromStringList(fit.doubts)},
                        {"mistakes", mistakes_json(fit.point_mistakes)},
                        {"list_mistake", fit.list_mistake},
                        {"surplus_points", QJsonArray::fromStringList(fit.surplus_points)}};
    if (fit.has_fit())
        add_solution(json, fit);
    if (fit.next)
        json["next_pairing"] = next_json(*fit.next);
    if (fit.unreached)
        json["unreached"] = QJsonObject{{"order", order_json(fit.unreached->order)},
                                        {"residual", fit.unreached->residual},
                                        {"code", fit.unreached->code}};
    return json;
}
