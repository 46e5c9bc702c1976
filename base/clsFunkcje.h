#pragma once

#include "base/ZDate.h"

#include <QString>
#include <cstdint>

// Byte helpers of the data block (big-endian, two's complement) and the
// date literal of a query text.
class clsFunkcje {
public:
    explicit clsFunkcje(const QString &znakdaty = QString()) : m_znakdaty(znakdaty) {}

    static std::int16_t TworzInt(std::uint8_t b1, std::uint8_t b2);
    static std::int32_t TworzLong(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4);
    // Unsigned by nature but held signed: above 2147483647 it overflows.
    static std::int32_t TworzLongU(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4);
    static bool logic(std::int32_t v) { return v != 0; }
    // The date between the date delimiters: "#2026-11-23#".
    QString SqlZamienNaDate(ZDate d) const;

    void setZnakdaty(const QString &z) { m_znakdaty = z; }

private:
    QString m_znakdaty;
};
