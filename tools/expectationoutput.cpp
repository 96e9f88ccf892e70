// The results of "expect".
#include "tools/output.h"

#include <QJsonArray>

namespace
{

QString row_text(const ErrorAt& error)
{
    const bsVector& p = error.place;
    return QString::fromLatin1("%1 %2 %3 %4 %5 %6\n")
        .arg(p.x, 10, 'f', 1)
        .arg(p.y, 10, 'f', 1)
        .arg(p.z, 10, 'f', 1)
        .arg(error.simulated, 12, 'f', 2)
        .arg(error.worst_in_20, 12, 'f', 2)
        .arg(error.closed_form, 12, 'f', 2);
}

QJsonObject row_json(const ErrorAt& error)
{
    return {{"place", point_json(error.place)},
            {"simulated", error.simulated},
            {"most_of_95_in_100", error.worst_in_20},
            {"closed_form", error.closed_form}};
}

} // namespace

QString expectation_text(const Expectation& expected, double noise, Verdict verdict)
{
    QString text =
        QString::fromLatin1("Expected with a noise of %1 mm in each measured "
                            "coordinate:\nresidual at the points %2 (closed form %3)\n\n")
            .arg(noise)
            .arg(mm(expected.residual), mm(expected.closed_form_residual));
    text += QLatin1String("  at x [mm]     y [mm]     z [mm]   error [mm]    95 % below  "
                          "closed form\n");
    for (const ErrorAt& error : expected.places)
        text += row_text(error);
    text += QLatin1String("\nErrors are root mean squares. A small residual at the points is no "
                          "proof of a right room.\n");
    QStringList doubts;
    if (verdict != verdict_good)
        doubts << QString::fromLatin1("%1 draws had no fit, or missed the closed form.")
                      .arg(expected.failures);
    return text + verdict_text(verdict, doubts);
}

QJsonObject expectation_json(const Expectation& expected, double noise, Verdict verdict)
{
    QJsonArray places;
    for (const ErrorAt& error : expected.places)
        places << row_json(error);
    return {{"command", "expect"},
            {"verdict", verdict_name(verdict)},
            {"noise", noise},
            {"residual", expected.residual},
            {"closed_form_residual", expected.closed_form_residual},
            {"failed_draws", expected.failures},
            {"places", places}};
}
