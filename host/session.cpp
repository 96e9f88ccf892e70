#include "host/session.h"

#include "host/window/firstvisit.h"
#include "host/window/placement.h"

#include <QFileInfo>
#include <QHostAddress>
#include <QHostInfo>
#include <QScreen>

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

QStringList simulator_arguments(const Options& options)
{
    QStringList arguments = {QStringLiteral("--exit-with-parent")};
    if (options.interactive && options.fresh)
        arguments << QStringLiteral("--fresh");
    return arguments + options.simulator_options;
}

} // namespace

Session::Session(const Options& options)
    : m_options(options), m_receiver(std::make_unique<DataReceiver>(m_subscriptions)),
      m_window(std::make_unique<MainWindow>())
{
    connect(&m_process, &ControllerProcess::lost, this, &Session::notice_end);
    connect(&m_process, &ControllerProcess::listening, this, &Session::follow_simulator);
    connect(&m_watch, &ControllerWatch::found, this, &Session::welcome_controller);
    connect(&m_watch, &ControllerWatch::lost, this, &Session::notice_loss);
    connect(&m_watch, &ControllerWatch::state_read, this, &Session::notice_state);
    connect(m_window.get(), &MainWindow::restart_wanted, this, &Session::restart_simulator);
    connect(&m_window->first_visit(), &FirstVisit::points_wanted, this, &Session::save_points);
    connect(&m_watch, &ControllerWatch::tip_read, &m_window->first_visit(),
            &FirstVisit::notice_tip);
    connect(&m_state_timer, &QTimer::timeout, this, &Session::count_frames);
}

Session::~Session() { shut_down(); }

bool Session::start()
{
    if (!find_controller() || !read_versions() || !start_data() || !start_module())
        return false;
    m_facts.controller = StatusFacts::answering;
    m_state_clock.start();
    m_data_clock.start();
    m_state_timer.start(state_interval);
    m_watch.watch(m_options.controller_host, m_options.controller_port);
    count_frames();
    m_window->set_mode_text(m_options.observer ? tr("Observer: nothing can be changed")
                                               : QString());
    place_windows();
    m_window->show();
    return true;
}

// A module that forgot to take its requester back gets nothing any more once it has been told.
void Session::shut_down()
{
    m_state_timer.stop();
    disconnect(&m_watch, nullptr, this, nullptr);
    disconnect(&m_process, nullptr, this, nullptr);
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
        if (!m_process.launch(m_options.simulator, simulator_arguments(m_options)))
            return fail(m_process.error_text());
        m_options.controller_host = m_process.host();
        m_options.controller_port = m_process.port();
    }
    if (!resolve_address())
        return false;
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

// Looking a name up can take as long as it likes, so that is done once and before there is a
// window.
bool Session::resolve_address()
{
    const QHostInfo info = QHostInfo::fromName(m_options.controller_host);
    if (info.addresses().isEmpty())
        return fail(
            tr("There is no host %1: %2").arg(m_options.controller_host, info.errorString()));
    m_options.controller_host = info.addresses().first().toString();
    return true;
}

bool Session::read_versions()
{
    const Reply reply = m_link->request("sim version");
    if (!reply.ok())
        return fail(tr("The controller at %1 does not tell its version: %2")
                        .arg(m_link->address(), QString::fromUtf8(reply.text)));
    const QList<QByteArray> numbers = reply.text.split(' ');
    std::array<int, 3> read = {};
    bool valid = numbers.size() == static_cast<int>(read.size());
    for (std::size_t i = 0; valid && i < read.size(); ++i)
        read[i] = numbers[static_cast<int>(i)].toInt(&valid);
    if (!valid)
        return fail(tr("\"%1\" is not a version").arg(QString::fromUtf8(reply.text)));
    m_versions.major = read[0];
    m_versions.minor = read[1];
    m_versions.patch = read[2];
    m_facts.backend = version_text(m_versions);
    return true;
}

bool Session::start_data()
{
    if (!m_options.replay_file.isEmpty() && !start_replay())
        return false;
    if (!m_options.record_file.isEmpty() && !start_recording())
        return false;
    if (!m_options.replay_file.isEmpty())
        return true;
    m_data_port = m_receiver->listen();
    if (m_data_port == 0)
        return fail(tr("There is no port to receive data on"));
    if (!request_stream())
        warn(tr("The controller does not send data"));
    return true;
}

