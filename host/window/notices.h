// Short notices above whatever dialog is open: what a module says and what has failed.
#ifndef HOST_WINDOW_NOTICES_H
#define HOST_WINDOW_NOTICES_H

#include <QElapsedTimer>
#include <QList>
#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;
class QVBoxLayout;

/// One notice: its source, its text, how often it came. Fades after some seconds unless a click has
/// pinned it; its button or a second click closes it.
class Notice : public QWidget
{
    Q_OBJECT

public:
    Notice(const QString& source, const QString& text, bool is_fault, QWidget* parent);

    bool says(const QString& source, const QString& text) const;
    /// Shown anew, with a count.
    void repeat();
    void pin();
    bool is_pinned() const { return m_pinned; }
    /// A button within the notice that does something about it.
    void offer(const QString& text, std::function<void()> action);

signals:
    void closed();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fade();
    void show_text();

    QString m_source;
    QString m_text;
    bool m_fault;
    int m_count = 1;
    bool m_pinned = false;
    QLabel* m_label;
    QVBoxLayout* m_column;
    QTimer m_timer;
    QElapsedTimer m_age;
};

/// The stack of them: a frameless window at the lower right corner of the screen that never takes
/// the focus and is not blocked by a modal dialog.
class Notices : public QWidget
{
    Q_OBJECT

public:
    static constexpr int most_notices = 4; ///< the oldest that is not pinned leaves

    Notices();

    /// A text that is shown already is counted instead.
    Notice* add(const QString& source, const QString& text, bool is_fault);
    /// Takes away what says so, if it is there.
    void withdraw(const QString& source, const QString& text);

private:
    void remove(Notice* notice);
    void arrange();
    void raise_above_dialogs();

    QVBoxLayout* m_column;
    QList<Notice*> m_notices;
};

#endif
