// Modal windows that survive the end of those who opened them.
//
// A modal window runs an event loop of its own. In it the host may end the module, and with it the
// dialog that waits for the answer. So such a window lives on the heap, as a child of the dialog,
// and whoever opened it asks for the answer here and does nothing more if there is none.
#ifndef MATCHING_MODALBOX_H
#define MATCHING_MODALBOX_H

#include <QMessageBox>

class QFileDialog;

/// Shows a message, taken as plain text, until one of the buttons is pressed. `default_button` is
/// what Return presses. The result is the button; NoButton if `parent` was destroyed meanwhile, in
/// which case the caller must not touch it.
QMessageBox::StandardButton
show_box(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
         QMessageBox::StandardButtons buttons = QMessageBox::Ok,
         QMessageBox::StandardButton default_button = QMessageBox::NoButton);

/// Runs a file box and deletes it. The result is the file chosen; empty if there is none or if the
/// box's parent was destroyed meanwhile.
QString choose_file(QFileDialog* box);

#endif
