// The unattended demonstration: a whole room adjustment through the module's own widgets.
#ifndef HOST_DEMO_DEMO_H
#define HOST_DEMO_DEMO_H

#include "host/demo/scenario.h"
#include "host/demo/simulatedperson.h"
#include "host/demo/stepper.h"
#include "host/options.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

class Session;
struct Exchange;

/// Prints what it does, what was sent, the report and the deviation. Ends the application with code
/// 0 if the controller ends up with the right transformation and with 1 otherwise. If the program
/// itself stands still beyond the time limit, it says so and ends the process.
class Demo : public QObject
{
    Q_OBJECT

public:
    /// Changes options that a demonstration needs otherwise. Before the session starts.
    static void prepare(Options* options);

    Demo(Session& session, const Options& options);
    ~Demo() override;

    void start();

private:
    struct Sent
    {
        QString text;
        int times; ///< in a row
    };

    void notice_step(const QString& name);
    void notice_exchange(const Exchange& exchange);
    void conclude(bool success, const QString& text);
    void watch();

    Options m_options;
    SimulatedPerson m_person;
    Stepper m_stepper;
    Scenario m_scenario;
    QList<Sent> m_sent;
    QElapsedTimer m_clock;
    bool m_concluded = false;
    std::mutex m_mutex;
    std::condition_variable m_done;
    bool m_is_done = false;
    std::thread m_watchdog;
};

#endif
