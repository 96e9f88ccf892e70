#include "tools/output.h"

#include <QJsonArray>

namespace
{

constexpr int most_pairs = 8; // in one line of text

} // namespace

QString verdict_name(Verdict verdict)
{
    const char* const names[] = {"good", "doubtful", "error"};
    return QLatin1String(names[verdict]);
}

QString verdict_text(Verdict verdict, const QStringList& doubts)
{
    QString text = verdict_name(verdict);
    text[0] = text[0].toUpper();
    return text + QLatin1String(doubts.isEmpty() ? "." : ". ") + doubts.join(QLatin1Char(' '))
           + QLatin1Char('\n');
}

QString pairs_text(const std::vector<int>& order, const std::vector<int>& other)
{
    QStringList pairs;
    int more = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i < other.size() && order[i] == other[i])
            continue;
        if (pairs.size() < most_pairs)
            pairs << QString::fromLatin1("%1 -> %2").arg(i + 1).arg(order[i] + 1);
        else
            ++more;
    }
    const QString text = pairs.join(QLatin1String(", "));
    return more == 0 ? text : text + QString::fromLatin1(" and %1 more").arg(more);
}

QString mm(double value, int decimals)
{
    return QString::number(value, 'f', decimals) + QLatin1String(" mm");
}

QJsonArray point_json(const bsVector& point) { return {point.x, point.y, point.z}; }

QJsonArray order_json(const std::vector<int>& order)
{
    QJsonArray numbers;
    for (int i : order)
        numbers << i + 1;
    return numbers;
}
