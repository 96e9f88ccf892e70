// Who gets which data lines; shared by the GUI thread and the thread that delivers.
#ifndef HOST_SUBSCRIPTIONS_H
#define HOST_SUBSCRIPTIONS_H

#include <QByteArray>

#include <mutex>
#include <vector>

class Requester;

/// Thread-safe. Requesters are not owned. Once `remove` or `unsubscribe` has returned, the
/// requester gets no further line: a delivery that is under way is waited for. A requester may
/// therefore change its subscriptions from within set_ascii_data, but must not wait there for the
/// GUI thread. Operations with an int result give 0 on success and -1 otherwise, as the host's
/// gateway hands it on.
class Subscriptions
{
public:
    /// Fails for a null pointer; adding twice is harmless.
    int add(Requester* requester);
    /// Drops its subscriptions too. Fails if it is not known.
    int remove(Requester* requester);

    /// Fails if the requester is not known or the type is empty; subscribing twice is harmless.
    int subscribe(const QByteArray& line_type, Requester* requester);
    /// Fails if there is no such subscription.
    int unsubscribe(const QByteArray& line_type, Requester* requester);

    bool empty() const;
    void clear();

    /// Hands `line` (no line feed) to all who have subscribed its first word.
    void deliver(const QByteArray& line);

    /// Tells all requesters that a measurement has started or stopped. GUI thread only.
    void notify_measurement(bool started);

private:
    struct Subscription
    {
        QByteArray line_type;
        Requester* requester;
    };

    bool is_known(Requester* requester) const;
    bool is_subscribed(const QByteArray& line_type, Requester* requester) const;
    std::vector<Requester*> subscribers_of(const QByteArray& line_type) const;

    // Recursive because a requester may come back while it is being served.
    mutable std::recursive_mutex m_mutex;
    std::vector<Requester*> m_requesters;
    std::vector<Subscription> m_subscriptions;
};

#endif
