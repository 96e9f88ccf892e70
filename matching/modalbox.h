// Modal windows that survive the end of those who opened them.
//
// A modal window runs an event loop of its own. In it the host may close the dialog that waits for
// the answer, or end the module and the dialog with it. So such a window lives on the heap, as a
// child of the dialog, and whoever opened it does nothing more if there is no answer.
#ifndef MATCHING_MODALBOX_H
#define MATCHING_MODALBOX_H

#include <QMessageBox>

class QFileDialog;

/// Shows a message, taken as plain text, until one of the buttons is pressed. `default_button` is
/// what Return presses. The result is the button; NoButton if `parent` was closed or destroyed
/// meanwhile. Callers that go on in any case must look whether `parent` still exists.
QMessageBox::StandardButton
show_box(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
         QMessageBox::StandardButtons buttons = QMessageBox::Ok,
         QMessageBox::StandardButton default_button = QMessageBox::NoButton);

/// Runs a file box, which must have a parent, and deletes it. The result is the file chosen; empty
/// if there is none, or if the parent was closed or destroyed meanwhile.
QString choose_file(QFileDialog* box);

#endif
