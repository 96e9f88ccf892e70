// The widget that shows the room from above.
#ifndef SIMULATOR_WINDOW_ROOMVIEW_H
#define SIMULATOR_WINDOW_ROOMVIEW_H

#include <QWidget>

namespace simulator
{

class Simulator;

/// A click touches a point, a double click measures it as well. With the keyboard, arrows go to the
/// next point in their direction, and Space measures the point under the mouse, or where the tip
/// is.
class RoomView : public QWidget
{
    Q_OBJECT

public:
    /// `simulator` must outlive the view.
    explicit RoomView(const Simulator& simulator, QWidget* parent = nullptr);

    /// The object's point, from 0, whose marker is at this place of the widget; -1 for none.
    int point_at(const QPointF& place) const;

    QSize minimumSizeHint() const override;

signals:
    /// Somebody wants the tip on this point of the object, counted from 1.
    void touch_wanted(int number);
    /// Somebody wants a measurement where the tip is.
    void measure_wanted();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void point_at_mouse(int point);
    /// The first point that lies further in this direction of the screen than the tip, however far
    /// to the side, so that every point can be reached; -1 if there is none.
    int next_point(const QPointF& direction) const;
    void touch(int point);
    void measure_with_space();

    const Simulator& m_simulator;
    int m_hovered = -1; ///< the point under the mouse, from 0; -1 for none
};

} // namespace simulator

#endif