// Any program of the machine can send datagrams, so the controller is asked where its own come
// from. One that does not say is known by its address alone.
bool Session::request_stream()
{
    const ControllerState state = parse_state(m_link->request("sim state").text);
    m_receiver->accept_only(QHostAddress(m_options.controller_host),
                            state.value("source").toUShort());
    m_streaming = m_link->request("do data stream " + QByteArray::number(m_data_port)).ok();
    return m_streaming;
}

// What was asked of a controller before it was gone is forgotten by the one that comes after.
void Session::welcome_controller()
{
    if (!std::exchange(m_was_lost, false))
        return;
    m_gave_up = false;
    m_window->add_message(own_category, own_source, 0, tr("The controller answers again"));
    if (!read_versions())
        warn(m_error);
    if (m_data_port != 0 && !request_stream())
        warn(tr("The controller does not send data"));
    show_state();
}

void Session::notice_loss()
{
    m_was_lost = true;
    if (!m_has_ended)
        warn(tr("The controller does not answer"));
    show_state();
}

void Session::notice_state()
{
    const bool tracking = m_watch.state().value("tracking") == "1";
    if (tracking && !m_facts.tracking)
        m_data_clock.start();
    m_facts.tracking = tracking;
    if (m_data_port != 0 && m_watch.state().value("stream") == "0")
        request_stream();
    show_state();
}

void Session::notice_end(const QString& text)
{
    m_has_ended = true;
    warn(text);
    show_state();
}

void Session::restart_simulator()
{
    if (m_process.state() != QProcess::NotRunning)
        return;
    m_has_ended = false;
    m_was_lost = true;
    m_facts.controller = StatusFacts::starting;
    m_process.begin(m_options.simulator, simulator_arguments(m_options));
    show_state();
}

void Session::follow_simulator()
{
    m_options.controller_host = m_process.host();
    m_options.controller_port = m_process.port();
    m_link->set_address(m_options.controller_host, m_options.controller_port);
    m_watch.watch(m_options.controller_host, m_options.controller_port);
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
    const bool gave_up = !exchange.reply.is_answer();
    if (std::exchange(m_gave_up, gave_up) != gave_up && m_state_timer.isActive())
        show_state();
}

void Session::count_frames()
{
    for (const QString& text : m_receiver->take_reports())
        warn(text);
    const DataReceiver::Counters now = m_receiver->counters();
    const quint64 frames = now.frames - m_last_counters.frames;
    const double seconds = m_state_clock.restart() / 1000.0;
    m_facts.rate = seconds > 0.0 ? double(frames) / seconds : 0.0;
    if (frames > 0 || !m_facts.tracking)
        m_data_clock.start();
    m_last_counters = now;
    m_window->first_visit().look();
    m_watch.want_tip(m_window->first_visit().wants_tip());
    show_state();
}

void Session::show_state()
{
    m_facts.address = m_link->address();
    m_facts.controller = controller_state();
    m_facts.seconds_without = m_data_clock.elapsed() / 1000.0;
    m_facts.lines = m_last_counters.lines;
    m_facts.torn = m_last_counters.torn;
    m_facts.refused = m_last_counters.refused;
    m_facts.replayed = QFileInfo(m_options.replay_file).fileName();
    m_facts.recorded = QFileInfo(m_options.record_file).fileName();
    m_window->set_controller_text(StatusTexts::controller(m_facts));
    m_window->set_data_text(StatusTexts::data(m_facts));
    m_window->offer_restart(m_has_ended);
}

StatusFacts::Controller Session::controller_state() const
{
    if (m_has_ended)
        return StatusFacts::ended;
    if (m_was_lost)
        return m_process.state() != QProcess::NotRunning
                       && m_facts.controller == StatusFacts::starting
                   ? StatusFacts::starting
                   : StatusFacts::silent;
    return m_gave_up ? StatusFacts::slow : StatusFacts::answering;
}

void Session::place_windows()
{
    if (!m_options.interactive)
        return;
    const SideBySide places = side_by_side(m_window->screen()->availableGeometry());
    m_window->setGeometry(places.host);
    m_window->remember(m_options.fresh);
    if (m_process.state() != QProcess::NotRunning)
        new DialogPlacer(places.simulator, this);
}

void Session::save_points()
{
    const Reply reply = m_link->request("sim points");
    if (reply.ok())
        m_window->first_visit().set_points_file(QString::fromUtf8(reply.text));
    else
        warn(tr("The points were not saved: %1").arg(QString::fromUtf8(reply.text)));
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
