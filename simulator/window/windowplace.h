// Where the window stands on the screen, from one start to the next.
#ifndef SIMULATOR_WINDOW_WINDOWPLACE_H
#define SIMULATOR_WINDOW_WINDOWPLACE_H

#include <QByteArray>
#include <QObject>
#include <QTimer>

class QWidget;

namespace simulator
{

/// Puts the window, not yet shown, where it was, or into the right half of the screen at the first
/// start; always within the screen. From then on keeps place and size in the user's settings, a
/// moment after each change, so that they survive the end of the program however it comes.
class WindowPlace : public QObject
{
    Q_OBJECT

public:
    /// `window` must outlive this. `fresh` ignores what was kept.
    WindowPlace(QWidget& window, bool fresh);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool restore();
    void place_first();
    void keep() const;

    QWidget& m_window;
    QTimer m_timer;
};

} // namespace simulator

#endif
