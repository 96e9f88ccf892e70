// Works a module's widgets from outside, by object name, with the events that a person causes.
#ifndef HOST_DEMO_WIDGETDRIVER_H
#define HOST_DEMO_WIDGETDRIVER_H

#include "host/demo/failure.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

class QAbstractButton;
class QAction;
class QComboBox;
class QDoubleSpinBox;
class QMainWindow;
class QMessageBox;
class QTabWidget;
class QTableWidget;

/// GUI thread. What is not there, hidden, disabled or behind a modal dialog cannot be worked and
/// throws DemoFailure, as a person would stop there.
namespace driver
{

/// A visible top-level widget, or null.
QWidget* visible_window(const QString& object_name);
/// The same, but it has to be there.
QWidget& window(const QString& object_name);

template <class T>
T& find(const QString& window_name, const QString& object_name)
{
    T* widget = window(window_name).findChild<T*>(object_name);
    if (!widget)
        throw DemoFailure(QStringLiteral("%1 has no %2").arg(window_name, object_name));
    return *widget;
}

/// The part of the screen that the application's windows cover.
QRect occupied_area();

/// The first descendant whose class has this name.
QWidget& find_by_class(const QString& window_name, const char* class_name);

/// The message box that waits for an answer, or null.
QMessageBox* message_box();
void answer(int standard_button);
/// Gives the file dialog that is open a name and accepts it.
void choose_file(const QString& file_name);

/// The entry with this text, ampersands apart, in the menu with this title.
QAction& menu_entry(QMainWindow& main_window, const QString& menu, const QString& entry);
/// Shows the menu with this title until it is closed or one of its entries is taken.
void open_menu(QMainWindow& main_window, const QString& menu);
void close_menus();

void click(QAbstractButton& button);
void choose(QComboBox& box, const QString& text);
void show_tab(QTabWidget& tabs, int index);
void press_key(QWidget& widget, int key, const QString& text = QString());
void type_number(QDoubleSpinBox& box, double number);
/// Edits the cell in place.
void type_number(QTableWidget& table, int row, int column, double number);
void drag(QWidget& widget, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
          const QPoint& path);

} // namespace driver

#endif
