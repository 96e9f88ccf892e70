#include "simulator/model/datalines.h"

#include "simulator/model/numbers.h"

namespace simulator
{

namespace
{

constexpr int position_decimals = 3;
constexpr int rotation_decimals = 6;
constexpr int time_decimals = 6;
constexpr int covariance_decimals = 6;
constexpr int tip_radius_decimals = 2;
constexpr double tip_radius = 1.5; ///< mm
constexpr int stick_joysticks = 2;
const char* const tracked = "1.000";
const char* const untracked = "-1.000";

QByteArray group(const QByteArray& numbers) { return '[' + numbers + ']'; }

QByteArray place(const Vec3& position, const Mat3& rotation)
{
    return group(fixed(position, position_decimals)) + group(fixed(rotation, rotation_decimals));
}

QByteArray no_place() { return place({}, Mat3{{}}); }

template <size_t size>
unsigned int button_bits(const std::array<bool, size>& pressed, int first_bit)
{
    unsigned int bits = 0;
    for (size_t i = 0; i < size; ++i)
        bits |= unsigned(pressed[i]) << (first_bit + i);
    return bits;
}

/// Upper triangle of a covariance with the same variance on each axis.
QByteArray covariance(double variance)
{
    const QByteArray v = fixed(variance, covariance_decimals);
    const QByteArray zero = fixed(0.0, covariance_decimals);
    return v + ' ' + zero + ' ' + zero + ' ' + v + ' ' + zero + ' ' + v;
}

/// Button 0 is the measuring flag, the tool's own buttons follow.
QByteArray tool_groups(const Controller& controller, const World& world, int index,
                       double deviation, Noise& noise)
{
    const Tool& tool = world.tools[index];
    const bool seen = controller.is_seen(index);
    const int buttons = 1 + int(tool.pressed.size());
    const double shake = index == world.held ? world.shake : 0.0;
    const unsigned int bits =
        seen ? button_bits(tool.pressed, 1) | unsigned(controller.is_measuring(index)) : 0u;
    const Vec3 tip = controller.reported(tool.tip + noise.sample(shake)) + noise.sample(deviation);
    return group(QByteArray::number(index) + ' ' + (seen ? tracked : untracked) + ' '
                 + QByteArray::number(buttons) + ' ' + fixed(tip_radius, tip_radius_decimals))
           + (seen ? place(tip, controller.reported(Mat3())) : no_place())
           + group(QByteArray::number(bits)) + group(covariance(deviation * deviation));
}

QByteArray tool_line(const Controller& controller, const World& world, double deviation,
                     Noise& noise)
{
    const QByteArray count = QByteArray::number(controller.tool_count());
    QByteArray line = "6dmt2 " + count + ' ' + count;
    for (int i = 0; i < controller.tool_count(); ++i)
        line += ' ' + tool_groups(controller, world, i, deviation, noise);
    return line + '\n';
}

QByteArray stick_line(const Controller& controller, const World& world, double deviation,
                      Noise& noise)
{
    const Stick& stick = world.stick;
    const Vec3 position = controller.reported(stick.position) + noise.sample(deviation);
    return QByteArray("6df2 1 1 ")
           + group(QByteArray("0 ") + tracked + ' ' + QByteArray::number(int(stick.pressed.size()))
                   + ' ' + QByteArray::number(stick_joysticks))
           + place(position, controller.reported(Mat3()))
           + group(QByteArray::number(button_bits(stick.pressed, 0)) + " 0.00 0.00") + '\n';
}

} // namespace

Vec3 Noise::sample(double deviation)
{
    const double x = m_normal(m_generator);
    const double y = m_normal(m_generator);
    const double z = m_normal(m_generator);
    return deviation * Vec3{x, y, z};
}

QByteArray data_lines(const Controller& controller, const World& world, double deviation,
                      Noise& noise)
{
    return "fr " + QByteArray::number(controller.frame()) + "\nts "
           + fixed(controller.time_stamp(), time_decimals) + '\n'
           + tool_line(controller, world, deviation, noise)
           + stick_line(controller, world, deviation, noise);
}

} // namespace simulator
