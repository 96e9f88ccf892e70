// Where windows stand: the host's beside the simulator's, dialogs off the simulated object.
#ifndef HOST_WINDOW_PLACEMENT_H
#define HOST_WINDOW_PLACEMENT_H

#include <QObject>
#include <QRect>

/// Places of the two windows' contents on a screen, title bars left room for. The simulator takes
/// its own, at the right edge, by the same reckoning.
struct SideBySide
{
    QRect host;
    QRect simulator;
};
SideBySide side_by_side(const QRect& available);

/// `dialog` moved within `available` so that it covers as little of `kept_clear` as it can.
QRect moved_clear(const QRect& dialog, const QRect& available, const QRect& kept_clear);

/// Moves each dialog when it is first shown. Questions and file dialogs stay where they come.
class DialogPlacer : public QObject
{
    Q_OBJECT

public:
    DialogPlacer(const QRect& kept_clear, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QRect m_kept_clear;
};

#endif
