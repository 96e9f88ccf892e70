#include "host/statustexts.h"

namespace
{

bool misses_data(const StatusFacts& facts)
{
    return facts.replayed.isEmpty() && facts.tracking
           && facts.seconds_without >= StatusTexts::longest_silence;
}

bool is_present(const StatusFacts& facts)
{
    return facts.controller == StatusFacts::answering || facts.controller == StatusFacts::slow;
}

} // namespace

StatusText StatusTexts::controller(const StatusFacts& facts)
{
    switch (facts.controller) {
    case StatusFacts::starting:
        return {tr("Controller is starting"), false};
    case StatusFacts::answering:
        return {tr("Controller %1").arg(facts.address), false};
    case StatusFacts::slow:
        return {tr("Controller %1 answers too slowly").arg(facts.address), true};
    case StatusFacts::silent:
        return {tr("Controller %1 does not answer").arg(facts.address), true};
    case StatusFacts::ended:
        break;
    }
    return {tr("The tracking simulator has ended"), true};
}

StatusText StatusTexts::data(const StatusFacts& facts)
{
    QString text = tr("Backend %1 | %2").arg(facts.backend, flow(facts));
    if (facts.torn > 0)
        text += tr(", %1 torn").arg(facts.torn);
    if (facts.refused > 0)
        text += tr(", %1 from elsewhere refused").arg(facts.refused);
    if (!facts.recorded.isEmpty())
        text += tr(", recording to %1").arg(facts.recorded);
    return {text, is_present(facts) && misses_data(facts)};
}

QString StatusTexts::flow(const StatusFacts& facts)
{
    if (!facts.replayed.isEmpty())
        return tr("Replay of %1, %2 lines").arg(facts.replayed).arg(facts.lines);
    if (!is_present(facts))
        return tr("no data");
    if (misses_data(facts))
        return tr("tracking, but no data for %1 s").arg(facts.seconds_without, 0, 'f', 0);
    return facts.tracking ? tr("Data %1 frames/s").arg(facts.rate, 0, 'f', 0) : tr("not tracking");
}
