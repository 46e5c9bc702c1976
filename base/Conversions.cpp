#include "base/Conversions.h"

#include "base/RunTimeError.h"

#include <cmath>
#include <limits>

namespace conv {

namespace {

template <typename T>
T narrowTo(std::int64_t v)
{
    if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max())
        throw RunTimeError::overflow();
    return T(v);
}

template <typename T>
T roundTo(double v)
{
    if (std::isnan(v))
        throw RunTimeError::overflow();
    const double r = roundHalfEven(v);
    if (r < double(std::numeric_limits<T>::min()) || r > double(std::numeric_limits<T>::max()))
        throw RunTimeError::overflow();
    return T(r);
}

}

double roundHalfEven(double v)
{
    return std::nearbyint(v); // the default rounding mode is to nearest, ties to even
}

std::int16_t narrow16(std::int64_t v) { return narrowTo<std::int16_t>(v); }
std::int32_t narrow32(std::int64_t v) { return narrowTo<std::int32_t>(v); }
std::uint8_t narrowByte(std::int64_t v) { return narrowTo<std::uint8_t>(v); }

std::int16_t toInt16(double v) { return roundTo<std::int16_t>(v); }
std::int32_t toInt32(double v) { return roundTo<std::int32_t>(v); }
std::uint8_t toByte(double v) { return roundTo<std::uint8_t>(v); }

float toSingle(double v)
{
    if (std::isfinite(v) && std::fabs(v) > double(std::numeric_limits<float>::max()))
        throw RunTimeError::overflow();
    return float(v);
}

double toNumber(const QVariant &v)
{
    if (v.isNull())
        throw RunTimeError::invalidUseOfNull();
    switch (v.typeId()) {
    case QMetaType::Bool:
        return v.toBool() ? -1.0 : 0.0; // a true value is -1 as a number
    case QMetaType::QString:
    case QMetaType::QByteArray: {
        bool ok = false;
        const double d = v.toString().trimmed().toDouble(&ok);
        if (!ok)
            throw RunTimeError::typeMismatch();
        return d;
    }
    default: {
        bool ok = false;
        const double d = v.toDouble(&ok);
        if (!ok)
            throw RunTimeError::typeMismatch();
        return d;
    }
    }
}

std::int16_t toInt16(const QVariant &v) { return toInt16(toNumber(v)); }
std::int32_t toInt32(const QVariant &v) { return toInt32(toNumber(v)); }
std::uint8_t toByte(const QVariant &v) { return toByte(toNumber(v)); }
float toSingle(const QVariant &v) { return toSingle(toNumber(v)); }

QString toText(const QVariant &v)
{
    if (v.isNull())
        throw RunTimeError::invalidUseOfNull();
    return v.toString();
}

std::int16_t add16(std::int16_t a, std::int16_t b) { return narrow16(std::int64_t(a) + b); }
std::int16_t sub16(std::int16_t a, std::int16_t b) { return narrow16(std::int64_t(a) - b); }
std::int16_t mul16(std::int16_t a, std::int16_t b) { return narrow16(std::int64_t(a) * b); }
std::uint8_t addByte(std::uint8_t a, std::uint8_t b) { return narrowByte(std::int64_t(a) + b); }
std::uint8_t subByte(std::uint8_t a, std::uint8_t b) { return narrowByte(std::int64_t(a) - b); }
std::uint8_t mulByte(std::uint8_t a, std::uint8_t b) { return narrowByte(std::int64_t(a) * b); }

}
