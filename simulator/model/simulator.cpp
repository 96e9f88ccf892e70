#include "simulator/model/simulator.h"

#include "simulator/model/numbers.h"
#include "simulator/model/referencepoints.h"
#include "simulator/model/reply.h"
#include "simulator/model/requests.h"
#include "simulator/model/simrequests.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int max_port = 65535;
const char stream_request[] = "do data stream ";

bool is_printable_ascii(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

bool is_vocabulary(const QByteArray& request)
{
    return !request.startsWith("sim ") && !request.startsWith(stream_request);
}

} // namespace

Simulator::Simulator(const Setup& setup)
    : world(setup), controller(setup, world), m_noise(setup.seed)
{
}

Answer Simulator::answer(const QByteArray& request)
{
    if (!is_printable_ascii(request) || request.size() > max_request_length)
        return {error("not a line of printable ASCII")};
    if (request.startsWith("sim "))
        return {obey_person(*this, request.mid(int(qstrlen("sim "))))};
    if (faults.shall_fail(request, is_vocabulary(request)))
        return {error("failed as asked for"), faults.delay()};
    return {reply(request), faults.delay()};
}

QByteArray Simulator::reply(const QByteArray& request)
{
    if (request.startsWith(stream_request))
        return set_data_port(request.mid(int(qstrlen(stream_request))))
                   ? ok()
                   : error("a port from 0 to 65535 is needed");
    if (request.startsWith("get "))
        return read_parameter(controller, request.mid(4));
    if (request.startsWith("set "))
        return change_setting(controller, request.mid(4));
    if (request.startsWith("do "))
        return run_command(controller, request.mid(3));
    return error("unknown request");
}

bool Simulator::set_data_port(const QByteArray& text)
{
    const auto number = parse_integer(text, 0, max_port);
    m_port = number.value_or(m_port);
    return number.has_value();
}

QString Simulator::save_points(const QString& file_name) const
{
    return write_file ? write_file(file_name, reference_point_file(world.points))
                      : QString("there is nowhere to write to");
}

std::vector<QByteArray> Simulator::step()
{
    controller.begin_frame();
    std::vector<QByteArray> datagrams = faults.take_lines();
    if (controller.is_tracking())
        datagrams.push_back(faults.torn(data_lines(controller, world, deviation, m_noise)));
    for (int tool : controller.end_frame())
        world.note_measurement(world.tools[size_t(tool)]);
    return datagrams;
}

} // namespace simulator
