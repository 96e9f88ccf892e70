#include "host/window/trafficmodel.h"

#include "host/window/colors.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>

#include <array>

namespace
{

constexpr int gesture_time = 1000; // ms; what comes later is not folded with what was before
constexpr int farthest_fold = 50;  // rows
const char time_format[] = "HH:mm:ss.zzz";

bool is_query(const QByteArray& request)
{
    return !request.startsWith("set ") && !request.startsWith("do ");
}

bool is_index(const QByteArray& word)
{
    return word.size() == 3 && (word[0] == 'b' || word[0] == 'c') && isdigit(word[1])
           && isdigit(word[2]);
}

QByteArray without_index(const QByteArray& request)
{
    QList<QByteArray> words = request.split(' ');
    for (QByteArray& word : words)
        if (is_index(word))
            word = word.left(1) + "*";
    return words.join(' ');
}

} // namespace

TrafficModel::TrafficModel(QObject* parent) : QAbstractTableModel(parent) {}

void TrafficModel::add(const Exchange& exchange)
{
    const Row row = {exchange, without_index(exchange.request), exchange.time, 1};
    const int earlier = row_to_fold_into(row);
    if (earlier >= 0) {
        m_rows[earlier].exchange = exchange;
        ++m_rows[earlier].times;
        emit dataChanged(index(earlier, 0), index(earlier, column_count - 1));
        return;
    }
    if (m_rows.size() == most_rows) {
        beginRemoveRows({}, 0, 0);
        m_rows.removeFirst();
        endRemoveRows();
    }
    beginInsertRows({}, m_rows.size(), m_rows.size());
    m_rows.append(row);
    endInsertRows();
}

int TrafficModel::row_to_fold_into(const Row& row) const
{
    for (int i = m_rows.size() - 1; i >= 0 && i >= m_rows.size() - farthest_fold; --i) {
        const Row& earlier = m_rows[i];
        if (earlier.family == row.family
            && earlier.exchange.reply.outcome == row.exchange.reply.outcome
            && qAbs(earlier.exchange.time.msecsTo(row.exchange.time)) < gesture_time)
            return i;
        if (!is_query(earlier.exchange.request))
            break;
    }
    return -1;
}

void TrafficModel::clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

QString TrafficModel::text() const
{
    QString all;
    for (const Row& row : m_rows) {
        QStringList cells;
        for (int column = 0; column < column_count; ++column)
            cells += cell(row, column);
        all += cells.join('\t') + '\n';
    }
    return all;
}

int TrafficModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int TrafficModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(column_count);
}

QVariant TrafficModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const Row& row = m_rows[index.row()];
    const bool query = is_query(row.exchange.request);
    if (role == query_role)
        return query;
    if (role == Qt::DisplayRole)
        return cell(row, index.column());
    if (role == Qt::ToolTipRole)
        return QStringLiteral("%1\n%2").arg(cell(row, request), cell(row, reply));
    if (role == Qt::FontRole && !query) {
        QFont font;
        font.setBold(true);
        return font;
    }
    if (role != Qt::ForegroundRole)
        return {};
    const WindowColors colors = colors_for(QGuiApplication::palette());
    if (!row.exchange.reply.ok())
        return colors.fault;
    if (index.column() == verdict)
        return colors.done;
    return query ? QVariant() : QVariant(colors.emphasis);
}

QVariant TrafficModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const std::array<QString, column_count> titles = {tr("Outcome"), tr("Request"), tr("Reply"),
                                                      tr("Times"),   tr("ms"),      tr("Time")};
    return titles[static_cast<std::size_t>(section)];
}

QString TrafficModel::cell(const Row& row, int column) const
{
    const Exchange& exchange = row.exchange;
    switch (column) {
    case verdict:
        return verdict_text(exchange.reply);
    case request:
        return QString::fromLatin1(row.times > 1 ? row.family : exchange.request);
    case reply:
        return QString::fromLatin1(exchange.reply.text);
    case count:
        return row.times > 1 ? QString::number(row.times) : QString();
    case duration:
        return QString::number(exchange.milliseconds);
    default:
        return row.first.toString(QLatin1String(time_format));
    }
}

QString TrafficModel::verdict_text(const Reply& reply)
{
    switch (reply.outcome) {
    case Reply::done:
        return tr("ok");
    case Reply::refused:
        return tr("refused");
    case Reply::not_sent:
        return tr("not sent");
    case Reply::unknown:
        break;
    }
    return tr("unknown outcome");
}
