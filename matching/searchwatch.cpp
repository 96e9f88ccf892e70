#include "matching/searchwatch.h"

#include "matching/searchwindow.h"

#include <QEventLoop>
#include <QTimer>

namespace
{

const int patience_ms = 500; // a shorter search shows no window
const int pause_ms = 10; // after events, if the search asks that often; hard lists ask every 20 ms

} // namespace

SearchWatch::SearchWatch(QWidget* dialog)
    : m_dialog(dialog), m_was_open(false), m_outdated(false), m_quits(false)
{
}

SearchWatch::~SearchWatch() { delete m_window; }

void SearchWatch::begin()
{
    m_outdated = false;
    m_was_open = m_dialog->isVisible();
    m_since_begin.start();
    if (m_window && !m_window->isVisible())
        delete m_window; // cancelled in the same moment in which the points changed
}

bool SearchWatch::go_on(const SearchProgress& progress)
{
    if (is_waiting())
        return true;
    show_window(progress);
    process_events();
    m_since_events.start();
    return !is_ended();
}

bool SearchWatch::is_waiting() const
{
    return m_window ? !m_since_events.hasExpired(pause_ms) : !m_since_begin.hasExpired(patience_ms);
}

void SearchWatch::show_window(const SearchProgress& progress)
{
    const bool is_new = !m_window;
    if (is_new)
        m_window = new SearchWindow(m_dialog);
    m_window->show_progress(progress);
    if (is_new)
        m_window->show();
}

/// Handles what has come in, and looks whether the program quits: a loop does not start then.
void SearchWatch::process_events()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, SLOT(quit()));
    m_quits = loop.exec() < 0;
}

bool SearchWatch::is_ended() const
{
    return m_quits || m_outdated || !m_dialog || !m_window || !m_window->isVisible()
           || (m_was_open && !m_dialog->isVisible());
}
