// The host's window: menus with the modules' entries, messages, controller traffic, status.
#ifndef HOST_MAINWINDOW_H
#define HOST_MAINWINDOW_H

#include "contract/moduleinterface.h"

#include "host/controllerlink.h"

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
    void addElement(const _GuiElement& element);
    /// Takes all entries of modules out again. The actions stay with their owners.
    void removeElements();

    /// `level` 1 and above is a fault and is shown so.
    void addMessage(const QString& category, const QString& source, int level, const QString& text);
    void addExchange(const Exchange& exchange);

    void setControllerText(const QString& text);
    void setDataText(const QString& text);
    void setModeText(const QString& text);

private:
    struct ModuleMenu
    {
        QMenu* menu;
        int rank;
        QList<_GuiElement> elements;
    };

    void createPanes();
    void createOwnMenus();
    QLabel* createStatusLabel();
    ModuleMenu& menuFor(const _GuiElement& element);
    QAction* menuAfter(int rank) const;
    void showAbout();

    QPlainTextEdit* messages = nullptr;
    QPlainTextEdit* traffic = nullptr;
    QLabel* controller_label = nullptr;
    QLabel* data_label = nullptr;
    QLabel* mode_label = nullptr;
    QMenu* help_menu = nullptr;
    QList<ModuleMenu> module_menus; ///< by rank
};

#endif
