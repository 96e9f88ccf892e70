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

    void noticeStep(const QString& name);
    void noticeExchange(const Exchange& exchange);
    void conclude(bool success, const QString& text);
    void watch();

    Options options;
    SimulatedPerson person;
    Stepper stepper;
    Scenario scenario;
    QList<Sent> sent;
    QElapsedTimer clock;
    bool concluded = false;
    std::mutex mutex;
    std::condition_variable done;
    bool is_done = false;
    std::thread watchdog;
};

#endif
