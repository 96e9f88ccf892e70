// Faults on request, to try how a client copes with them.
#ifndef SIMULATOR_MODEL_FAULTS_H
#define SIMULATOR_MODEL_FAULTS_H

#include <QByteArray>
#include <vector>

namespace simulator
{

/// Everything is bounded: what goes beyond a limit is refused and changes nothing.
class Faults
{
public:
    static constexpr int max_prefixes = 32;
    static constexpr int max_delay = 60000;      ///< ms
    static constexpr int max_waiting_lines = 64; ///< lines that wait for the next frame
    static constexpr int max_line_length = 60000;

    /// Requests that begin with `prefix` fail from now on. False beyond the limit.
    bool fail(const QByteArray& prefix);
    /// Every `n`-th request of the vocabulary fails, counted from now; 0 ends it.
    void fail_every(int n);
    void end_failing();
    /// Whether this request is to fail. Counts it if it belongs to the vocabulary.
    bool shall_fail(const QByteArray& request, bool in_vocabulary);

    void set_delay(int ms) { m_delay_ms = ms; }
    int delay() const { return m_delay_ms; }

    /// Has `text` sent as a line of its own, with "\n", "\0" and "\\" read as line feed, zero and
    /// backslash. False beyond a limit.
    bool send_line(const QByteArray& text);
    /// The lines that wait, each ending in a line feed; none wait afterwards.
    std::vector<QByteArray> take_lines();

    void tear_next() { m_tear = true; }
    /// `datagram` as it is to be sent: cut inside its longest line if a tear was asked for.
    QByteArray torn(const QByteArray& datagram);

private:
    std::vector<QByteArray> m_prefixes;
    std::vector<QByteArray> m_lines;
    int m_every = 0;
    int m_counted = 0;
    int m_delay_ms = 0;
    bool m_tear = false;
};

} // namespace simulator

#endif
