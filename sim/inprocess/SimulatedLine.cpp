#include "SimulatedLine.h"

#include "core/Clock.h"
#include "simcore/LineTiming.h"

#include <algorithm>
#include <cmath>

SimulatedLine::SimulatedLine(const Clock &clock, quint32 randomSeed)
    : m_clock(clock), m_simClock(clock), m_bus(m_simClock, m_simClock, randomSeed)
{
}

bool SimulatedLine::open(std::uint8_t)
{
    m_error = m_openFailure;
    m_open = m_openFailure.isEmpty();
    return m_open;
}

std::deque<SimulatedLine::Arrival>::const_iterator SimulatedLine::firstInTransit() const
{
    const ZDate now = m_clock.now();
    return std::partition_point(m_input.begin(), m_input.end(), [now](const Arrival &a) { return a.when <= now; });
}

std::optional<ZDate> SimulatedLine::nextArrival() const
{
    const auto it = firstInTransit();
    if (it == m_input.end())
        return std::nullopt;
    return it->when;
}

int SimulatedLine::bytesWaiting() const
{
    return int(firstInTransit() - m_input.begin());
}

int SimulatedLine::readByte()
{
    if (m_input.empty() || m_input.front().when > m_clock.now())
        return -1;
    const int b = m_input.front().byte;
    m_input.pop_front();
    return b;
}

void SimulatedLine::send(const QByteArray &bytes)
{
    sent.append(bytes);
    const double sentMs = double(m_clock.now().msecs());
    // the controller sees the frame once it has crossed the line
    const double heardMs = sentMs + double(bytes.size()) * sim::kByteMs;
    for (const sim::Transmission &t : m_bus.receive(bytes)) {
        double startMs = std::max(heardMs + double(t.delayMs), m_lineFreeMs);
        for (char c : t.bytes) {
            startMs += sim::kByteMs; // a byte is in once its last bit is
            const ZDate when = ZDate::fromMsecs(std::int64_t(std::ceil(startMs)));
            m_input.push_back({when, static_cast<std::uint8_t>(c)});
        }
        m_lineFreeMs = startMs;
    }
}

void SimulatedLine::discardInput()
{
    m_input.erase(m_input.begin(), firstInTransit());
}
