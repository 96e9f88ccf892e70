// A panel that leads a newcomer through a whole room adjustment and never blocks.
#ifndef HOST_WINDOW_FIRSTVISIT_H
#define HOST_WINDOW_FIRSTVISIT_H

#include <QByteArray>
#include <QFrame>
#include <QList>

class QLabel;
class QPushButton;
struct Exchange;

/// Six steps, each ticked off when it has happened, whoever did it and in whatever order.
class FirstVisit : public QFrame
{
    Q_OBJECT

public:
    enum Step
    {
        points,   ///< the reference points are in a file
        opened,   ///< the dialog is open
        loaded,   ///< the reference points are in its table
        measured, ///< as many points are measured
        applied,  ///< the result is the controller's
        seen,     ///< the first point lies at zero
        step_count
    };

    explicit FirstVisit(QWidget* parent = nullptr);

    /// Names the file that holds the reference points, and ticks the first step.
    void set_points_file(const QString& file);
    void tick(Step step);
    /// Looks at the module's windows for what has happened since.
    void look();
    void notice_exchange(const Exchange& exchange);
    /// Where the controller reports the tip, mm.
    void notice_tip(double x, double y, double z);
    /// Whether it makes sense to ask where the tip is.
    bool wants_tip() const { return is_done(applied) && !is_done(seen); }
    /// What is to be done next; empty at the end.
    QString hint() const;

signals:
    void points_wanted();
    void dismissed();
    /// A step is done: the hint is another one.
    void advanced();

private:
    bool is_done(Step step) const { return m_done[step]; }
    QString text(Step step) const;
    void show_steps();

    bool m_done[step_count] = {};
    QString m_points_file;
    int m_references = 0;
    int m_measured = 0;
    QList<QLabel*> m_labels;
    QPushButton* m_points_button;
};

#endif
