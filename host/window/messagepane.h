// The list of what modules and the host itself have to tell.
#ifndef HOST_WINDOW_MESSAGEPANE_H
#define HOST_WINDOW_MESSAGEPANE_H

#include <QList>
#include <QWidget>

class QPlainTextEdit;

/// Keeps a bounded number of messages and writes them anew when the desktop changes its colors.
class MessagePane : public QWidget
{
    Q_OBJECT

public:
    static constexpr int most_messages = 500;

    explicit MessagePane(QWidget* parent = nullptr);

    void add(const QString& text, bool is_fault);
    void clear();
    QString text() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Message
    {
        QString text;
        bool is_fault;
    };

    void show_message(const Message& message);

    QList<Message> m_messages;
    QPlainTextEdit* m_view = nullptr;
};

#endif
