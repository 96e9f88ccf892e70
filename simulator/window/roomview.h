// The widget that shows the room from above.
#ifndef SIMULATOR_WINDOW_ROOMVIEW_H
#define SIMULATOR_WINDOW_ROOMVIEW_H

#include <QWidget>

namespace simulator
{

class Simulator;

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
    /// Somebody clicked on a point of the object, counted from 1.
    void point_clicked(int number);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    const Simulator& m_simulator;
    int m_hovered = -1;
};

} // namespace simulator

#endif
