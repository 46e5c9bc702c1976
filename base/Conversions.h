#pragma once

#include <QString>
#include <QVariant>
#include <cstdint>

// Conversions and integer arithmetic that refuse instead of wrapping: a
// value out of the target's range raises the overflow error, text that is no
// number the type mismatch, a NULL the invalid use of Null.
namespace conv {

// Rounds half to even, as the run-time's integer conversion does.
double roundHalfEven(double v);

std::int16_t toInt16(double v);
std::int32_t toInt32(double v);
std::uint8_t toByte(double v);
float toSingle(double v);

// From a stored value: a number, or text holding one (blanks around it allowed).
double toNumber(const QVariant &v);
std::int16_t toInt16(const QVariant &v);
std::int32_t toInt32(const QVariant &v);
std::uint8_t toByte(const QVariant &v);
float toSingle(const QVariant &v);
QString toText(const QVariant &v);

// 16-bit signed arithmetic.
std::int16_t add16(std::int16_t a, std::int16_t b);
std::int16_t sub16(std::int16_t a, std::int16_t b);
std::int16_t mul16(std::int16_t a, std::int16_t b);
// Byte arithmetic.
std::uint8_t addByte(std::uint8_t a, std::uint8_t b);
std::uint8_t subByte(std::uint8_t a, std::uint8_t b);
std::uint8_t mulByte(std::uint8_t a, std::uint8_t b);

// Range check of an already integral value.
std::int16_t narrow16(std::int64_t v);
std::int32_t narrow32(std::int64_t v);
std::uint8_t narrowByte(std::int64_t v);

}
