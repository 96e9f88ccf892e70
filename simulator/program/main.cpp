// Runs the simulator: requests over TCP, data over UDP, and a window unless told otherwise.
#include "simulator/model/simulator.h"
#include "simulator/program/commandline.h"
#include "simulator/program/frameclock.h"
#include "simulator/program/lineserver.h"
#include "simulator/program/pointsfile.h"
#include "simulator/program/requestlabels.h"
#include "simulator/window/simulatorwindow.h"

#include <QApplication>
#include <QScreen>
#include <QSocketNotifier>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <unistd.h>

using namespace simulator;

namespace
{

const QSize window_size(1080, 720);
constexpr int usage_status = 2;
/// Tells a stop that was asked for as a fault from a window that was closed.
constexpr int stopped_status = 3;

/// Qt ends the program with an abort if it finds no display.
bool has_display()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
           || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

QStringList arguments_of(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

Answer answer_or_stop(Simulator& simulator, const QByteArray& request)
{
    const Answer answer = simulator.answer(request);
    if (simulator.is_stopped())
        std::_Exit(stopped_status);
    return answer;
}

void quit_when_input_closes(QObject* owner)
{
    auto* notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, owner, [notifier] {
        char ignored[256];
        if (read(STDIN_FILENO, ignored, sizeof ignored) > 0)
            return;
        notifier->setEnabled(false);
        QCoreApplication::quit();
    });
}

/// Exit status of a call that is over before it has begun, or -1.
int early_end(const CommandLine& line)
{
    if (line.help) {
        std::fputs(qPrintable(help_text()), stdout);
        return EXIT_SUCCESS;
    }
    if (line.version) {
        std::printf("tracking-simulator %s\n", SIMULATOR_VERSION);
        return EXIT_SUCCESS;
    }
    if (line.problem.isEmpty())
        return -1;
    std::fprintf(stderr, "tracking-simulator: %s\n", qPrintable(line.problem));
    return usage_status;
}

std::unique_ptr<SimulatorWindow> make_window(Simulator& simulator, int port)
{
    auto window = std::make_unique<SimulatorWindow>(simulator);
    window->setWindowTitle(QString("Tracking simulator - 127.0.0.1:%1").arg(port));
    window->resize(window_size.boundedTo(window->screen()->availableSize()));
    window->show();
    return window;
}

bool needs_display(const CommandLine& line)
{
    return !line.headless && !line.help && !line.version && line.problem.isEmpty();
}

int run(QCoreApplication& application, const CommandLine& line)
{
    Simulator simulator(line.setup);
    simulator.write_file = write_points_file;
    simulator.points_file = line.points_file.isEmpty() ? default_points_file() : line.points_file;
    RequestLabels labels(
        [&](const QByteArray& request) { return answer_or_stop(simulator, request); });
    LineServer server([&](const QByteArray& line) { return labels.answer(line); });
    if (!server.listen(line.port)) {
        std::fprintf(stderr, "tracking-simulator: cannot listen on port %d: %s\n", line.port,
                     qPrintable(server.error_text()));
        return EXIT_FAILURE;
    }
    FrameClock clock(simulator);
    const auto window = line.headless ? nullptr : make_window(simulator, server.port());
    if (line.exit_with_parent)
        quit_when_input_closes(&application);
    std::printf("listening 127.0.0.1:%d\n", server.port());
    std::fflush(stdout);
    return application.exec();
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine line = parse_command_line(arguments_of(argc, argv));
    if (needs_display(line) && !has_display())
        line.problem = "there is no display; --headless needs none";
    std::unique_ptr<QCoreApplication> application;
    if (needs_display(line))
        application = std::make_unique<QApplication>(argc, argv);
    else
        application = std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication::setApplicationName("tracking-simulator");
    const int status = early_end(line);
    return status >= 0 ? status : run(*application, line);
}
