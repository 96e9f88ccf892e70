#include "host/subscriptions.h"

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
    const Lock lock(mutex);
    if (!requester)
        return -1;
    if (!isKnown(requester))
        requesters.push_back(requester);
    return 0;
}

int Subscriptions::remove(Requester* requester)
{
    const Lock lock(mutex);
    const auto known = std::find(requesters.begin(), requesters.end(), requester);
    if (known == requesters.end())
        return -1;
    requesters.erase(known);
    const auto is_its_own = [requester](const Subscription& s) { return s.requester == requester; };
    subscriptions.erase(std::remove_if(subscriptions.begin(), subscriptions.end(), is_its_own),
                        subscriptions.end());
    return 0;
}

int Subscriptions::subscribe(const QByteArray& line_type, Requester* requester)
{
    const Lock lock(mutex);
    if (line_type.isEmpty() || !isKnown(requester))
        return -1;
    if (!isSubscribed(line_type, requester))
        subscriptions.push_back({line_type, requester});
    return 0;
}

int Subscriptions::unsubscribe(const QByteArray& line_type, Requester* requester)
{
    const Lock lock(mutex);
    const auto found = std::find_if(
        subscriptions.begin(), subscriptions.end(), [&](const Subscription& subscription) {
            return subscription.requester == requester && subscription.line_type == line_type;
        });
    if (found == subscriptions.end())
        return -1;
    subscriptions.erase(found);
    return 0;
}

bool Subscriptions::empty() const
{
    const Lock lock(mutex);
    return subscriptions.empty();
}

void Subscriptions::clear()
{
    const Lock lock(mutex);
    requesters.clear();
    subscriptions.clear();
}

void Subscriptions::deliver(const QByteArray& line)
{
    const Lock lock(mutex);
    const QByteArray line_type = type_of(line);
    for (Requester* requester : subscribersOf(line_type))
        if (isSubscribed(line_type, requester))
            requester->set_ascii_data(line_type.constData(), line.constData());
}

void Subscriptions::notifyMeasurement(bool started)
{
    const Lock lock(mutex);
    const std::vector<Requester*> all = requesters;
    for (Requester* requester : all) {
        if (!isKnown(requester))
            continue;
        if (started)
            requester->set_mea_started();
        else
            requester->set_mea_stopped();
    }
}

bool Subscriptions::isKnown(Requester* requester) const
{
    return std::find(requesters.begin(), requesters.end(), requester) != requesters.end();
}

bool Subscriptions::isSubscribed(const QByteArray& line_type, Requester* requester) const
{
    return std::any_of(subscriptions.begin(), subscriptions.end(), [&](const Subscription& s) {
        return s.requester == requester && s.line_type == line_type;
    });
}

std::vector<Requester*> Subscriptions::subscribersOf(const QByteArray& line_type) const
{
    std::vector<Requester*> found;
    for (const Subscription& subscription : subscriptions)
        if (subscription.line_type == line_type)
            found.push_back(subscription.requester);
    return found;
}
