// Reads the simulator's datagrams as the module does.
#ifndef TESTS_SIMULATOR_FRAMES_H
#define TESTS_SIMULATOR_FRAMES_H

#include "tracking/zetrakparser.h"

#include <QByteArray>

/// Its frame counter is 0 for what is not whole lines that the parser takes.
inline ZetrakParser read_frame(const QByteArray& datagram)
{
    ZetrakParser frame;
    frame.startFrame();
    for (QByteArray line : datagram.split('\n')) {
        char* cursor = line.data();
        if (!frame.parseLine(&cursor) || !datagram.endsWith('\n'))
            return {};
    }
    frame.endFrame();
    return frame;
}

#endif
