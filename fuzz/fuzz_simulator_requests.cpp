// Any bytes as request lines to the simulator, a frame after each: every line gets one reply of one
// line, nothing grows without bound, and the data stay whole lines.
#include "fuzz/support/require.h"
#include "simulator/model/simulator.h"
#include "simulator/program/requestlabels.h"

#include <QList>

#include <cstdint>

using namespace simulator;

static void check_reply(const QByteArray& reply)
{
    const QByteArray plain = reply.startsWith('#') ? reply.mid(reply.indexOf(' ') + 1) : reply;
    require(plain == "ok" || plain.startsWith("ok ") || plain.startsWith("error "));
    require(!reply.contains('\n'));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Simulator simulator({});
    RequestLabels labels([&](const QByteArray& request) { return simulator.answer(request); },
                         [] { return qint64(1000000); });
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    for (const QByteArray& line : text.split('\n')) {
        check_reply(labels.answer(line).text);
        require(simulator.step().size() <= size_t(Faults::max_waiting_lines) + 1);
    }
    simulator.answer("sim fail");
    require(simulator.answer("get status active").text.startsWith("ok "));
    require(simulator.answer("sim state").text.startsWith("ok "));
    return 0;
}
