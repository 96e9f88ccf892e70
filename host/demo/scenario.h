// The steps of the demonstration, in the order in which a technician would take them.
#ifndef HOST_DEMO_SCENARIO_H
#define HOST_DEMO_SCENARIO_H

#include "host/demo/deviation.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <vector>

class QMainWindow;
class SimulatedPerson;
class Stepper;

/// `plan` writes the steps; the stepper carries them out. Steps that find something wrong throw
/// DemoFailure.
class Scenario
{
public:
    /// An empty `screenshot_folder` means no pictures.
    Scenario(Stepper& stepper, SimulatedPerson& person, QMainWindow& main_window,
             const QString& screenshot_folder);

    /// Asks the simulator for its object, so this can throw DemoFailure itself.
    void plan();

    /// The result in one sentence, once all steps are done.
    QString verdict() const { return result; }

private:
    void planOpening();
    void planCoarse();
    void planFine();
    void planUnsavedQuestion();
    void planReferencePoints();
    void planMeasurements();
    void planMeasurement(int number, int point);
    void planStart(int way);
    void planResult();
    void planEnd();

    void prepareSimulator();
    void pressForAMoment(const QByteArray& button);
    QString pointFile() const;
    void writePoints();
    bool referenceTableHoldsPoints() const;
    bool isMeasured(int rows);
    void checkControllerHoldsFineTab();
    void checkPoints(bool print);
    void planPicture(const QString& name);
    void takePicture(const QString& name);

    Stepper& stepper;
    SimulatedPerson& person;
    QMainWindow& main_window;
    QString folder;
    int pictures = 0;
    QTemporaryDir temporary;
    std::vector<Point> points; ///< the object's points in its own coordinates, mm
    QString result;
};

#endif
