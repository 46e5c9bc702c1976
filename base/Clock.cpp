#include "base/Clock.h"

#include <QTimeZone>

SystemClock::SystemClock()
    : m_standardOffsetMs(
          std::int64_t(QTimeZone::systemTimeZone().standardTimeOffset(QDateTime::currentDateTimeUtc())) * 1000)
{
}

ZDate SystemClock::standardNow() const
{
    // the date and time of day of UTC moved by the standard offset, as shown
    return ZDate::fromDateTime(
        QDateTime::fromMSecsSinceEpoch(QDateTime::currentMSecsSinceEpoch() + m_standardOffsetMs, Qt::UTC));
}
