// What the host's status bar says of controller and data.
#ifndef HOST_STATUSTEXTS_H
#define HOST_STATUSTEXTS_H

#include <QCoreApplication>
#include <QString>

/// What is known, as plain values.
struct StatusFacts
{
    enum Controller
    {
        starting,
        answering,
        slow, ///< answers, but requests were given up
        silent,
        ended ///< the simulator that the host has started is no more
    };

    Controller controller = starting;
    QString address;
    QString backend;
    bool tracking = false;
    double rate = 0.0;            ///< frames per second
    double seconds_without = 0.0; ///< since the last data, while tracking runs
    quint64 lines = 0;
    quint64 torn = 0;
    quint64 refused = 0;
    QString replayed; ///< name of the recording; empty: live data
    QString recorded; ///< name of the file; empty: none
};

struct StatusText
{
    QString text;
    bool is_fault;
};

class StatusTexts
{
    Q_DECLARE_TR_FUNCTIONS(StatusTexts)

public:
    /// From here on data that should come is missed, s.
    static constexpr double longest_silence = 2.0;

    static StatusText controller(const StatusFacts& facts);
    static StatusText data(const StatusFacts& facts);

private:
    static QString flow(const StatusFacts& facts);
};

#endif
