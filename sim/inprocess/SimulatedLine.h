#pragma once

#include "StationSimClock.h"

#include "link/TimedInputLine.h"
#include "simcore/SimBus.h"


class Clock;

// The controller line with simulated controllers on it, inside the
// station's process and on the station's clock: what the station sends
// goes to a sim::SimBus, and each reply comes back byte by byte at the
// pace of the real line. The request itself first crosses the line, then
// the reply waits the transmission's delay, then each byte takes
// sim::kByteMs; a reply never overtakes one still in transit. Nothing
// here waits: a byte counts as received once the clock has reached it,
// which makes the line usable with a fake clock and a fake pump.
class SimulatedLine final : public TimedInputLine {
public:
    explicit SimulatedLine(const Clock &clock, quint32 randomSeed = 1);

    // The bus with its controllers and its fault plan.
    sim::SimBus &bus() { return m_bus; }

    void send(const QByteArray &bytes) override;

private:
    sim::StationSimClock m_simClock;
    sim::SimBus m_bus;
    double m_lineFreeMs = 0; // when the line stops carrying the last scheduled reply byte
};
