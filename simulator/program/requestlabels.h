// Requests that can be told apart afterwards: was it carried out, or will it never be?
#ifndef SIMULATOR_PROGRAM_REQUESTLABELS_H
#define SIMULATOR_PROGRAM_REQUESTLABELS_H

#include "simulator/model/simulator.h"

#include <QByteArray>
#include <QDateTime>
#include <deque>
#include <functional>

namespace simulator
{

/// Stands between the line and the simulator. A request "#LABEL REQUEST" is answered
/// "#LABEL REPLY"; "#LABEL@MS REQUEST" is refused instead of carried out after the time MS, in
/// milliseconds since 1970 UTC. "sim outcome LABEL" tells what became of one of the last
/// `max_kept` labels.
class RequestLabels
{
public:
    using Handler = std::function<Answer(const QByteArray& request)>;
    using Clock = std::function<qint64()>;

    static constexpr int max_label_length = 32; ///< ASCII letters, digits, '-'
    static constexpr size_t max_kept = 256;

    explicit RequestLabels(Handler handler, Clock now = QDateTime::currentMSecsSinceEpoch);

    Answer answer(const QByteArray& line);

private:
    struct Outcome
    {
        QByteArray label;
        QByteArray reply;
    };

    Answer answer_labelled(const QByteArray& line);
    Answer answer_plain(const QByteArray& request);
    QByteArray outcome(const QByteArray& label) const;

    Handler m_handler;
    Clock m_now;
    std::deque<Outcome> m_outcomes;
};

} // namespace simulator

#endif
