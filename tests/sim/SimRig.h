#pragma once

#include "simcore/ManualClock.h"
#include "simcore/SimBus.h"
#include "simcore/Stuffing.h"

#include <QByteArray>
#include <QDateTime>
#include <vector>

// A bus on a manual clock (the same for line and model), with its log kept,
// and frames written as the station would put them on the line.
struct SimRig {
    static qint64 at(int hour, int minute = 0)
    {
        return QDateTime(QDate(2026, 1, 5), QTime(hour, minute), Qt::UTC).toMSecsSinceEpoch();
    }

    explicit SimRig(std::initializer_list<int> addresses, int measuringVoltage = 380)
        : clock(at(10)), bus(clock, clock)
    {
        for (int a : addresses)
            add(a, measuringVoltage);
        bus.setLogSink([this](const sim::FrameLogEntry &e) { log.push_back(e); });
    }

    sim::SimController &add(int address, int measuringVoltage = 380)
    {
        sim::ControllerConfig c;
        c.address = address;
        c.measuringVoltage = measuringVoltage;
        return bus.addController(c);
    }

    static QByteArray frame(int address, int reg, int function)
    {
        QByteArray out;
        for (int b : {2, address, reg, function})
            out.append(char(b));
        return out;
    }
    static QByteArray frame(int address, int reg, int function, int value)
    {
        return frame(address, reg, function) + char(value);
    }

    // Everything the line carries back, as sent (stuffed).
    QByteArray ask(const QByteArray &bytes)
    {
        QByteArray out;
        for (const sim::Transmission &t : bus.receive(bytes))
            out += t.bytes;
        return out;
    }
    // What the station keeps of a reply: every 2 is followed by a copy.
    static QByteArray unstuff(const QByteArray &line)
    {
        QByteArray out;
        for (int i = 0; i < line.size(); ++i) {
            out.append(line[i]);
            if (line[i] == 2)
                ++i;
        }
        return out;
    }
    quint8 readByte(int address, int reg, int function = 4)
    {
        const QByteArray reply = unstuff(ask(frame(address, reg, function)));
        return reply.size() == 1 ? quint8(reply[0]) : 0xEE;  // 0xEE flags a bad reply
    }
    QByteArray readBlock(int address)
    {
        const QByteArray reply = unstuff(ask(frame(address, 0x4F, 6)));
        return reply.mid(1);
    }
    void advanceMinutes(double minutes) { clock.advance(qint64(minutes * 60000)); }
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
inline qint16 block16(const QByteArray &b, int from) { return qint16(quint16(blockUnsigned(b, from, 2))); }
