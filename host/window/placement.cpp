#include "host/window/placement.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include <algorithm>

namespace
{

constexpr int title_bar = 32;        // pixels, at most, with common window managers
constexpr int border = 4;            // pixels, likewise
constexpr int dialog_width = 1010;   // pixels; what the module's largest dialog covers
constexpr int simulator_width = 750; // pixels; below this its window is cut off
constexpr int most_height = 900;     // pixels

const char placed_property[] = "placedByHost";

} // namespace

// The wider the screen, the rather the dialogs fit over the host's window alone.
SideBySide side_by_side(const QRect& available)
{
    const int split =
        available.left()
        + std::min({dialog_width, available.width() / 2, available.width() - simulator_width});
    const int height = std::min(most_height, available.height());
    const QRect left(available.left(), available.top(), split - available.left(), height);
    const QRect right(split, available.top(), available.right() - split + 1, height);
    const auto inside = [](const QRect& frame) {
        return frame.adjusted(border, title_bar, -border, -border);
    };
    return {inside(left), inside(right)};
}

QRect moved_clear(const QRect& dialog, const QRect& available, const QRect& kept_clear)
{
    const QRect covered = dialog & kept_clear;
    if (covered.isEmpty())
        return dialog;
    const int left = std::max(available.left(), dialog.left() - covered.width());
    return dialog.translated(left - dialog.left(), 0);
}

DialogPlacer::DialogPlacer(const QRect& kept_clear, QObject* parent)
    : QObject(parent), m_kept_clear(kept_clear)
{
    qApp->installEventFilter(this);
}

// The frame is known only after the dialog has been shown.
bool DialogPlacer::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
    if (!dialog || qobject_cast<QMessageBox*>(dialog) || qobject_cast<QFileDialog*>(dialog)
        || dialog->property(placed_property).toBool())
        return false;
    dialog->setProperty(placed_property, true);
    QTimer::singleShot(0, dialog, [dialog, kept_clear = m_kept_clear] {
        const QRect frame = dialog->frameGeometry();
        const QRect available = dialog->screen()->availableGeometry();
        dialog->move(moved_clear(frame, available, kept_clear).topLeft());
    });
    return false;
}
