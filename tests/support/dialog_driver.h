// Plays the person in front of modal dialogs: steps that run inside their nested event loops.
#ifndef TESTS_SUPPORT_DIALOG_DRIVER_H
#define TESTS_SUPPORT_DIALOG_DRIVER_H

#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <functional>

/// The steps that still wait for their dialog. They refer to the locals of the test that set them,
/// so none may outlive it.
inline QList<QPointer<QTimer>>& pending_steps()
{
    static QList<QPointer<QTimer>> steps;
    return steps;
}

/// Runs `step` as soon as a widget of type T is the active modal one and visible.
template <typename T>
QTimer* when_open(std::function<void(T*)> step)
{
    QTimer* timer = new QTimer(qApp);
    pending_steps().removeAll(QPointer<QTimer>());
    pending_steps().append(timer);
    QObject::connect(timer, &QTimer::timeout, [timer, step] {
        T* open = qobject_cast<T*>(QApplication::activeModalWidget());
        if (!open || !open->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        step(open);
    });
    timer->start(1);
    return timer;
}

/// Answers the next message box with `button` and keeps its words.
struct BoxAnswer
{
    QString title;
    QString text;
    int default_button = 0;
    bool seen = false;
    QPointer<QTimer> waiting;

    explicit BoxAnswer(QMessageBox::StandardButton button)
    {
        waiting = when_open<QMessageBox>([this, button](QMessageBox* box) {
            title = box->windowTitle();
            text = box->text();
            default_button = box->standardButton(box->defaultButton());
            seen = true;
            box->button(button)->click();
        });
    }

    ~BoxAnswer() { delete waiting; }

    BoxAnswer(const BoxAnswer&) = delete;
    BoxAnswer& operator=(const BoxAnswer&) = delete;
};

/// Closes whatever is still open, so that a failed step cannot hang the test.
inline void close_all_dialogs()
{
    for (const QPointer<QTimer>& step : pending_steps())
        delete step;
    pending_steps().clear();
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
