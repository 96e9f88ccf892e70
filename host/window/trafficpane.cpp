#include "host/window/trafficpane.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

void TrafficFilter::show_queries(bool shown)
{
    m_queries = shown;
    invalidateFilter();
}

bool TrafficFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    return m_queries
           || !sourceModel()->index(row, 0, parent).data(TrafficModel::query_role).toBool();
}

TrafficPane::TrafficPane(QWidget* parent)
    : QWidget(parent), m_view(new QTreeView(this)),
      m_queries(new QCheckBox(tr("Show &queries"), this))
{
    m_filter.setSourceModel(&m_model);
    m_view->setObjectName(QStringLiteral("traffic"));
    m_view->setModel(&m_filter);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setAccessibleName(tr("Controller traffic"));
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int widths[] = {16, 50, 30, 7, 7, 14};
    for (int column = 0; column < TrafficModel::column_count; ++column)
        m_view->setColumnWidth(column, widths[column] * digit);
    auto* title = new QLabel(tr("Con&troller traffic"), this);
    title->setBuddy(m_view);
    m_queries->setChecked(true);
    connect(m_queries, &QCheckBox::toggled, &m_filter, &TrafficFilter::show_queries);
    auto* top = new QHBoxLayout;
    top->addWidget(title, 1);
    top->addWidget(m_queries);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 0);
    layout->addLayout(top);
    layout->addWidget(m_view);
    add_actions();
}

void TrafficPane::add(const Exchange& exchange)
{
    const QScrollBar& bar = *m_view->verticalScrollBar();
    const bool at_end = bar.value() == bar.maximum();
    m_model.add(exchange);
    if (at_end)
        m_view->scrollToBottom();
}

void TrafficPane::add_actions()
{
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add_action = [this](const QString& text, const QKeySequence& key, auto slot) {
        auto* action = new QAction(text, m_view);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, slot);
        m_view->addAction(action);
    };
    add_action(tr("&Copy"), QKeySequence::Copy, &TrafficPane::copy);
    add_action(tr("C&lear"), QKeySequence(), &TrafficPane::clear);
    add_action(tr("&Save..."), QKeySequence::Save, &TrafficPane::save_wanted);
}

void TrafficPane::copy()
{
    QModelIndexList rows = m_view->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex& row : qAsConst(rows)) {
        QStringList cells;
        for (int column = 0; column < TrafficModel::column_count; ++column)
            cells += row.sibling(row.row(), column).data().toString();
        lines += cells.join('\t');
    }
    QGuiApplication::clipboard()->setText(lines.join('\n'));
}
