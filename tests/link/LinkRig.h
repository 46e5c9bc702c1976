#pragma once

#include "FakeClock.h"
#include "FakeEventPump.h"
#include "RecordingDialogs.h"
#include "RecordingWizual.h"

#include "link/Komunikator.h"
#include "link/ScriptedLine.h"
#include "link/clComm.h"

inline QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray b;
    for (int v : values)
        b.append(char(v));
    return b;
}

// A reply as a controller puts it on the line: each 2 travels twice.
inline QByteArray stuffed(const QByteArray &data)
{
    QByteArray out;
    for (char c : data)
        out.append(c == 2 ? QByteArray(2, c) : QByteArray(1, c));
    return out;
}

// The link on a scripted line, a fake clock and a fake pump, with
// controllers at the given addresses (Id 1, 2, ... in that order).
struct LinkRig {
    explicit LinkRig(std::initializer_list<int> addresses = {5}) : addresses(addresses) {}

    // A command as the logic gives it, through Komunikator.
    bool run(int id, QString word, const ReplyBuffer &reply, std::uint8_t parametr = 0)
    {
        return komunikator.WykonajRozkaz(std::int16_t(addresses.at(std::size_t(id - 1))), word, reply, parametr);
    }
    std::int64_t elapsedMs() const { return clock.now().msecs() - started.msecs(); }

    FakeClock clock; // at a whole second
    ZDate started = clock.now();
    ScriptedLine line{clock};
    FakeEventPump pump{clock, line};
    RecordingDialogs dialogs;
    std::vector<int> addresses; // by Id from 1
    clComm comm{line, clock, pump, dialogs};
    RecordingWizual wizual;
    Komunikator komunikator{comm, wizual};
};
