// Reads the simulator's datagrams in the tests, independently of how they are written.
#ifndef TESTS_SIMULATOR_FRAMES_H
#define TESTS_SIMULATOR_FRAMES_H

#include <QRegularExpression>
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
    QVector<ObjectRecord> tools, sticks;
};

/// The objects of a line, each of so many bracketed groups of numbers.
inline QVector<ObjectRecord> read_objects(const QString& line, int groups_each)
{
    QVector<QStringList> groups;
    for (const QString& group : line.split('[').mid(1))
        groups << group.section(']', 0, 0).simplified().split(' ');
    QVector<ObjectRecord> records;
    for (int i = 0; i + groups_each <= groups.size(); i += groups_each) {
        const QStringList& head = groups[i];
        ObjectRecord record = {
            head.value(0).toInt(),          head.value(1).toDouble(), head.value(2).toInt(), {}, {},
            groups[i + 3].value(0).toUInt()};
        for (int k = 0; k < 9; ++k) {
            record.position[size_t(k % 3)] = groups[i + 1].value(k % 3).toDouble();
            record.rotation[size_t(k)] = groups[i + 2].value(k).toDouble();
        }
        records << record;
    }
    return records;
}

/// An empty record with counter 0 for what is not a whole frame.
inline FrameRecord read_frame(const QByteArray& datagram)
{
    const QRegularExpression whole("^fr (.+)\nts (.+)\n6dmt2 (\\d+)(.*)\n6df2 (.*)\n$");
    const QRegularExpressionMatch part = whole.match(datagram);
    return {part.captured(1).toUInt(), part.captured(2).toDouble(), part.captured(3).toInt(),
            read_objects(part.captured(4), 5), read_objects(part.captured(5), 4)};
}

#endif
