// The host's window: menus with the modules' entries, messages, controller traffic, status.
#ifndef HOST_MAINWINDOW_H
#define HOST_MAINWINDOW_H

#include "contract/moduleinterface.h"

#include "host/connection/controllerlink.h"
#include "host/statustexts.h"
#include "host/window/notices.h"

#include <QList>
#include <QMainWindow>
#include <QString>

class QLabel;
class QMenu;
class FirstVisit;
class QPushButton;
class MessagePane;
class TrafficPane;

/// Menus and entries stand in the order of their ranks, whatever order the modules come in; equal
/// ranks keep the order of arrival. The panes keep a bounded number of lines.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    /// Puts an action into the menu that the element names; the menu comes into being with its
    /// first entry.
    void add_element(const _GuiElement& element);
    /// Takes all entries of modules out again. The actions stay with their owners.
    void remove_elements();

    /// While a modal dialog covers the panes, both are shown above it as well.
    /// `level` 1 and above is a fault and is shown so.
    void add_message(const QString& category, const QString& source, int level,
                     const QString& text);
    void add_exchange(const Exchange& exchange);

    void set_controller_text(const StatusText& status);
    void set_data_text(const StatusText& status);
    /// Whether there is a simulator to be started again; offered above a modal dialog, too.
    void offer_restart(bool offered);
    void set_mode_text(const QString& text);

    FirstVisit& first_visit() { return *m_first_visit; }
    /// Places of windows and what was dismissed, kept from one start to the next. `fresh` forgets
    /// what was kept before.
    void remember(bool fresh);

signals:
    void restart_wanted();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct ModuleMenu
    {
        QMenu* menu;
        int rank;
        QList<_GuiElement> elements;
    };

    void create_panes();
    void create_first_visit();
    void create_own_menus();
    QLabel* create_status_label();
    ModuleMenu& menu_for(const _GuiElement& element);
    QAction* menu_after(int rank) const;
    void save(const QString& text);
    void show_about();
    void color_status(QLabel* label, bool is_fault);

    FirstVisit* m_first_visit = nullptr;
    QAction* m_visit_action = nullptr;
    bool m_remembers = false;
    MessagePane* m_messages = nullptr;
    TrafficPane* m_traffic = nullptr;
    QLabel* m_controller_label = nullptr;
    QLabel* m_data_label = nullptr;
    QLabel* m_mode_label = nullptr;
    QPushButton* m_restart_button = nullptr;
    Notices m_notices;
    QMenu* m_help_menu = nullptr;
    QList<ModuleMenu> m_module_menus; ///< by rank
};

#endif
