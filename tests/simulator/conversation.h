// Talks to a simulator in the tests as a table of requests and replies says.
#ifndef TESTS_SIMULATOR_CONVERSATION_H
#define TESTS_SIMULATOR_CONVERSATION_H

#include "simulator/model/simulator.h"

#include <QtTest>

/// Rows "request > reply" parted by semicolons. Without a reply "ok" is expected; "error" stands
/// for every refusal.
inline void converse(simulator::Simulator& s, const QByteArray& rows, const char* start = "")
{
    for (const QByteArray& row : rows.split(';')) {
        const QList<QByteArray> parts = row.split('>');
        const QByteArray expected = parts.value(1, "ok").trimmed();
        const QByteArray reply = s.answer(start + parts[0].trimmed()).text;
        QVERIFY2(expected == "error" ? reply.startsWith("error ") : reply == expected,
                 row + ": " + reply);
    }
}

/// Each of the requests, parted by semicolons and taken to the letter, is refused.
inline void refused(simulator::Simulator& s, const QByteArray& requests, const char* start = "")
{
    for (const QByteArray& request : requests.split(';'))
        QVERIFY2(s.answer(start + request).text.startsWith("error "), request);
}

#endif
