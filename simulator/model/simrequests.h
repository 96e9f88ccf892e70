// The simulated person: what somebody in the room would do, and faults.
#ifndef SIMULATOR_MODEL_SIMREQUESTS_H
#define SIMULATOR_MODEL_SIMREQUESTS_H

#include <QByteArray>

namespace simulator
{

class Simulator;

/// Returns the whole reply. `text` is what follows "sim ". What cannot be done is answered with an
/// error and changes nothing.
QByteArray obey_person(Simulator& simulator, const QByteArray& text);

} // namespace simulator

#endif
