#include "host/demo/demo.h"

#include "host/demo/failure.h"
#include "host/session.h"

#include <QApplication>
#include <QDir>
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
    const QString points =
        QDir::temp().filePath(QStringLiteral("room-adjustment-demo/reference-points.txt"));
    options->simulator_options =
        QStringList({"--headless", "--points", points}) + options->simulator_options;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

Demo::Demo(Session& session, const Options& options)
    : m_options(options), m_person(session.controller().host(), session.controller().port()),
      m_scenario(m_stepper, m_person, session.main_window(), options.screenshot_folder)
{
    connect(&session.controller(), &ControllerLink::exchanged, this, &Demo::notice_exchange);
    connect(&m_stepper, &Stepper::acting, this, &Demo::notice_step);
    connect(&m_stepper, &Stepper::finished, this, [this] { conclude(true, m_scenario.verdict()); });
    connect(&m_stepper, &Stepper::failed, this,
            [this](const QString& text) { conclude(false, text); });
}

Demo::~Demo()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_is_done = true;
    }
    m_done.notify_all();
    if (m_watchdog.joinable())
        m_watchdog.join();
}

void Demo::start()
{
    m_watchdog = std::thread(&Demo::watch, this);
    QTimer::singleShot(m_options.demo_limit * 1000, this, [this] {
        conclude(false, QStringLiteral("not done after %1 s, in step \"%2\"")
                            .arg(m_options.demo_limit)
                            .arg(QString::fromUtf8(m_stepper.current_step())));
    });
    try {
        m_scenario.plan();
    } catch (const DemoFailure& failure) {
        conclude(false, QString::fromStdString(failure.what()));
        return;
    }
    m_clock.start();
    m_stepper.start();
}

void Demo::notice_step(const QString& name)
{
    std::printf("%6.1f s  %s\n", m_clock.elapsed() / 1000.0, qPrintable(name));
    std::fflush(stdout);
}

void Demo::notice_exchange(const Exchange& exchange)
{
    const bool changes = exchange.request.startsWith("set ") || exchange.request.startsWith("do ");
    if (!changes)
        return;
    const QString text = QString::fromLatin1(exchange.request)
                         + (exchange.reply.ok() ? QString() : QStringLiteral("   (failed)"));
    if (m_sent.isEmpty() || m_sent.last().text != text)
        m_sent.append({text, 0});
    ++m_sent.last().times;
}

// Ends queued, so that it also works before the event loop runs.
void Demo::conclude(bool success, const QString& text)
{
    if (std::exchange(m_concluded, true))
        return;
    std::printf("\nSent to the controller:\n");
    for (const Sent& line : qAsConst(m_sent))
        std::printf(line.times > 1 ? "  %s   (%d times)\n" : "  %s\n", qPrintable(line.text),
                    line.times);
    std::printf("\n%s: %s\n", success ? "PASSED" : "FAILED", qPrintable(text));
    std::fflush(stdout);
    QTimer::singleShot(0, qApp, [success] { QApplication::exit(success ? 0 : demo_failed); });
}

void Demo::watch()
{
    const std::chrono::seconds limit(m_options.demo_limit + grace);
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_done.wait_for(lock, limit, [this] { return m_is_done; }))
        return;
    std::fprintf(stderr, "FAILED: the program stands still in step \"%s\"\n",
                 m_stepper.current_step());
    std::_Exit(demo_failed);
}
