// Carries out steps one after the other from the event loop, nested loops of dialogs included.
#ifndef HOST_DEMO_STEPPER_H
#define HOST_DEMO_STEPPER_H

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <vector>

/// An action may block in a dialog's own event loop: the steps behind it run inside that loop. A
/// step that throws DemoFailure, or a wait that takes too long, ends everything.
class Stepper : public QObject
{
    Q_OBJECT

public:
    using Action = std::function<void()>;
    using Condition = std::function<bool()>;

    static constexpr int default_limit = 15000; ///< ms for one wait

    void act(const QString& name, Action action);
    /// Looks at `condition` again and again until it holds. It must not block.
    void await(const QString& name, Condition condition, int limit_ms = default_limit);
    void pause(int milliseconds);

    /// Asked during each wait but pauses whose condition does not hold; a text other than an empty
    /// one says what went wrong.
    void set_alarm(std::function<QString()> new_alarm);

    void start();

    /// Name of the step under way; may be read from any thread. Lives as long as the stepper.
    const char* current_step() const { return m_current_name; }

signals:
    /// An action begins.
    void acting(const QString& name);
    void finished();
    void failed(const QString& text);

private:
    struct Step
    {
        QByteArray name;
        Action action; ///< empty: a wait
        Condition condition;
        int limit;
        bool is_pause;
    };

    void tick();
    void carry_out();
    void look(const Step& step);
    void advance();
    void fail(const QString& text);

    std::vector<Step> m_steps;
    std::size_t m_current = 0;
    std::atomic<const char*> m_current_name{""};
    QElapsedTimer m_step_clock;
    std::function<QString()> m_alarm;
    bool m_ended = false;
};

#endif
