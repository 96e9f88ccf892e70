#include "simulator/model/faults.h"

#include <QList>
#include <algorithm>

namespace simulator
{

namespace
{

char meant_by_escape(char escaped)
{
    return escaped == 'n' ? '\n' : escaped == '0' ? '\0' : escaped;
}

QByteArray without_escapes(const QByteArray& text)
{
    QByteArray plain;
    for (int i = 0; i < text.size(); ++i) {
        const bool escape =
            text[i] == '\\' && i + 1 < text.size() && QByteArray("n0\\").contains(text[i + 1]);
        plain += escape ? meant_by_escape(text[++i]) : text[i];
    }
    return plain;
}

} // namespace

bool Faults::fail(const QByteArray& prefix)
{
    if (int(m_prefixes.size()) >= max_prefixes)
        return false;
    m_prefixes.push_back(prefix);
    return true;
}

void Faults::fail_every(int n)
{
    m_every = n;
    m_counted = 0;
}

void Faults::end_failing()
{
    m_prefixes.clear();
    fail_every(0);
}

bool Faults::shall_fail(const QByteArray& request, bool in_vocabulary)
{
    if (in_vocabulary && m_every > 0 && ++m_counted == m_every) {
        m_counted = 0;
        return true;
    }
    return std::any_of(m_prefixes.begin(), m_prefixes.end(),
                       [&](const QByteArray& prefix) { return request.startsWith(prefix); });
}

bool Faults::send_line(const QByteArray& text)
{
    if (int(m_lines.size()) >= max_waiting_lines || text.size() > max_line_length)
        return false;
    m_lines.push_back(without_escapes(text) + '\n');
    return true;
}

std::vector<QByteArray> Faults::take_lines() { return std::exchange(m_lines, {}); }

QByteArray Faults::torn(const QByteArray& datagram)
{
    if (!std::exchange(m_tear, false))
        return datagram;
    const QList<QByteArray> parts = datagram.split('\n');
    const auto longest =
        std::max_element(parts.begin(), parts.end(), [](const QByteArray& a, const QByteArray& b) {
            return a.size() < b.size();
        });
    return datagram.left(datagram.indexOf(*longest) + longest->size() / 2);
}

} // namespace simulator
