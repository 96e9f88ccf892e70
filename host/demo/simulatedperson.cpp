#include "host/demo/simulatedperson.h"

#include "host/demo/failure.h"

#include <algorithm>

namespace
{

QString complaint(const QByteArray& request, const QByteArray& reply)
{
    return QStringLiteral("\"%1\" gave \"%2\"")
        .arg(QString::fromUtf8(request), QString::fromUtf8(reply));
}

Point point_at(const std::vector<double>& numbers, std::size_t first)
{
    return {numbers[first], numbers[first + 1], numbers[first + 2]};
}

} // namespace

SimulatedPerson::SimulatedPerson(const QString& host, quint16 port) : m_link(host, port) {}

void SimulatedPerson::act(const QByteArray& what)
{
    const Reply reply = m_link.request("sim " + what);
    if (!reply.ok())
        throw DemoFailure(complaint(what, reply.text));
}

std::vector<Point> SimulatedPerson::object_points()
{
    const std::vector<double> numbers = ask("sim object");
    std::vector<Point> points;
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3)
        points.push_back(point_at(numbers, i));
    return points;
}

QString SimulatedPerson::save_points()
{
    const Reply reply = m_link.request("sim points");
    if (!reply.ok())
        throw DemoFailure(complaint("sim points", reply.text));
    return QString::fromUtf8(reply.text);
}

Pose SimulatedPerson::true_pose()
{
    const std::vector<double> numbers = ask("sim truth");
    Pose pose;
    if (numbers.size() != pose.rotation.size() + pose.translation.size())
        throw DemoFailure(QStringLiteral("the true pose is not twelve numbers"));
    std::copy_n(numbers.begin(), pose.rotation.size(), pose.rotation.begin());
    pose.translation = point_at(numbers, pose.rotation.size());
    return pose;
}

Point SimulatedPerson::tip()
{
    const std::vector<double> numbers = ask("sim tip");
    if (numbers.size() != 3)
        throw DemoFailure(QStringLiteral("the tip is not three numbers"));
    return point_at(numbers, 0);
}

std::vector<double> SimulatedPerson::parameter(const QByteArray& name)
{
    return ask("get " + name);
}

std::vector<double> SimulatedPerson::ask(const QByteArray& request)
{
    const Reply reply = m_link.request(request);
    std::vector<double> numbers;
    bool valid = reply.ok();
    for (const QByteArray& field : reply.text.split(' ')) {
        numbers.push_back(valid ? field.toDouble(&valid) : 0.0);
        if (!valid)
            throw DemoFailure(complaint(request, reply.text));
    }
    return numbers;
}
