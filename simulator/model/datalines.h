// The data lines of one frame, as the controller sends them.
#ifndef SIMULATOR_MODEL_DATALINES_H
#define SIMULATOR_MODEL_DATALINES_H

#include "simulator/model/controller.h"
#include "simulator/model/world.h"

#include <QByteArray>
#include <random>

namespace simulator
{

/// Measuring error of the cameras and trembling of the hand: normally distributed, repeatable.
class Noise
{
public:
    static constexpr double default_deviation = 0.1; ///< mm, per axis

    explicit Noise(unsigned int seed) : m_generator(seed) {}

    Vec3 sample(double deviation);

private:
    std::mt19937 m_generator;
    std::normal_distribution<double> m_normal;
};

/// The frame's lines with a line feed behind each: frame counter, time stamp, Measurement Tools,
/// Wandsticks. `deviation` is that of the reported positions, in mm per axis.
QByteArray data_lines(const Controller& controller, const World& world, double deviation,
                      Noise& noise);

} // namespace simulator

#endif
