#pragma once

#include "base/ZDate.h"

// The station's only source of time, so that tests can drive the reading
// grid and the link's timeouts on a fake clock.
//
// It gives each moment twice. now() is the local wall clock: the time that
// samples, alarms and the log carry, as the archive and its reports want
// it. standardNow() is the same moment in local standard time, the wall
// clock without its summer-time hour: it does not jump when summer time
// begins or ends, so the reading grid and every wait are measured on it.
// Outside summer time the two are equal.
class Clock {
public:
    virtual ~Clock() = default;
    // Local wall-clock time, to the millisecond.
    virtual ZDate now() const = 0;
    // Local standard time, to the millisecond: UTC moved by the zone's
    // standard offset, never by summer time.
    virtual ZDate standardNow() const = 0;
};

class SystemClock final : public Clock {
public:
    SystemClock();
    ZDate now() const override { return ZDate::fromDateTime(QDateTime::currentDateTime()); }
    ZDate standardNow() const override;

private:
    // The zone's standard offset from UTC, taken once: a zone does not
    // change it in the life of a process, and a clock read every few
    // milliseconds by the link's waits must not look the zone up each time.
    std::int64_t m_standardOffsetMs;
};
