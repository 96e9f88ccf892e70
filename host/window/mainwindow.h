// The host's window: menus with the modules' entries, messages, controller traffic, status.
#ifndef HOST_MAINWINDOW_H
#define HOST_MAINWINDOW_H

#include "contract/moduleinterface.h"

#include "host/connection/controllerlink.h"

#include <QList>
#include <QMainWindow>
#include <QString>

class QLabel;
class QMenu;
class QPlainTextEdit;

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

    /// `level` 1 and above is a fault and is shown so.
    void add_message(const QString& category, const QString& source, int level,
                     const QString& text);
    void add_exchange(const Exchange& exchange);

    void set_controller_text(const QString& text);
    void set_data_text(const QString& text);
    void set_mode_text(const QString& text);

private:
    struct ModuleMenu
    {
        QMenu* menu;
        int rank;
        QList<_GuiElement> elements;
    };

    void create_panes();
    void create_own_menus();
    QLabel* create_status_label();
    ModuleMenu& menu_for(const _GuiElement& element);
    QAction* menu_after(int rank) const;
    void show_about();

    QPlainTextEdit* m_messages = nullptr;
    QPlainTextEdit* m_traffic = nullptr;
    QLabel* m_controller_label = nullptr;
    QLabel* m_data_label = nullptr;
    QLabel* m_mode_label = nullptr;
    QMenu* m_help_menu = nullptr;
    QList<ModuleMenu> m_module_menus; ///< by rank
};

#endif
