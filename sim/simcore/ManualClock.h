#pragma once

#include "simcore/SimClock.h"

namespace sim {

// A clock that moves only when told: for tests and for a port that runs
// the bus in virtual time.
class ManualClock final : public SimClock {
public:
    explicit ManualClock(qint64 startMs = 0) : m_now(startMs) {}
    qint64 nowMs() const override { return m_now; }
    void set(qint64 ms) { m_now = ms; }
    void advance(qint64 ms) { m_now += ms; }

private:
    qint64 m_now;
};

} // namespace sim
