// A long search for the order of points: the window over it, and all that may end it.
#include "tests/matching/matchingfixture.h"

#include "matching/searchwindow.h"
#include "pairing/pointpairing.h"
#include "pairing/searchobserver.h"

#include <thread>
#include <tuple>

namespace
{

int most_steps;       ///< of a search, a millisecond each
int steps;            ///< of the last search
int searches;         ///< so far
bool is_running;      ///< a search
bool has_overlapped;  ///< one search was started within another
bool had_an_observer; ///< the last search

} // namespace

/// Stands in for the real one, which is seldom slow enough: finds the order as it is after
/// `most_steps`.
void evaluate_pairing(const double (*)[3], int reference_count, const double (*measured)[3],
                      int measured_count, bool, PairingResult* result, SearchObserver* observer)
{
    has_overlapped = has_overlapped || is_running;
    is_running = true;
    ++searches;
    had_an_observer = observer != nullptr;
    *result = PairingResult();
    result->status = reference_count == measured_count ? pairing_ok : pairing_counts_differ;
    result->count = reference_count;
    for (steps = 0; steps < most_steps && result->status == pairing_ok; ++steps) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const SearchProgress progress = {1000 * steps, 12.345};
        if (observer && !observer->go_on(progress))
            result->status = pairing_no_valid_order;
    }
    for (int i = 0; i < reference_count && result->status == pairing_ok; ++i)
        std::copy(measured[i], measured[i] + 3, result->transformed[i]);
    for (int i = 0; i < 4; ++i)
        result->T_reference_measured[i][i] = 1.0;
    is_running = false;
}

class TestSearchWatch : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        start();
        most_steps = 0;
        has_overlapped = is_running = false;
    }
    void cleanup() { stop(); }

    void what_ends_a_search_data()
    {
        QTest::addColumn<QString>("what"); // happens when the window is there
        QTest::addColumn<QString>("report");
        QTest::addColumn<int>("searches_made");
        const char *const none = "No valid permutation", *const found = "Transformation evaluation";
        const char* const differs = "Cannot evaluate";
        const std::tuple<const char*, const char*, int> rows[] = {
            {"nothing", found, 1},   {"cancel", none, 1},           {"escape", none, 1},
            {"close", none, 1},      {"close the dialog", none, 1}, {"quit", none, 1},
            {"measure", differs, 2}, {"replace", found, 2},         {"cancel, measure", differs, 2},
            {"destroy", "", 1},      {"check, destroy", "", 1}};
        for (const auto& [what, report, searches_made] : rows)
            QTest::newRow(what) << what << report << searches_made;
    }

    void what_ends_a_search()
    {
        QFETCH(QString, what);
        QFETCH(QString, report);
        const auto search = [&] {
            add_points(9);
            searches = 0;
            most_steps = 800;
            when_open<SearchWindow>([&](SearchWindow* window) { end(window, what); });
            if (what.startsWith("check"))
                child<QCheckBox>("w_orderCheckBox")->click();
            else
                dialog->checkTrafo();
            QVERIFY(!QApplication::activeModalWidget()
                    || QApplication::activeModalWidget() == dialog.get());
        };
        if (what == "quit") {
            QTimer::singleShot(0, this, [&] { exec(search); });
            QCoreApplication::exec();
        } else {
            exec(search);
        }
        QTEST(searches, "searches_made");
        QVERIFY(!has_overlapped && !is_running);
        QCOMPARE(bool(dialog), !report.isEmpty());
        if (dialog) {
            QVERIFY2(this->report().startsWith(report), qPrintable(this->report()));
            QCOMPARE(dialog->checkApplyTrafo(), report.startsWith("Transformation"));
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const QWidget* left : QApplication::allWidgets())
            QVERIFY2(dialog || !(left->inherits("QDialog") || left->inherits("QCheckBox")),
                     left->metaObject()->className());
    }

    void the_window_comes_late_tells_and_answers()
    {
        QElapsedTimer since_start;
        QTimer tick;
        int longest_pause = 0, last_tick = 0; // in steps of the search, however busy the machine is
        connect(&tick, &QTimer::timeout, [&] {
            longest_pause = qMax(longest_pause, steps - last_tick);
            last_tick = steps;
        });
        when_open<SearchWindow>([&](SearchWindow* window) {
            QVERIFY(since_start.elapsed() >= 500);
            QCOMPARE(window->windowTitle(), dialog->windowTitle());
            QCOMPARE(window->findChild<QLabel*>("label_residual")->text(), QString("12.35 mm"));
            QCOMPARE(window->findChild<QLabel*>("label_fits")->text().toInt(), 1000 * steps);
            last_tick = steps;
            tick.start(1);
        });
        exec([&] {
            add_points(9);
            most_steps = 1000;
            since_start.start();
            dialog->checkTrafo();
            tick.stop();
        });
        QVERIFY(longest_pause > 0 && longest_pause < 50);
    }

    void eight_points_never_show_it()
    {
        exec([&] {
            add_points(8);
            QVERIFY(!had_an_observer && dialog->checkApplyTrafo());
        });
    }

private:
    void add_points(int count)
    {
        for (int i = 0; i < count; ++i)
            add_point(bsVector(i, 0, 0));
    }

    void end(SearchWindow* window, const QString& what)
    {
        if (what == "quit")
            QCoreApplication::quit();
        if (what == "escape")
            QTest::keyClick(window, Qt::Key_Escape);
        if (what == "close")
            window->close();
        if (what.startsWith("cancel"))
            window->findChild<QPushButton*>("pushButton_cancel")->click();
        if (what == "close the dialog")
            dialog->close();
        if (what == "replace") {
            measurements()->setCurrentCell(0, 0);
            child<QCheckBox>("w_replaceCheckBox")->setChecked(true);
        }
        if (what == "replace" || what == "measure")
            std::thread([this] { tool->measure(100, 0, 0); }).join();
        if (what.endsWith(", measure"))
            tool->measure(100, 0, 0);
        if (what.endsWith("destroy")) {
            tool.reset();
            dialog.reset();
        }
    }
};

QTEST_MAIN(TestSearchWatch)
#include "test_searchwatch.moc"
