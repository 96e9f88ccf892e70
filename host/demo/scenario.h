// The steps of the demonstration, in the order in which a technician would take them.
#ifndef HOST_DEMO_SCENARIO_H
#define HOST_DEMO_SCENARIO_H

#include "host/demo/deviation.h"

#include <QByteArray>
#include <QString>

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
    QString verdict() const { return m_result; }

private:
    void plan_opening();
    void plan_coarse();
    void plan_fine();
    void plan_unsaved_question();
    void plan_reference_points();
    void plan_measurements();
    void plan_measurement(int number, int point);
    void plan_measurement_start(int way);
    void plan_result();
    void plan_end();

    void prepare_simulator();
    void press_for_a_moment(const QByteArray& button);
    bool reference_table_holds_points() const;
    bool is_measured(int rows);
    void require_controller_holds_fine_tab();
    void check_points(bool print);
    void plan_picture(const QString& name);
    void take_picture(const QString& name);

    Stepper& m_stepper;
    SimulatedPerson& m_person;
    QMainWindow& m_main_window;
    QString m_folder;
    int m_pictures = 0;
    QString m_points_file;
    std::vector<Point> m_points; ///< the object's points in its own coordinates, mm
    QString m_result;
};

#endif
