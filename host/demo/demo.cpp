#include "host/demo/demo.h"

#include "host/demo/failure.h"
#include "host/session.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace
{

constexpr int demo_failed = 1;
constexpr int grace = 10; // s between the orderly end at the time limit and the hard one

} // namespace

void Demo::prepare(Options* options)
{
    options->simulator_options.prepend(QStringLiteral("--headless"));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

Demo::Demo(Session& session, const Options& options)
    : options(options), person(session.controller().host(), session.controller().port()),
      scenario(stepper, person, session.mainWindow(), options.screenshot_folder)
{
    connect(&session.controller(), &ControllerLink::exchanged, this, &Demo::noticeExchange);
    connect(&stepper, &Stepper::acting, this, &Demo::noticeStep);
    connect(&stepper, &Stepper::finished, this, [this] { conclude(true, scenario.verdict()); });
    connect(&stepper, &Stepper::failed, this,
            [this](const QString& text) { conclude(false, text); });
}

Demo::~Demo()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        is_done = true;
    }
    done.notify_all();
    if (watchdog.joinable())
        watchdog.join();
}

void Demo::start()
{
    watchdog = std::thread(&Demo::watch, this);
    QTimer::singleShot(options.demo_limit * 1000, this, [this] {
        conclude(false, QStringLiteral("not done after %1 s, in step \"%2\"")
                            .arg(options.demo_limit)
                            .arg(QString::fromUtf8(stepper.currentStep())));
    });
    try {
        scenario.plan();
    } catch (const DemoFailure& failure) {
        conclude(false, QString::fromStdString(failure.what()));
        return;
    }
    clock.start();
    stepper.start();
}

void Demo::noticeStep(const QString& name)
{
    std::printf("%6.1f s  %s\n", clock.elapsed() / 1000.0, qPrintable(name));
    std::fflush(stdout);
}

void Demo::noticeExchange(const Exchange& exchange)
{
    const bool changes = exchange.request.startsWith("set ") || exchange.request.startsWith("do ");
    if (!changes)
        return;
    const QString text = QString::fromLatin1(exchange.request)
                         + (exchange.reply.ok() ? QString() : QStringLiteral("   (failed)"));
    if (sent.isEmpty() || sent.last().text != text)
        sent.append({text, 0});
    ++sent.last().times;
}

// Ends queued, so that it also works before the event loop runs.
void Demo::conclude(bool success, const QString& text)
{
    if (std::exchange(concluded, true))
        return;
    std::printf("\nSent to the controller:\n");
    for (const Sent& line : qAsConst(sent))
        std::printf(line.times > 1 ? "  %s   (%d times)\n" : "  %s\n", qPrintable(line.text),
                    line.times);
    std::printf("\n%s: %s\n", success ? "PASSED" : "FAILED", qPrintable(text));
    std::fflush(stdout);
    QTimer::singleShot(0, qApp, [success] { QApplication::exit(success ? 0 : demo_failed); });
}

void Demo::watch()
{
    const std::chrono::seconds limit(options.demo_limit + grace);
    std::unique_lock<std::mutex> lock(mutex);
    if (done.wait_for(lock, limit, [this] { return is_done; }))
        return;
    std::fprintf(stderr, "FAILED: the program stands still in step \"%s\"\n",
                 stepper.currentStep());
    std::_Exit(demo_failed);
}
