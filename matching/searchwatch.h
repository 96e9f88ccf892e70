// Keeps the program answering while an evaluation searches for the order of points.
#ifndef MATCHING_SEARCHWATCH_H
#define MATCHING_SEARCHWATCH_H

#include "pairing/searchobserver.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

class SearchWindow;

/// Lives as long as one evaluation, which may search more than once. The search calls it at steps;
/// after half a second it opens a window with the progress, and from then on events are processed:
/// whatever may happen between two events may happen within a search then, also the end of the
/// dialog. GUI thread only.
class SearchWatch : public SearchObserver
{
public:
    /// `dialog` is the parent of the window.
    explicit SearchWatch(QWidget* dialog);
    /// Takes the window away.
    ~SearchWatch();

    /// Call before each search.
    void begin();
    /// Ends the search that runs, because its points are no longer those of the dialog.
    void set_outdated() { m_outdated = true; }
    bool is_outdated() const { return m_outdated; }

    /// False once the search is outdated or cancelled, the dialog closed or destroyed, or the
    /// program about to quit.
    bool go_on(const SearchProgress& progress);

private:
    SearchWatch(const SearchWatch&);
    SearchWatch& operator=(const SearchWatch&);

    bool is_waiting() const;
    bool is_ended() const;
    void show_window(const SearchProgress& progress);
    void process_events();

    QPointer<QWidget> m_dialog;
    QPointer<SearchWindow> m_window; ///< null until the search has taken long
    QElapsedTimer m_since_begin;
    QElapsedTimer m_since_events;
    bool m_was_open; ///< the dialog, when the search began
    bool m_outdated;
    bool m_quits; ///< the program
};

#endif
