// One run of the host: controller, data thread, window and module, started and ended in order.
#ifndef HOST_SESSION_H
#define HOST_SESSION_H

#include "contract/backendversions.h"

#include "host/connection/controllerlink.h"
#include "host/connection/controllerprocess.h"
#include "host/connection/controllerwatch.h"
#include "host/connection/datareceiver.h"
#include "host/connection/gateway.h"
#include "host/connection/subscriptions.h"
#include "host/moduleloader.h"
#include "host/options.h"
#include "host/window/mainwindow.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>

class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(const Options& options);
    ~Session() override;

    /// Brings everything up and shows the window. False if something essential is missing;
    /// error_text() says what.
    bool start();
    QString error_text() const { return m_error; }

    /// Takes everything down; the destructor does it too.
    void shut_down();

    ControllerLink& controller() { return *m_link; }
    MainWindow& main_window() { return *m_window; }

private:
    bool find_controller();
    bool read_versions();
    bool resolve_address();
    bool start_data();
    bool start_replay();
    bool start_recording();
    bool start_module();
    bool request_stream();
    void welcome_controller();
    void notice_loss();
    void notice_state();
    void notice_end(const QString& text);
    void restart_simulator();
    void follow_simulator();
    void notice_exchange(const Exchange& exchange);
    void place_windows();
    void save_points();
    void count_frames();
    void show_state();
    StatusFacts::Controller controller_state() const;
    void warn(const QString& text);
    bool fail(const QString& text);

    Options m_options;
    QString m_error;
    BackendVersions m_versions{};
    ControllerProcess m_process;
    ControllerWatch m_watch;
    Subscriptions m_subscriptions;
    std::unique_ptr<DataReceiver> m_receiver;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ControllerLink> m_link;
    std::unique_ptr<Gateway> m_gateway;
    ModuleLoader m_module;
    QTimer m_state_timer;
    QElapsedTimer m_state_clock;
    QElapsedTimer m_data_clock; ///< since the last data, or since tracking began
    DataReceiver::Counters m_last_counters{};
    StatusFacts m_facts;
    quint16 m_data_port = 0; ///< 0: replay, or nothing to receive on
    bool m_gave_up = false;  ///< the last request of the modules had no answer
    bool m_was_lost = false;
    bool m_has_ended = false; ///< the own simulator
    bool m_streaming = false;
};

#endif
