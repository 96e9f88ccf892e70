#include "host/session.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <array>
#include <utility>

namespace
{

constexpr int state_interval = 500; // ms
const char own_category[] = "standard";
const char own_source[] = "Host";
constexpr int fault = 1;

QString version_text(const BackendVersions& versions)
{
    return QStringLiteral("%1.%2.%3").arg(versions.major).arg(versions.minor).arg(versions.patch);
}

} // namespace

Session::Session(const Options& options)
    : options(options), receiver(std::make_unique<DataReceiver>(subscriptions)),
      window(std::make_unique<MainWindow>())
{
    connect(&process, &ControllerProcess::lost, this, &Session::warn);
    connect(&state_timer, &QTimer::timeout, this, &Session::showState);
}

Session::~Session() { shutDown(); }

bool Session::start()
{
    if (!findController() || !readVersions() || !startData() || !startModule())
        return false;
    state_clock.start();
    state_timer.start(state_interval);
    showState();
    window->setModeText(options.observer ? tr("Observer: nothing can be changed") : QString());
    window->show();
    return true;
}

// A module that forgot to take its requester back gets nothing any more once it has been told.
void Session::shutDown()
{
    state_timer.stop();
    window->removeElements();
    module.aboutToExit();
    if (std::exchange(streaming, false))
        link->request("do data stream 0");
    receiver->stop();
    subscriptions.clear();
    module.exitAndUnload();
    process.end();
}

bool Session::findController()
{
    if (options.controller_host.isEmpty()) {
        const QStringList arguments = QStringList("--exit-with-parent") + options.simulator_options;
        if (!process.launch(options.simulator, arguments))
            return fail(process.errorText());
        options.controller_host = process.host();
        options.controller_port = process.port();
    }
    link = std::make_unique<ControllerLink>(options.controller_host, options.controller_port);
    connect(link.get(), &ControllerLink::exchanged, window.get(), &MainWindow::addExchange);
    connect(link.get(), &ControllerLink::exchanged, this, &Session::noticeExchange);
    gateway = std::make_unique<Gateway>(
        *link, subscriptions,
        [this](const QString& category, const QString& source, int level, const QString& text) {
            window->addMessage(category, source, level, text);
        });
    return true;
}

bool Session::readVersions()
{
    const Reply reply = link->request("sim version");
    if (!reply.ok())
        return fail(tr("The controller at %1 does not tell its version: %2")
                        .arg(link->address(), QString::fromUtf8(reply.text)));
    const QList<QByteArray> numbers = reply.text.split(' ');
    const std::array<int*, 3> fields = {&versions.major, &versions.minor, &versions.patch};
    bool valid = numbers.size() == static_cast<int>(fields.size());
    for (std::size_t i = 0; valid && i < fields.size(); ++i)
        *fields[i] = numbers[static_cast<int>(i)].toInt(&valid);
    return valid || fail(tr("\"%1\" is not a version").arg(QString::fromUtf8(reply.text)));
}

bool Session::startData()
{
    if (!options.record_file.isEmpty() && !startRecording())
        return false;
    if (!options.replay_file.isEmpty())
        return startReplay();
    const quint16 port = receiver->listen();
    if (port == 0)
        return fail(tr("There is no port to receive data on"));
    streaming = link->request("do data stream " + QByteArray::number(port)).ok();
    if (!streaming)
        warn(tr("The controller does not send data"));
    return true;
}

bool Session::startReplay()
{
    auto reader = std::make_unique<RecordingReader>(options.replay_file);
    if (!reader->open())
        return fail(reader->errorText());
    receiver->replay(std::move(reader));
    return true;
}

bool Session::startRecording()
{
    auto recorder = std::make_unique<Recorder>(options.record_file);
    if (!recorder->open())
        return fail(recorder->errorText());
    receiver->record(std::move(recorder));
    return true;
}

bool Session::startModule()
{
    if (!module.load(options.plugin))
        return fail(module.errorText());
    module.configure({gateway.get(), window.get(), &versions, options.observer});
    for (const _GuiElement* element : module.elements())
        window->addElement(*element);
    window->addMessage(own_category, own_source, 0, tr("Module loaded: %1").arg(module.title()));
    return true;
}

void Session::noticeExchange(const Exchange& exchange)
{
    const bool answers = exchange.reply.outcome != Reply::no_answer;
    if (answers == controller_answers)
        return;
    controller_answers = answers;
    if (!answers)
        warn(tr("The controller does not answer: %1").arg(QString::fromUtf8(exchange.reply.text)));
    window->setControllerText(answers
                                  ? tr("Controller %1").arg(link->address())
                                  : tr("<font color='#a00000'>Controller %1 does not answer</font>")
                                        .arg(link->address()));
}

void Session::showState()
{
    for (const QString& text : receiver->takeReports())
        warn(text);
    const DataReceiver::Counters now = receiver->counters();
    const double seconds = state_clock.restart() / 1000.0;
    const double rate = seconds > 0.0 ? double(now.frames - last_counters.frames) / seconds : 0.0;
    last_counters = now;
    QString text = options.replay_file.isEmpty()
                       ? tr("Data %1 frames/s").arg(rate, 0, 'f', 0)
                       : tr("Replay of %1, %2 lines")
                             .arg(QFileInfo(options.replay_file).fileName())
                             .arg(now.lines);
    if (now.torn > 0)
        text += tr(", %1 torn").arg(now.torn);
    if (!options.record_file.isEmpty())
        text += tr(", recording to %1").arg(QFileInfo(options.record_file).fileName());
    window->setDataText(tr("Backend %1 | %2").arg(version_text(versions), text));
}

void Session::warn(const QString& text)
{
    window->addMessage(own_category, own_source, fault, text);
}

bool Session::fail(const QString& text)
{
    error = text;
    return false;
}
