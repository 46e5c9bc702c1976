#include "SimulatedLine.h"

#include "base/Clock.h"
#include "simcore/LineTiming.h"

#include <algorithm>
#include <cmath>

SimulatedLine::SimulatedLine(const Clock &clock, quint32 randomSeed)
    : TimedInputLine(clock), m_simClock(clock), m_bus(m_simClock, m_simClock, randomSeed)
{
}

void SimulatedLine::send(const QByteArray &bytes)
{
    sent.append(bytes);
    const double sentMs = double(clock().standardNow().msecs());
    // the controller sees the frame once it has crossed the line
    const double heardMs = sentMs + double(bytes.size()) * sim::kByteMs;
    for (const sim::Transmission &t : m_bus.receive(bytes)) {
        double startMs = std::max(heardMs + double(t.delayMs), m_lineFreeMs);
        for (char c : t.bytes) {
            startMs += sim::kByteMs; // a byte is in once its last bit is
            const ZDate when = ZDate::fromMsecs(std::int64_t(std::ceil(startMs)));
            arrive(when, static_cast<std::uint8_t>(c));
        }
        m_lineFreeMs = startMs;
    }
}
