#include "tests/simulator/frames.h"

#include <QList>

namespace
{

using Numbers = QList<double>;

Numbers numbers(const QByteArray& text)
{
    Numbers values;
    for (const QByteArray& word : text.simplified().split(' '))
        values << word.toDouble();
    return values;
}

QVector<ObjectRecord> objects(const QByteArray& line, int groups_each)
{
    QList<Numbers> all; // the contents of the bracketed groups
    for (int open = line.indexOf('['); open >= 0; open = line.indexOf('[', open + 1))
        all << numbers(line.mid(open + 1, line.indexOf(']', open) - open - 1));
    QVector<ObjectRecord> records;
    for (int i = 0; i + groups_each <= all.size(); i += groups_each) {
        ObjectRecord record;
        record.id = int(all[i].value(0, -1));
        record.quality = all[i].value(1);
        record.buttons = int(all[i].value(2));
        for (int k = 0; k < 9; ++k) {
            record.rotation[size_t(k)] = all[i + 2].value(k);
            record.position[size_t(k % 3)] = all[i + 1].value(k % 3);
        }
        record.bits = unsigned(all[i + 3].value(0));
        records << record;
    }
    return records;
}

} // namespace

FrameRecord read_frame(const QByteArray& datagram)
{
    const QList<QByteArray> lines = datagram.split('\n');
    FrameRecord frame;
    if (lines.size() != 5 || !lines[0].startsWith("fr ") || !lines[1].startsWith("ts ")
        || !lines[2].startsWith("6dmt2 ") || !lines[3].startsWith("6df2 "))
        return frame;
    frame.counter = lines[0].mid(3).toUInt();
    frame.time = lines[1].mid(3).toDouble();
    frame.tools_defined = int(numbers(lines[2].mid(6)).value(0));
    frame.tools = objects(lines[2], 5);
    frame.sticks = objects(lines[3], 4);
    return frame;
}
