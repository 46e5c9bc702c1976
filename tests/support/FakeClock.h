#pragma once

#include "base/Clock.h"

// A clock that moves only when a test moves it.
class FakeClock final : public Clock {
public:
    explicit FakeClock(ZDate start = ZDate::fromParts(2024, 1, 15, 8, 0, 0)) : m_now(start) {}
    ZDate now() const override { return m_now; }
    void set(ZDate t) { m_now = t; }
    void advanceMs(std::int64_t ms) { m_now = m_now.addMsecs(ms); }

private:
    ZDate m_now;
};
