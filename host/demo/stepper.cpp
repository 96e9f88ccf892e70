#include "host/demo/stepper.h"

#include "host/demo/failure.h"

#include <QTimer>

#include <utility>

namespace
{

constexpr int tick_interval = 20; // ms

} // namespace

void Stepper::act(const QString& name, Action action)
{
    m_steps.push_back({name.toUtf8(), std::move(action), {}, 0, false});
}

void Stepper::await(const QString& name, Condition condition, int limit_ms)
{
    m_steps.push_back({name.toUtf8(), {}, std::move(condition), limit_ms, false});
}

void Stepper::pause(int milliseconds)
{
    const auto is_over = [this, milliseconds] { return m_step_clock.elapsed() >= milliseconds; };
    m_steps.push_back({"pause", {}, is_over, milliseconds + default_limit, true});
}

void Stepper::set_alarm(std::function<QString()> new_alarm) { m_alarm = std::move(new_alarm); }

void Stepper::start()
{
    m_step_clock.start();
    tick();
}

// A repeating timer is silent while its own slot is inside a nested loop; each tick therefore
// orders the next one for itself, before anything can block.
void Stepper::tick()
{
    if (m_ended)
        return;
    if (m_current == m_steps.size()) {
        m_ended = true;
        emit finished();
        return;
    }
    m_current_name = m_steps[m_current].name.constData();
    QTimer::singleShot(tick_interval, this, &Stepper::tick);
    try {
        carry_out();
    } catch (const DemoFailure& failure) {
        fail(QString::fromStdString(failure.what()));
    }
}

void Stepper::carry_out()
{
    const Step& step = m_steps[m_current];
    if (step.action) {
        advance();
        emit acting(QString::fromUtf8(step.name));
        step.action();
    } else {
        look(step);
    }
}

void Stepper::look(const Step& step)
{
    if (step.condition()) {
        advance();
        return;
    }
    const QString trouble = m_alarm && !step.is_pause ? m_alarm() : QString();
    if (!trouble.isEmpty())
        fail(trouble);
    else if (m_step_clock.elapsed() > step.limit)
        fail(QStringLiteral("nothing happened for %1 s").arg(step.limit / 1000));
}

void Stepper::advance()
{
    ++m_current;
    m_step_clock.restart();
}

void Stepper::fail(const QString& text)
{
    if (m_ended)
        return;
    m_ended = true;
    emit failed(QStringLiteral("step \"%1\": %2").arg(QString::fromUtf8(m_current_name), text));
}
