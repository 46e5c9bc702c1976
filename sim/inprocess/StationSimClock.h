#pragma once

#include "base/Clock.h"
#include "simcore/SimClock.h"

namespace sim {

// The simulator's time read off the station's clock, so that controllers
// in the same process live on the station's (possibly fake) time: the
// station's standard time, which summer time does not move, so that the
// line's pace never jumps; the station counts from 30 December 1899, the
// simulator from 1 January 1970.
class StationSimClock final : public SimClock {
public:
    // Days from 1899-12-30 to 1970-01-01.
    static constexpr qint64 kEpochOffsetMs = 25569LL * kMsPerDay;

    explicit StationSimClock(const Clock &clock) : m_clock(clock) {}
    qint64 nowMs() const override { return m_clock.standardNow().msecs() - kEpochOffsetMs; }

private:
    const Clock &m_clock;
};

} // namespace sim
