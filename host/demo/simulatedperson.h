// The hand that holds the tool in the simulator, and what the simulator knows to be true.
#ifndef HOST_DEMO_SIMULATEDPERSON_H
#define HOST_DEMO_SIMULATEDPERSON_H

#include "host/connection/controllerlink.h"
#include "host/demo/deviation.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// Speaks over a connection of its own, so that its words do not stand among the module's. What
/// the simulator refuses throws DemoFailure.
class SimulatedPerson
{
public:
    SimulatedPerson(const QString& host, quint16 port);

    /// A request behind "sim ", for example "touch 3".
    void act(const QByteArray& what);

    /// Points of the object, in the object's own coordinates, mm.
    std::vector<Point> object_points();
    /// Has the points saved, and returns the file, which the matching dialog can load.
    QString save_points();
    /// Takes points of the object to the calibrated room.
    Pose true_pose();
    /// Where the controller now reports the tip, without noise, mm.
    Point tip();

    /// A number or numbers that the controller gives for a parameter.
    std::vector<double> parameter(const QByteArray& name);

private:
    std::vector<double> ask(const QByteArray& request);

    ControllerLink m_link;
};

#endif
