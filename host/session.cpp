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
    : m_options(options), m_receiver(std::make_unique<DataReceiver>(m_subscriptions)),
      m_window(std::make_unique<MainWindow>())
{
    connect(&m_process, &ControllerProcess::lost, this, &Session::warn);
    connect(&m_state_timer, &QTimer::timeout, this, &Session::show_state);
}

Session::~Session() { shut_down(); }

bool Session::start()
{
    if (!find_controller() || !read_versions() || !start_data() || !start_module())
        return false;
    m_state_clock.start();
    m_state_timer.start(state_interval);
    show_state();
    m_window->set_mode_text(m_options.observer ? tr("Observer: nothing can be changed")
                                               : QString());
    m_window->show();
    return true;
}

// A module that forgot to take its requester back gets nothing any more once it has been told.
void Session::shut_down()
{
    m_state_timer.stop();
    m_window->remove_elements();
    m_module.about_to_exit();
    if (std::exchange(m_streaming, false))
        m_link->request("do data stream 0");
    m_receiver->stop();
    m_subscriptions.clear();
    m_module.exit_and_unload();
    m_process.end();
}

bool Session::find_controller()
{
    if (m_options.controller_host.isEmpty()) {
        const QStringList arguments =
            QStringList("--exit-with-parent") + m_options.simulator_options;
        if (!m_process.launch(m_options.simulator, arguments))
            return fail(m_process.error_text());
        m_options.controller_host = m_process.host();
        m_options.controller_port = m_process.port();
    }
    m_link = std::make_unique<ControllerLink>(m_options.controller_host, m_options.controller_port);
    connect(m_link.get(), &ControllerLink::exchanged, m_window.get(), &MainWindow::add_exchange);
    connect(m_link.get(), &ControllerLink::exchanged, this, &Session::notice_exchange);
    m_gateway = std::make_unique<Gateway>(
        *m_link, m_subscriptions,
        [this](const QString& category, const QString& source, int level, const QString& text) {
            m_window->add_message(category, source, level, text);
        });
    return true;
}

bool Session::read_versions()
{
    const Reply reply = m_link->request("sim version");
    if (!reply.ok())
        return fail(tr("The controller at %1 does not tell its version: %2")
                        .arg(m_link->address(), QString::fromUtf8(reply.text)));
    const QList<QByteArray> numbers = reply.text.split(' ');
    const std::array<int*, 3> fields = {&m_versions.major, &m_versions.minor, &m_versions.patch};
    bool valid = numbers.size() == static_cast<int>(fields.size());
    for (std::size_t i = 0; valid && i < fields.size(); ++i)
        *fields[i] = numbers[static_cast<int>(i)].toInt(&valid);
    return valid || fail(tr("\"%1\" is not a version").arg(QString::fromUtf8(reply.text)));
}

bool Session::start_data()
{
    if (!m_options.record_file.isEmpty() && !start_recording())
        return false;
    if (!m_options.replay_file.isEmpty())
        return start_replay();
    const quint16 port = m_receiver->listen();
    if (port == 0)
        return fail(tr("There is no port to receive data on"));
    m_streaming = m_link->request("do data stream " + QByteArray::number(port)).ok();
    if (!m_streaming)
        warn(tr("The controller does not send data"));
    return true;
}

bool Session::start_replay()
{
    auto reader = std::make_unique<RecordingReader>(m_options.replay_file);
    if (!reader->open())
        return fail(reader->error_text());
    m_receiver->replay(std::move(reader));
    return true;
}

bool Session::start_recording()
{
    auto recorder = std::make_unique<Recorder>(m_options.record_file);
    if (!recorder->open())
        return fail(recorder->error_text());
    m_receiver->record(std::move(recorder));
    return true;
}

bool Session::start_module()
{
    if (!m_module.load(m_options.plugin))
        return fail(m_module.error_text());
    m_module.configure({m_gateway.get(), m_window.get(), &m_versions, m_options.observer});
    for (const _GuiElement* element : m_module.elements())
        m_window->add_element(*element);
    m_window->add_message(own_category, own_source, 0,
                          tr("Module loaded: %1").arg(m_module.title()));
    return true;
}

void Session::notice_exchange(const Exchange& exchange)
{
    const bool answers = exchange.reply.outcome != Reply::no_answer;
    if (answers == m_controller_answers)
        return;
    m_controller_answers = answers;
    if (!answers)
        warn(tr("The controller does not answer: %1").arg(QString::fromUtf8(exchange.reply.text)));
    m_window->set_controller_text(
        answers ? tr("Controller %1").arg(m_link->address())
                : tr("<font color='#a00000'>Controller %1 does not answer</font>")
                      .arg(m_link->address()));
}

void Session::show_state()
{
    for (const QString& text : m_receiver->take_reports())
        warn(text);
    const DataReceiver::Counters now = m_receiver->counters();
    const double seconds = m_state_clock.restart() / 1000.0;
    const double rate = seconds > 0.0 ? double(now.frames - m_last_counters.frames) / seconds : 0.0;
    m_last_counters = now;
    QString text = m_options.replay_file.isEmpty()
                       ? tr("Data %1 frames/s").arg(rate, 0, 'f', 0)
                       : tr("Replay of %1, %2 lines")
                             .arg(QFileInfo(m_options.replay_file).fileName())
                             .arg(now.lines);
    if (now.torn > 0)
        text += tr(", %1 torn").arg(now.torn);
    if (!m_options.record_file.isEmpty())
        text += tr(", recording to %1").arg(QFileInfo(m_options.record_file).fileName());
    m_window->set_data_text(tr("Backend %1 | %2").arg(version_text(m_versions), text));
}

void Session::warn(const QString& text)
{
    m_window->add_message(own_category, own_source, fault, text);
}

bool Session::fail(const QString& text)
{
    m_error = text;
    return false;
}
