#include "base/clsFunkcje.h"

#include "base/Conversions.h"

namespace {

std::int64_t bigEndian(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4)
{
    return std::int64_t(b1) * 16777216 + std::int64_t(b2) * 65536 + std::int64_t(b3) * 256 + b4;
}

}

std::int16_t clsFunkcje::TworzInt(std::uint8_t b1, std::uint8_t b2)
{
    const std::int32_t v = std::int32_t(b1) * 256 + b2;
    return std::int16_t(v > 32767 ? v - 65536 : v);
}

std::int32_t clsFunkcje::TworzLong(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4)
{
    const std::int64_t v = bigEndian(b1, b2, b3, b4);
    return std::int32_t(v > 2147483647 ? v - 4294967296LL : v);
}

std::int32_t clsFunkcje::TworzLongU(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4)
{
    return conv::narrow32(bigEndian(b1, b2, b3, b4));
}

QString clsFunkcje::SqlZamienNaDate(ZDate d) const
{
    return m_znakdaty + d.toIsoText().left(10) + m_znakdaty;
}
