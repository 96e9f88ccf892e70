// The controller's vocabulary: parameters that can be read, settings, commands.
#ifndef SIMULATOR_MODEL_REQUESTS_H
#define SIMULATOR_MODEL_REQUESTS_H

#include "simulator/model/controller.h"

#include <QByteArray>

namespace simulator
{

/// Each returns the whole reply. `text` is what follows "get ", "set " or "do ". What cannot be
/// understood, or is newer than the version played, is answered with an error and changes nothing.
QByteArray read_parameter(const Controller& controller, const QByteArray& text);
QByteArray change_setting(Controller& controller, const QByteArray& text);
QByteArray run_command(Controller& controller, const QByteArray& text);

} // namespace simulator

#endif
