#pragma once

#include <QByteArray>
#include <QList>
#include <cstdint>

// Requests to the controllers: a start byte 2, the address, a register and
// a function, and a parameter with the write functions. Never stuffed, no
// checksum.
namespace frames {

enum Register : std::uint8_t {
    Blocking = 0x2F,
    DataBlock = 0x4F,
    Keys = 0x6A,
    StageTimer0 = 0x70,
    Lamps1 = 0x90,
    Lamps2 = 0xA0,
    Lamps3 = 0xB0,
};

enum Function : std::uint8_t {
    Write = 1,
    WriteAlt = 3,
    ReadLamps = 4,
    ReadValue = 5,
    PrepareBlock = 6,
};

constexpr std::uint8_t Start = 2;
constexpr std::uint8_t DischargeSeconds = 0x3C;

QByteArray frame(std::uint8_t adres, std::uint8_t reg, std::uint8_t function);
QByteArray frame(std::uint8_t adres, std::uint8_t reg, std::uint8_t function, std::uint8_t parameter);
// The discharge timer register of stage n; the byte sum overflows above 0x8F.
std::uint8_t stageTimer(std::uint8_t n);

}
