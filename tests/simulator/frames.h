// Reads the simulator's datagrams in the tests, independently of how they are written.
#ifndef TESTS_SIMULATOR_FRAMES_H
#define TESTS_SIMULATOR_FRAMES_H

#include <QByteArray>
#include <QVector>
#include <array>

struct ObjectRecord
{
    int id = -1;
    double quality = 0.0;
    int buttons = 0;
    std::array<double, 3> position = {};
    std::array<double, 9> rotation = {}; ///< column after column
    unsigned int bits = 0;
};

struct FrameRecord
{
    unsigned int counter = 0;
    double time = 0.0;
    int tools_defined = -1;
    QVector<ObjectRecord> tools;
    QVector<ObjectRecord> sticks;
};

/// An empty record with counter 0 for what is not a whole frame.
FrameRecord read_frame(const QByteArray& datagram);

#endif
