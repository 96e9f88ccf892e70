// The results of "check".
#include "tools/output.h"

#include <QJsonArray>

namespace
{

constexpr std::size_t most_listed = 8;

QString lost_text(const char* where, const LostDigits& lost)
{
    const QString name = QLatin1String(where);
    if (lost.point == 0)
        return QString::fromLatin1("Lost digits by %1: none.\n").arg(name);
    return QString::fromLatin1("Lost digits by %1: %2 mm at most (point %3, %4).\n")
        .arg(name)
        .arg(lost.most, 0, 'g', 2)
        .arg(lost.point)
        .arg(QLatin1Char("xyz"[lost.axis]));
}

QString file_text(const PointFile& file)
{
    QString text = QString::fromLatin1("%1: %2 points, form: %3\n")
                       .arg(file.name)
                       .arg(file.points.size())
                       .arg(form_name(file.form));
    for (const LineNote& note : file.notes)
        text += located(file.name, note) + QLatin1Char('\n');
    return text + lost_text("reading (single precision)", file.to_single)
           + lost_text("editing or saving (two decimals)", file.to_two_decimals);
}

QString shape_text(const ObjectCheck& check)
{
    return QString::fromLatin1("Size %1; all points within %2 of a plane%3, within %4 of a line.\n"
                               "The third point stands %5 over the line through the first two.\n")
        .arg(mm(check.size, 1), mm(check.thickness, 1),
             QLatin1String(is_flat(check) ? " (flat)" : ""), mm(check.width, 1),
             mm(check.triple_height, 1));
}

QString duplicates_text(const ObjectCheck& check)
{
    QStringList pairs;
    for (const auto& pair : check.duplicates)
        pairs << QString::fromLatin1("%1 and %2").arg(pair.first + 1).arg(pair.second + 1);
    return pairs.isEmpty()
               ? QString()
               : QString::fromLatin1("Equal points: %1.\n").arg(pairs.join(QLatin1String(", ")));
}

QString symmetry_text(const Symmetry& symmetry)
{
    return QString::fromLatin1("  differs by %1: point %2\n")
        .arg(mm(symmetry.residual),
             pairs_text(symmetry.order, counting_order(symmetry.order.size())));
}

QString symmetries_text(const ObjectCheck& check)
{
    if (check.nearest.order.empty())
        return QString();
    const QString proof = QLatin1String(check.is_proven ? "" : " (found, not proven)");
    if (check.symmetries.empty())
        return QString::fromLatin1("No symmetry. The closest other pairing%1:\n").arg(proof)
               + symmetry_text(check.nearest);
    QString text = QString::fromLatin1("Other pairings that carry the points onto themselves%1: "
                                       "%2%3\n")
                       .arg(proof)
                       .arg(check.symmetries.size())
                       .arg(QLatin1String(check.has_more_symmetries ? " and more" : ""));
    for (std::size_t i = 0; i < std::min(most_listed, check.symmetries.size()); ++i)
        text += symmetry_text(check.symmetries[i]);
    return text;
}

QJsonObject lost_json(const LostDigits& lost)
{
    return {{"most", lost.most}, {"point", lost.point}};
}

QJsonObject symmetry_json(const Symmetry& symmetry)
{
    return {{"order", order_json(symmetry.order)}, {"residual", symmetry.residual}};
}

QJsonArray notes_json(const PointFile& file)
{
    QJsonArray notes;
    for (const LineNote& note : file.notes)
        notes << QJsonObject{
            {"line", note.line}, {"text", note.text}, {"serious", note.is_serious}};
    return notes;
}

QJsonArray symmetries_json(const ObjectCheck& check)
{
    QJsonArray symmetries;
    for (const Symmetry& symmetry : check.symmetries)
        symmetries << symmetry_json(symmetry);
    return symmetries;
}

QJsonArray duplicates_json(const ObjectCheck& check)
{
    QJsonArray duplicates;
    for (const auto& pair : check.duplicates)
        duplicates << QJsonArray{pair.first + 1, pair.second + 1};
    return duplicates;
}

} // namespace

QString check_text(const PointFile& file, const ObjectCheck& check)
{
    return file_text(file) + shape_text(check) + duplicates_text(check) + symmetries_text(check)
           + verdict_text(check.verdict, check.doubts);
}

QJsonObject check_json(const PointFile& file, const ObjectCheck& check)
{
    QJsonObject json = {{"command", "check"},
                        {"verdict", verdict_name(check.verdict)},
                        {"file", file.name},
                        {"form", form_name(file.form)},
                        {"points", int(file.points.size())},
                        {"lines", notes_json(file)},
                        {"lost_to_single_precision", lost_json(file.to_single)},
                        {"lost_to_two_decimals", lost_json(file.to_two_decimals)},
                        {"size", check.size},
                        {"thickness", check.thickness},
                        {"width", check.width},
                        {"first_triple_height", check.triple_height},
                        {"flat", is_flat(check)},
                        {"equal_points", duplicates_json(check)},
                        {"symmetries", symmetries_json(check)},
                        {"more_symmetries", check.has_more_symmetries},
                        {"proven", check.is_proven},
                        {"doubts", QJsonArray::fromStringList(check.doubts)}};
    if (!check.nearest.order.empty())
        json["nearest_pairing"] = symmetry_json(check.nearest);
    return json;
}
