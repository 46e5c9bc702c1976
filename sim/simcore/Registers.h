#pragma once

#include <QtGlobal>

namespace sim {

// What a controller understands on the line, as its firmware numbers it.
namespace Registers {

constexpr quint8 kFrameStart = 0x02;

constexpr quint8 kBlocking = 0x2F;   // bit 5 set: regulation blocked
constexpr quint8 kDataBlock = 0x4F;
constexpr quint8 kKeys = 0x6A;       // the station presses panel keys R, +, -, T
constexpr quint8 kFirstDischarge = 0x70;  // 0x70 + stage, stages 0 to 8
constexpr quint8 kLastDischarge = 0x78;
constexpr quint8 kLamps1 = 0x90;     // also the on/off byte of stages 0 to 7
constexpr quint8 kLamps2 = 0xA0;     // bit 7: stage 8
constexpr quint8 kLamps3 = 0xB0;

constexpr quint8 kBlockedBit = 0x20;

bool isKnown(quint8 reg);
bool isDischarge(quint8 reg);

} // namespace Registers

namespace Functions {

constexpr quint8 kWrite = 1;
constexpr quint8 kWriteSecond = 3;  // same effect as kWrite for this controller
constexpr quint8 kReadLamp = 4;
constexpr quint8 kReadStored = 5;
constexpr quint8 kPrepareBlock = 6;

bool isKnown(quint8 function);
// Writes carry a fifth byte, the value.
bool hasParameter(quint8 function);
bool isWrite(quint8 function);
bool isRead(quint8 function);

} // namespace Functions
} // namespace sim
