#pragma once

#include "base/Clock.h"

// A clock that moves only when a test moves it. It keeps standard time;
// the wall clock is an hour ahead of it while summer time is set and in
// force, as in central Europe.
class FakeClock final : public Clock {
public:
    static constexpr std::int64_t SummerShiftMs = 60 * ZDate::MsPerMinute;

    explicit FakeClock(ZDate start = ZDate::fromParts(2024, 1, 15, 8, 0, 0)) : m_standard(start) {}
    ZDate now() const override { return m_standard.addMsecs(summerShift(m_standard)); }
    ZDate standardNow() const override { return m_standard; }
    // Sets the wall clock; in the hour that the end of summer time repeats, its first pass.
    void set(ZDate wallClock)
    {
        const ZDate summer = wallClock.addMsecs(-SummerShiftMs);
        m_standard = summerShift(summer) != 0 ? summer : wallClock;
    }
    void setStandard(ZDate t) { m_standard = t; }
    void advanceMs(std::int64_t ms) { m_standard = m_standard.addMsecs(ms); }
    // Summer time from `begins` to `ends`, both in standard time: in the
    // European Union 02:00 of the last Sundays of March and of October.
    void setSummerTime(ZDate begins, ZDate ends)
    {
        m_summerBegins = begins;
        m_summerEnds = ends;
    }

private:
    std::int64_t summerShift(ZDate standard) const
    {
        return standard >= m_summerBegins && standard < m_summerEnds ? SummerShiftMs : 0;
    }

    ZDate m_standard;
    ZDate m_summerBegins;
    ZDate m_summerEnds; // equal to the beginning: no summer time
};
