#include "host/demo/widgetdriver.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>

namespace driver
{

namespace
{

constexpr int drag_steps = 8;
constexpr int cell_decimals = 2;

void require_workable(const QWidget& widget)
{
    const QWidget* modal = QApplication::activeModalWidget();
    const QString name = widget.objectName();
    if (!widget.isVisible())
        throw DemoFailure(QStringLiteral("%1 is not to be seen").arg(name));
    if (!widget.isEnabled())
        throw DemoFailure(QStringLiteral("%1 is disabled").arg(name));
    if (modal && widget.window() != modal)
        throw DemoFailure(
            QStringLiteral("%1 is blocked by the dialog \"%2\"").arg(name, modal->windowTitle()));
}

// The widget may be gone after any event.
void send_mouse(const QPointer<QWidget>& widget, QEvent::Type type, const QPoint& position,
                Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    if (!widget)
        return;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    const Qt::MouseButton causing = type == QEvent::MouseMove ? Qt::NoButton : button;
    QMouseEvent event(type, position, widget->mapToGlobal(position), causing, held, modifiers);
    QApplication::sendEvent(widget, &event);
}

void click_at(QWidget& widget, const QPoint& position)
{
    const QPointer<QWidget> target(&widget);
    send_mouse(target, QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::NoModifier);
    send_mouse(target, QEvent::MouseButtonRelease, position, Qt::LeftButton, Qt::NoModifier);
}

void type_text(QWidget& widget, const QString& text)
{
    for (const QChar& character : text)
        press_key(widget, 0, character);
}

// Editors of cells that were left before may wait for their deletion.
QLineEdit& cell_editor(QTableWidget& table)
{
    for (QLineEdit* editor : table.viewport()->findChildren<QLineEdit*>())
        if (editor->isVisible())
            return *editor;
    throw DemoFailure(QStringLiteral("%1 cannot be edited").arg(table.objectName()));
}

QString plain(QString text) { return text.remove(QLatin1Char('&')); }

QAction& menu_titled(QMainWindow& main_window, const QString& title)
{
    for (QAction* action : main_window.menuBar()->actions())
        if (action->menu() && plain(action->text()) == title)
            return *action;
    throw DemoFailure(QStringLiteral("there is no menu %1").arg(title));
}

} // namespace

QWidget* visible_window(const QString& object_name)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == object_name)
            return widget;
    return nullptr;
}

QWidget& window(const QString& object_name)
{
    QWidget* widget = visible_window(object_name);
    if (!widget)
        throw DemoFailure(QStringLiteral("there is no window %1").arg(object_name));
    return *widget;
}

QRect occupied_area()
{
    QRect area;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible())
            area |= widget->frameGeometry();
    return area & QApplication::primaryScreen()->geometry();
}

QWidget& find_by_class(const QString& window_name, const char* class_name)
{
    for (QWidget* widget : window(window_name).findChildren<QWidget*>())
        if (widget->inherits(class_name))
            return *widget;
    throw DemoFailure(QStringLiteral("%1 has no %2").arg(window_name, QLatin1String(class_name)));
}

QMessageBox* message_box() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

void answer(int standard_button)
{
    QMessageBox* box = message_box();
    if (!box)
        throw DemoFailure(QStringLiteral("there is no question to answer"));
    QAbstractButton* button =
        box->button(static_cast<QMessageBox::StandardButton>(standard_button));
    if (!button)
        throw DemoFailure(QStringLiteral("no such answer to \"%1\"").arg(box->text()));
    click(*button);
}

void choose_file(const QString& file_name)
{
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* name = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
    auto* buttons = dialog ? dialog->findChild<QDialogButtonBox*>() : nullptr;
    if (!name || !buttons)
        throw DemoFailure(QStringLiteral("there is no file dialog to work with"));
    name->setText(file_name);
    const bool saves = dialog->acceptMode() == QFileDialog::AcceptSave;
    click(*buttons->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open));
}

QAction& menu_entry(QMainWindow& main_window, const QString& menu, const QString& entry)
{
    for (QAction* action : menu_titled(main_window, menu).menu()->actions())
        if (plain(action->text()) == entry)
            return *action;
    throw DemoFailure(QStringLiteral("the menu %1 has no entry %2").arg(menu, entry));
}

void open_menu(QMainWindow& main_window, const QString& menu)
{
    QAction& title = menu_titled(main_window, menu);
    const QMenuBar& bar = *main_window.menuBar();
    title.menu()->popup(bar.mapToGlobal(bar.actionGeometry(&title).bottomLeft()));
}

void close_menus()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        if (!popup->close())
            return;
}

void click(QAbstractButton& button)
{
    require_workable(button);
    click_at(button, button.rect().center());
}

void choose(QComboBox& box, const QString& text)
{
    require_workable(box);
    const int index = box.findText(text);
    if (index < 0)
        throw DemoFailure(QStringLiteral("%1 does not offer %2").arg(box.objectName(), text));
    box.showPopup();
    QAbstractItemView* list = box.view();
    list->setCurrentIndex(box.model()->index(index, box.modelColumn(), box.rootModelIndex()));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(list, &enter);
    if (box.currentIndex() != index)
        throw DemoFailure(QStringLiteral("%1 does not take %2").arg(box.objectName(), text));
}

void show_tab(QTabWidget& tabs, int index)
{
    require_workable(tabs);
    click_at(*tabs.tabBar(), tabs.tabBar()->tabRect(index).center());
}

void press_key(QWidget& widget, int key, const QString& text)
{
    require_workable(widget);
    const QPointer<QWidget> target(&widget);
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &press);
    if (!target)
        return;
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &release);
}

void type_number(QDoubleSpinBox& box, double number)
{
    require_workable(box);
    QLocale locale = box.locale();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    box.selectAll();
    type_text(box, locale.toString(number, 'f', box.decimals()));
    press_key(box, Qt::Key_Tab);
}

void type_number(QTableWidget& table, int row, int column, double number)
{
    require_workable(table);
    table.setCurrentCell(row, column);
    table.editItem(table.item(row, column));
    QLineEdit& editor = cell_editor(table);
    editor.selectAll();
    type_text(editor, QString::number(number, 'f', cell_decimals));
    press_key(editor, Qt::Key_Return);
}

void drag(QWidget& widget, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
          const QPoint& path)
{
    require_workable(widget);
    const QPointer<QWidget> target(&widget);
    const QPoint start = widget.rect().center();
    send_mouse(target, QEvent::MouseButtonPress, start, button, modifiers);
    for (int i = 1; i <= drag_steps; ++i) {
        const QPoint position = start + path * i / drag_steps;
        send_mouse(target, QEvent::MouseMove, position, button, modifiers);
    }
    send_mouse(target, QEvent::MouseButtonRelease, start + path, button, modifiers);
}

} // namespace driver
