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
    steps.push_back({name.toUtf8(), std::move(action), {}, 0, false});
}

void Stepper::await(const QString& name, Condition condition, int limit_ms)
{
    steps.push_back({name.toUtf8(), {}, std::move(condition), limit_ms, false});
}

void Stepper::pause(int milliseconds)
{
    const auto is_over = [this, milliseconds] { return step_clock.elapsed() >= milliseconds; };
    steps.push_back({"pause", {}, is_over, milliseconds + default_limit, true});
}

void Stepper::setAlarm(std::function<QString()> new_alarm) { alarm = std::move(new_alarm); }

void Stepper::start()
{
    step_clock.start();
    tick();
}

// A repeating timer is silent while its own slot is inside a nested loop; each tick therefore
// orders the next one for itself, before anything can block.
void Stepper::tick()
{
    if (ended)
        return;
    if (current == steps.size()) {
        ended = true;
        emit finished();
        return;
    }
    current_name = steps[current].name.constData();
    QTimer::singleShot(tick_interval, this, &Stepper::tick);
    try {
        carryOut();
    } catch (const DemoFailure& failure) {
        fail(QString::fromStdString(failure.what()));
    }
}

void Stepper::carryOut()
{
    const Step& step = steps[current];
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
    const QString trouble = alarm && !step.is_pause ? alarm() : QString();
    if (!trouble.isEmpty())
        fail(trouble);
    else if (step_clock.elapsed() > step.limit)
        fail(QStringLiteral("nothing happened for %1 s").arg(step.limit / 1000));
}

void Stepper::advance()
{
    ++current;
    step_clock.restart();
}

void Stepper::fail(const QString& text)
{
    if (ended)
        return;
    ended = true;
    emit failed(QStringLiteral("step \"%1\": %2").arg(QString::fromUtf8(current_name), text));
}
