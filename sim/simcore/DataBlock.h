#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <array>

namespace sim {

// The 32 bytes the controller gives after the lead byte of its data reply.
// Multi-byte values go big-endian, signed ones in two's complement.
struct DataBlock {
    quint32 apparentCounter = 0;    // bytes 0-3
    qint32 capacitiveCounter = 0;   // bytes 4-7, runs downward
    qint32 reactiveCounter = 0;     // bytes 8-11
    quint32 timer = 0;              // bytes 12-14, 24 bits: seconds since power-up
    qint16 voltage = 0;             // bytes 15-16
    qint16 reactiveCurrent = 0;     // bytes 17-18, 200 a secondary ampere
    qint16 totalCurrent = 0;        // bytes 19-20
    qint16 phase = 0;               // bytes 21-22, tenths of a degree
    qint16 periodLessOne = 0;       // bytes 23-24, 115200 Hz counts of a mains period, less 1
    quint8 keyState1 = 0;           // byte 25
    quint8 keyState2 = 0;           // byte 26
    std::array<quint8, 4> display{}; // bytes 27-30
                                    // byte 31 is spare and goes as 0

    static constexpr int kSize = 32;
    QByteArray encode() const;
};

} // namespace sim
