#pragma once

#include <QtGlobal>

namespace sim {

// The time of the simulated installation: local milliseconds since
// 1970-01-01 00:00, so that the time of day is nowMs() modulo one day.
// The physical model reads nothing else, which lets tests drive it.
class SimClock {
public:
    virtual ~SimClock() = default;
    virtual qint64 nowMs() const = 0;
};

constexpr qint64 kMsPerDay = 24LL * 60 * 60 * 1000;

inline qint64 msOfDay(qint64 localMs)
{
    const qint64 r = localMs % kMsPerDay;
    return r < 0 ? r + kMsPerDay : r;
}

} // namespace sim
