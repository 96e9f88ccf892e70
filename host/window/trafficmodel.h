// What was said to the controller and what came back, as rows for a view.
#ifndef HOST_WINDOW_TRAFFICMODEL_H
#define HOST_WINDOW_TRAFFICMODEL_H

#include "host/connection/controllerlink.h"

#include <QAbstractTableModel>
#include <QList>

/// Folds repeats: an exchange that differs from an earlier one of the same gesture in its outcome's
/// text or in an index such as "c07" alone is counted there. A `set` or `do` in between keeps the
/// order: nothing is folded across it. Keeps a bounded number of rows; the oldest leave.
class TrafficModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        verdict,
        request,
        reply,
        count,
        duration,
        time,
        column_count
    };
    static constexpr int most_rows = 2000;
    static constexpr int query_role = Qt::UserRole; ///< true for what changes nothing

    explicit TrafficModel(QObject* parent = nullptr);

    void add(const Exchange& exchange);
    void clear();
    /// All of it, a line each, for a file.
    QString text() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    static QString verdict_text(const Reply& reply);

private:
    struct Row
    {
        Exchange exchange; ///< the last one
        QByteArray family; ///< the request with its index left out
        QTime first;
        int times;
    };

    int row_to_fold_into(const Row& row) const;
    QString cell(const Row& row, int column) const;

    QList<Row> m_rows;
};

#endif
