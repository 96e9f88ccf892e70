// The list of what was said to the controller, with a filter, a context menu and a file to save to.
#ifndef HOST_WINDOW_TRAFFICPANE_H
#define HOST_WINDOW_TRAFFICPANE_H

#include "host/window/trafficmodel.h"

#include <QSortFilterProxyModel>
#include <QWidget>

class QCheckBox;
class QTreeView;

/// Leaves the queries out, if told so.
class TrafficFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void show_queries(bool shown);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    bool m_queries = true;
};

class TrafficPane : public QWidget
{
    Q_OBJECT

public:
    explicit TrafficPane(QWidget* parent = nullptr);

    void add(const Exchange& exchange);
    void clear() { m_model.clear(); }
    QString text() const { return m_model.text(); }

signals:
    void save_wanted();

private:
    void add_actions();
    void copy();

    TrafficModel m_model;
    TrafficFilter m_filter;
    QTreeView* m_view;
    QCheckBox* m_queries;
};

#endif
