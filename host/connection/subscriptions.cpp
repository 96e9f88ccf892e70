#include "host/connection/subscriptions.h"

#include "contract/requester.h"

#include <algorithm>

namespace
{

using Lock = std::lock_guard<std::recursive_mutex>;

QByteArray type_of(const QByteArray& line)
{
    const int blank = line.indexOf(' ');
    return blank < 0 ? line : line.left(blank);
}

} // namespace

int Subscriptions::add(Requester* requester)
{
    const Lock lock(m_mutex);
    if (!requester)
        return -1;
    if (!is_known(requester))
        m_requesters.push_back(requester);
    return 0;
}

int Subscriptions::remove(Requester* requester)
{
    const Lock lock(m_mutex);
    const auto known = std::find(m_requesters.begin(), m_requesters.end(), requester);
    if (known == m_requesters.end())
        return -1;
    m_requesters.erase(known);
    const auto is_its_own = [requester](const Subscription& s) { return s.requester == requester; };
    m_subscriptions.erase(
        std::remove_if(m_subscriptions.begin(), m_subscriptions.end(), is_its_own),
        m_subscriptions.end());
    return 0;
}

int Subscriptions::subscribe(const QByteArray& line_type, Requester* requester)
{
    const Lock lock(m_mutex);
    if (line_type.isEmpty() || !is_known(requester))
        return -1;
    if (!is_subscribed(line_type, requester))
        m_subscriptions.push_back({line_type, requester});
    return 0;
}

int Subscriptions::unsubscribe(const QByteArray& line_type, Requester* requester)
{
    const Lock lock(m_mutex);
    const auto found = std::find_if(
        m_subscriptions.begin(), m_subscriptions.end(), [&](const Subscription& subscription) {
            return subscription.requester == requester && subscription.line_type == line_type;
        });
    if (found == m_subscriptions.end())
        return -1;
    m_subscriptions.erase(found);
    return 0;
}

bool Subscriptions::empty() const
{
    const Lock lock(m_mutex);
    return m_subscriptions.empty();
}

void Subscriptions::clear()
{
    const Lock lock(m_mutex);
    m_requesters.clear();
    m_subscriptions.clear();
}

void Subscriptions::deliver(const QByteArray& line)
{
    const Lock lock(m_mutex);
    const QByteArray line_type = type_of(line);
    for (Requester* requester : subscribers_of(line_type))
        if (is_subscribed(line_type, requester))
            requester->set_ascii_data(line_type.constData(), line.constData());
}

void Subscriptions::notify_measurement(bool started)
{
    const Lock lock(m_mutex);
    const std::vector<Requester*> all = m_requesters;
    for (Requester* requester : all) {
        if (!is_known(requester))
            continue;
        if (started)
            requester->set_mea_started();
        else
            requester->set_mea_stopped();
    }
}

bool Subscriptions::is_known(Requester* requester) const
{
    return std::find(m_requesters.begin(), m_requesters.end(), requester) != m_requesters.end();
}

bool Subscriptions::is_subscribed(const QByteArray& line_type, Requester* requester) const
{
    return std::any_of(m_subscriptions.begin(), m_subscriptions.end(), [&](const Subscription& s) {
        return s.requester == requester && s.line_type == line_type;
    });
}

std::vector<Requester*> Subscriptions::subscribers_of(const QByteArray& line_type) const
{
    std::vector<Requester*> found;
    for (const Subscription& subscription : m_subscriptions)
        if (subscription.line_type == line_type)
            found.push_back(subscription.requester);
    return found;
}
