// One run of the host: controller, data thread, window and module, started and ended in order.
#ifndef HOST_SESSION_H
#define HOST_SESSION_H

#include "contract/backendversions.h"

#include "host/controllerlink.h"
#include "host/controllerprocess.h"
#include "host/datareceiver.h"
#include "host/gateway.h"
#include "host/mainwindow.h"
#include "host/moduleloader.h"
#include "host/options.h"
#include "host/subscriptions.h"

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
    /// errorText() says what.
    bool start();
    QString errorText() const { return error; }

    /// Takes everything down; the destructor does it too.
    void shutDown();

    ControllerLink& controller() { return *link; }
    MainWindow& mainWindow() { return *window; }

private:
    bool findController();
    bool readVersions();
    bool startData();
    bool startReplay();
    bool startRecording();
    bool startModule();
    void noticeExchange(const Exchange& exchange);
    void showState();
    void warn(const QString& text);
    bool fail(const QString& text);

    Options options;
    QString error;
    BackendVersions versions{};
    ControllerProcess process;
    Subscriptions subscriptions;
    std::unique_ptr<DataReceiver> receiver;
    std::unique_ptr<MainWindow> window;
    std::unique_ptr<ControllerLink> link;
    std::unique_ptr<Gateway> gateway;
    ModuleLoader module;
    QTimer state_timer;
    QElapsedTimer state_clock;
    DataReceiver::Counters last_counters{};
    bool controller_answers = false;
    bool streaming = false;
};

#endif
