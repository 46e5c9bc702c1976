#pragma once

#include "FakeClock.h"

#include "link/EventPump.h"
#include "link/ScriptedLine.h"

#include <concepts>
#include <functional>
#include <map>
#include <optional>

// A pump on a fake clock. An idle pass moves the clock to the next byte of
// the line or the next interface event, at most by the idle time allowed;
// then it runs the interface events that are due. A handler may move the
// clock itself: that is time the interface took. Moments here are in the
// clock's standard time, as the line's arrivals are.
//
// The line is any in-memory line that tells when its next byte arrives
// (ScriptedLine, SimulatedLine): its arrivals.
class FakeEventPump final : public EventPump {
public:
    using Arrivals = std::function<std::optional<ZDate>()>;

    FakeEventPump(FakeClock &clock, Arrivals arrivals) : m_clock(clock), m_arrivals(std::move(arrivals)) {}
    template <typename Line>
        requires requires(const Line &l) {
            { l.nextArrival() } -> std::convertible_to<std::optional<ZDate>>;
        }
    FakeEventPump(FakeClock &clock, const Line &line) : FakeEventPump(clock, arrivalsOf(line))
    {
    }

    // Follows another line from now on.
    void setArrivals(Arrivals arrivals) { m_arrivals = std::move(arrivals); }
    template <typename Line>
    static Arrivals arrivalsOf(const Line &line)
    {
        return [&line] { return line.nextArrival(); };
    }

    // An interface event at the given moment.
    void at(ZDate when, std::function<void()> handler) { m_events.emplace(when, std::move(handler)); }
    void afterMs(std::int64_t ms, std::function<void()> handler)
    {
        at(m_clock.standardNow().addMsecs(ms), std::move(handler));
    }

    std::int64_t processEvents(std::int64_t maxIdleMs) override
    {
        ++passes;
        const std::int64_t idle = idleUntilNext(maxIdleMs);
        m_clock.advanceMs(idle);
        idleMs += idle;
        runDueEvents();
        return idle;
    }

    int passes = 0;
    std::int64_t idleMs = 0; // all idle waiting, summed

private:
    std::int64_t idleUntilNext(std::int64_t maxIdleMs) const
    {
        ZDate until = m_clock.standardNow().addMsecs(maxIdleMs);
        if (const auto byte = m_arrivals ? m_arrivals() : std::nullopt)
            until = std::min(until, *byte);
        if (!m_events.empty())
            until = std::min(until, m_events.begin()->first);
        return std::max<std::int64_t>(0, until.msecs() - m_clock.standardNow().msecs());
    }

    void runDueEvents()
    {
        while (!m_events.empty() && m_events.begin()->first <= m_clock.standardNow()) {
            auto handler = std::move(m_events.begin()->second);
            m_events.erase(m_events.begin());
            handler();
        }
    }

    FakeClock &m_clock;
    Arrivals m_arrivals;
    std::multimap<ZDate, std::function<void()>> m_events;
};
