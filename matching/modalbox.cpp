#include "matching/modalbox.h"

#include <QFileDialog>
#include <QPointer>

namespace
{

/// Whether a window that stood when this was made has been closed since.
class ClosingWatch
{
public:
    explicit ClosingWatch(const QWidget* window)
        : m_window(window), m_was_open(window && window->isVisible())
    {
    }

    /// The window must still exist.
    bool is_closed() const { return m_was_open && !m_window->isVisible(); }

private:
    const QWidget* m_window;
    bool m_was_open;
};

} // namespace

QMessageBox::StandardButton show_box(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                     const QString& text, QMessageBox::StandardButtons buttons,
                                     QMessageBox::StandardButton default_button)
{
    const ClosingWatch watch(parent);
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(default_button);
    const int pressed = box->exec();
    if (!box)
        return QMessageBox::NoButton;
    delete box;
    return watch.is_closed() ? QMessageBox::NoButton
                             : static_cast<QMessageBox::StandardButton>(pressed);
}

QString choose_file(QFileDialog* box)
{
    const ClosingWatch watch(box->parentWidget());
    const QPointer<QFileDialog> open = box;
    const bool chosen = open->exec() == QDialog::Accepted;
    if (!open)
        return QString();
    const QStringList files = open->selectedFiles();
    delete open;
    return chosen && !watch.is_closed() && !files.isEmpty() ? files.first() : QString();
}
