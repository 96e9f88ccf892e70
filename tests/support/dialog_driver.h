// Plays the person in front of modal dialogs: steps that run inside their nested event loops.
#ifndef TESTS_SUPPORT_DIALOG_DRIVER_H
#define TESTS_SUPPORT_DIALOG_DRIVER_H

#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <functional>

/// Runs `step` as soon as a widget of type T is the active modal one and visible. A step that never
/// came to run is dropped by close_all_dialogs(); what it refers to has to live until then.
template <typename T>
void when_open(std::function<void(T*)> step)
{
    QTimer* timer = new QTimer(qApp);
    timer->setObjectName("pending step");
    QObject::connect(timer, &QTimer::timeout, [timer, step] {
        T* open = qobject_cast<T*>(QApplication::activeModalWidget());
        if (!open || !open->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        step(open);
    });
    timer->start(1);
}

/// Answers the next message box with `button` and keeps its words.
struct BoxAnswer
{
    QString title;
    QString text;
    int default_button = 0;
    bool seen = false;

    explicit BoxAnswer(QMessageBox::StandardButton button)
    {
        when_open<QMessageBox>([this, button](QMessageBox* box) {
            title = box->windowTitle();
            text = box->text();
            default_button = box->standardButton(box->defaultButton());
            seen = true;
            box->button(button)->click();
        });
    }
};

/// Forgets the steps that wait for a widget: they must not run in a later test.
inline void drop_pending_steps()
{
    for (QTimer* timer : qApp->findChildren<QTimer*>("pending step", Qt::FindDirectChildrenOnly)) {
        timer->stop();
        timer->deleteLater(); // it may be the one whose step calls this
    }
}

/// Closes whatever is still open, so that a failed step cannot hang the test.
inline void close_all_dialogs()
{
    drop_pending_steps();
    while (QWidget* open = QApplication::activeModalWidget()) {
        if (QDialog* dialog = qobject_cast<QDialog*>(open))
            dialog->done(0);
        else
            open->close();
        if (QApplication::activeModalWidget() == open)
            return;
    }
}

#endif
