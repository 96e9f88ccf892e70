#include "simulator/program/requestlabels.h"

#include "simulator/model/reply.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace simulator
{

namespace
{

const char outcome_request[] = "sim outcome ";
/// Enough to see what was done; a long value need not be kept.
constexpr int max_reply_kept = 200;

/// Milliseconds since 1970; nothing for what is no such number.
std::optional<qint64> parse_time(const QByteArray& text)
{
    bool good = false;
    const qint64 time = text.toLongLong(&good);
    return good && time >= 0 ? std::optional<qint64>(time) : std::nullopt;
}

bool is_label(const QByteArray& text)
{
    return !text.isEmpty() && text.size() <= RequestLabels::max_label_length
           && std::all_of(text.begin(), text.end(), [](char c) {
                  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')
                         || c == '-';
              });
}

} // namespace

RequestLabels::RequestLabels(Handler handler, Clock now)
    : m_handler(std::move(handler)), m_now(std::move(now))
{
}

Answer RequestLabels::answer(const QByteArray& line)
{
    return line.startsWith('#') ? answer_labelled(line) : answer_plain(line);
}

Answer RequestLabels::answer_plain(const QByteArray& request)
{
    return request.startsWith(outcome_request)
               ? Answer{outcome(request.mid(int(qstrlen(outcome_request))))}
               : m_handler(request);
}

Answer RequestLabels::answer_labelled(const QByteArray& line)
{
    const int blank = line.indexOf(' ');
    const QByteArray head = line.mid(1, blank < 0 ? -1 : blank - 1);
    const int at = head.indexOf('@');
    const QByteArray label = at < 0 ? head : head.left(at);
    const auto latest = at < 0 ? std::numeric_limits<qint64>::max() : parse_time(head.mid(at + 1));
    if (blank < 0 || !is_label(label) || !latest)
        return {error("#LABEL REQUEST or #LABEL@MS REQUEST is needed")};
    Answer answer = m_now() > *latest ? Answer{error("too late, nothing was done")}
                                      : answer_plain(line.mid(blank + 1));
    m_outcomes.push_front({label, answer.text.left(max_reply_kept)});
    if (m_outcomes.size() > max_kept)
        m_outcomes.pop_back();
    answer.text = '#' + label + ' ' + answer.text;
    return answer;
}

QByteArray RequestLabels::outcome(const QByteArray& label) const
{
    const auto found = std::find_if(m_outcomes.begin(), m_outcomes.end(),
                                    [&](const Outcome& kept) { return kept.label == label; });
    return found == m_outcomes.end() ? ok("none") : ok("done " + found->reply);
}

} // namespace simulator
