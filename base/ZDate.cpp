#include "base/ZDate.h"

#include <QTimeZone>
#include <cmath>

namespace {
// constexpr: dates built during static initialisation elsewhere need it ready
constexpr QDate epoch = QDate::fromJulianDay(2415019); // 30 December 1899

std::int64_t floorDiv(std::int64_t a, std::int64_t b)
{
    std::int64_t q = a / b;
    return (a % b != 0 && ((a < 0) != (b < 0))) ? q - 1 : q;
}
}

ZDate ZDate::fromDays(double days)
{
    return fromMsecs(std::int64_t(std::llround(days * double(MsPerDay))));
}

ZDate ZDate::fromParts(int year, int month, int day, int hour, int minute, int second, int ms)
{
    const std::int64_t d = epoch.daysTo(QDate(year, month, day));
    return fromMsecs(d * MsPerDay + ((hour * 60LL + minute) * 60 + second) * MsPerSecond + ms);
}

ZDate ZDate::fromDateTime(const QDateTime &dt)
{
    const QTime t = dt.time();
    return fromMsecs(epoch.daysTo(dt.date()) * MsPerDay + std::int64_t(t.msecsSinceStartOfDay()));
}

ZDate ZDate::fromIsoText(const QString &text, bool *ok)
{
    QString s = text.trimmed();
    s.replace(QLatin1Char('T'), QLatin1Char(' '));
    QDateTime dt = QDateTime::fromString(s, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    if (!dt.isValid())
        dt = QDateTime::fromString(s, QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
    if (!dt.isValid()) {
        const QDate d = QDate::fromString(s, QStringLiteral("yyyy-MM-dd"));
        if (d.isValid())
            dt = QDateTime(d, QTime(0, 0));
    }
    if (ok)
        *ok = dt.isValid();
    return dt.isValid() ? fromDateTime(dt) : ZDate();
}

ZDate ZDate::fromVariant(const QVariant &value, bool *ok)
{
    if (ok)
        *ok = true;
    if (value.metaType() == QMetaType::fromType<ZDate>())
        return value.value<ZDate>();
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return fromDateTime(value.toDateTime());
    case QMetaType::QDate:
        return fromDateTime(QDateTime(value.toDate(), QTime(0, 0)));
    case QMetaType::Double:
    case QMetaType::Float:
        return fromDays(value.toDouble());
    default:
        return fromIsoText(value.toString(), ok);
    }
}

QVariant ZDate::toVariant() const
{
    return QVariant::fromValue(*this);
}

std::int64_t ZDate::wholeSeconds() const
{
    return floorDiv(m_ms, MsPerSecond);
}

QDate ZDate::date() const
{
    return epoch.addDays(floorDiv(m_ms, MsPerDay));
}

QTime ZDate::time() const
{
    return QTime::fromMSecsSinceStartOfDay(int(m_ms - floorDiv(m_ms, MsPerDay) * MsPerDay));
}

QDateTime ZDate::toDateTime() const
{
    return QDateTime(date(), time());
}

QString ZDate::toString(const QString &format) const
{
    // Formatted as a naive wall-clock value: no daylight-saving gap can move it.
    return QDateTime(date(), time(), Qt::UTC).toString(format);
}

std::int64_t ZDate::secondsBetween(ZDate a, ZDate b)
{
    return b.wholeSeconds() - a.wholeSeconds();
}
