// Replies to requests, one line each.
#ifndef SIMULATOR_MODEL_REPLY_H
#define SIMULATOR_MODEL_REPLY_H

#include "simulator/model/controller.h"

#include <QByteArray>

namespace simulator
{

inline QByteArray ok() { return "ok"; }

inline QByteArray ok(const QByteArray& value) { return "ok " + value; }

inline QByteArray error(const QByteArray& reason) { return "error " + reason; }

inline QByteArray outcome(Refusal refusal) { return refusal ? error(refusal) : ok(); }

} // namespace simulator

#endif
