#include "simcore/ScaledWallClock.h"

#include <QDateTime>
#include <cmath>

namespace sim {

ScaledWallClock::ScaledWallClock(double speed, qint64 startLocalMs)
    : m_speed(speed), m_startMs(startLocalMs)
{
    m_elapsed.start();
}

qint64 ScaledWallClock::nowMs() const
{
    return m_startMs + std::llround(double(m_elapsed.elapsed()) * m_speed);
}

qint64 ScaledWallClock::currentLocalMs()
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.toMSecsSinceEpoch() + qint64(now.offsetFromUtc()) * 1000;
}

} // namespace sim
