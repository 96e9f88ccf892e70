// A room adjustment dialog with a controller behind it, and what is said on every way.
#ifndef TESTS_MODULE_DIALOGFIXTURE_H
#define TESTS_MODULE_DIALOGFIXTURE_H

#include "module/roomadjustmentdlg.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>
#include <QtWidgets>

typedef std::vector<std::string> Log;

const Log subscriptions = {"subscribe ts", "subscribe 6dmt2", "subscribe 6dmt", "subscribe 6df2",
                           "subscribe 6df"};
const Log unsubscriptions = {"unsubscribe ts", "unsubscribe 6dmt2", "unsubscribe 6dmt",
                             "unsubscribe 6df2", "unsubscribe 6df"};
const Log camera_table = {"get camera number_of_cameras", "get tracking room c01",
                          "get tracking room c02"};
const Log record = {"get tracking extra_rotation", "get tracking extra_translation",
                    "get tracking extra_scaling"};
const std::string identity_text = "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                                  "0.00000000 0.00000000 0.00000000 1.00000000";
// -0 is what the negation of a zero offset writes; it reads back as zero.
const Log default_settings = {"set tracking extra_rotation " + identity_text,
                              "set tracking extra_translation -0.000 -0.000 -0.000",
                              "set tracking extra_scaling 1.00000"};

/// How often a window was brought to the front.
inline Log join(std::initializer_list<Log> parts)
{
    Log all;
    for (const Log& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// What is said at an opening, by backend version.
inline Log opening(const BackendVersions& v)
{
    const bool v0_9 = v.major > 0 || v.minor >= 9;
    const bool v0_16 = v.major > 0 || v.minor >= 16;
    const bool v0_17 = v.major > 0 || v.minor >= 17;
    const bool v1_9 = v.major > 1 || (v.major == 1 && v.minor >= 9);
    const bool v1_18 = v.major > 1 || (v.major == 1 && v.minor >= 18);
    Log log;
    if (v0_17)
        log.push_back("get tracking available");
    log.push_back("get camera number_of_cameras");
    for (const char* camera : {"c01", "c02"})
        log.push_back(std::string("get tracking ") + (v1_18 ? "has_room " : "room ") + camera);
    if (v0_9)
        log = join({log, camera_table});
    if (v1_9)
        log.push_back("get config is_changeable");
    if (v0_16) {
        log = join({log, record, {"get licence measurementtool", "get tracking extra_scaling"}});
        log.push_back(v1_9 ? "get roomcal last_coordinate_type" : "get roomcal coordinate_type");
    }
    log.push_back("do zetrak2 tracking start");
    return join({log, subscriptions});
}

/// Base of the tests of the dialog; call `start` before and `stop` after each test.
struct DialogFixture
{
    std::unique_ptr<FakeController> controller;
    BackendVersions versions;
    std::unique_ptr<RoomAdjustmentDlg2g> dialog;

    void start()
    {
        controller.reset(new FakeController);
        versions = backend(1, 20);
        dialog.reset(
            new RoomAdjustmentDlg2g(controller.get(), nullptr, &versions, QString("v2.0.5")));
    }

    void stop()
    {
        close_all_dialogs();
        dialog.reset();
    }

    template <typename T>
    T* child(const char* name)
    {
        T* found = dialog->findChild<T*>(name);
        if (!found)
            qFatal("no widget %s", name);
        return found;
    }

    /// Opens the dialog, runs `step` in its event loop, returns what was said.
    Log exec(std::function<void()> step)
    {
        const std::size_t start = controller->log.size();
        when_open<RoomAdjustmentDlg2g>([this, step](RoomAdjustmentDlg2g*) {
            step();
            if (QTest::currentTestFailed())
                close_all_dialogs();
        });
        dialog->update_and_exec();
        return controller->log_since(start);
    }

    static void compare(const Log& log, const Log& expected)
    {
        for (std::size_t i = 0; i < std::max(log.size(), expected.size()); ++i) {
            const std::string actual = i < log.size() ? log[i] : "(nothing more)";
            const std::string wanted = i < expected.size() ? expected[i] : "(nothing more)";
            QCOMPARE(QString::fromStdString(actual), QString::fromStdString(wanted));
        }
    }
};

#endif
