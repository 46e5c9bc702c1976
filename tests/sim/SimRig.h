#pragma once

#include "simcore/ManualClock.h"
#include "simcore/SimBus.h"
#include "simcore/Stuffing.h"

#include <QDateTime>

// A bus on a manual clock (the same for line and model), with its log kept,
// and frames written as the station would put them on the line.
struct SimRig {
    explicit SimRig(std::initializer_list<int> addresses)
        : clock(QDateTime(QDate(2026, 1, 5), QTime(10, 0), Qt::UTC).toMSecsSinceEpoch()), bus(clock, clock)
    {
        for (int a : addresses)
            bus.addController({.address = a, .seed = std::nullopt});
        bus.setLogSink([this](const sim::FrameLogEntry &e) { log.push_back(e); });
    }

    // A read when value is left out.
    static QByteArray frame(int address, int reg, int function, int value = -1)
    {
        QByteArray out;
        for (int b : {2, address, reg, function, value})
            if (b >= 0)
                out.append(char(b));
        return out;
    }
    // Everything the line carries back, as sent (stuffed).
    QByteArray ask(const QByteArray &bytes)
    {
        QByteArray out;
        for (const sim::Transmission &t : bus.receive(bytes))
            out += t.bytes;
        return out;
    }
    // What the station keeps of a reply: the byte after each 2 is its copy.
    static QByteArray unstuff(const QByteArray &line)
    {
        QByteArray out;
        for (int i = 0; i < line.size(); i += line[i] == 2 ? 2 : 1)
            out.append(line[i]);
        return out;
    }
    quint8 readByte(int address, int reg, int function = 4)
    {
        const QByteArray reply = unstuff(ask(frame(address, reg, function)));
        return reply.size() == 1 ? quint8(reply[0]) : 0xEE; // 0xEE flags a bad reply
    }
    QByteArray readBlock(int address) { return unstuff(ask(frame(address, 0x4F, 6))).mid(1); }
    void advanceSeconds(double seconds) { clock.advance(qint64(seconds * 1000)); }

    sim::ManualClock clock;
    sim::SimBus bus;
    std::vector<sim::FrameLogEntry> log;
};

// Fields of the data block as the station decodes them: big-endian.
inline qint64 blockUnsigned(const QByteArray &b, int from, int width)
{
    qint64 v = 0;
    for (int i = 0; i < width; ++i)
        v = v * 256 + quint8(b[from + i]);
    return v;
}
inline qint32 block32(const QByteArray &b, int from) { return qint32(quint32(blockUnsigned(b, from, 4))); }
