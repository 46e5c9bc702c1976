#pragma once

#include "simcore/ControllerConfig.h"

#include <QtGlobal>

namespace sim {

// The controller's running energy counters, in raw units. It integrates
// active and reactive energy separately and gives out the apparent counter
// as their vector sum, so that the station's Pythagoras gives the active
// energy back. Reactive energy is signed (capacitive negative); the
// capacitive counter gathers only the capacitive part and so runs downward.
class EnergyCounters {
public:
    // Adds one interval: voltage and currents raw, reactive signed.
    void accumulate(double voltageRaw, double activeRaw, double reactiveRaw, double seconds);
    // Starts from the station's last stored values.
    void seed(const CounterSeed &seed, double energyPerUnit);
    void reset();

    // As they travel: 32 bits, wrapping round like the controller's own.
    quint32 apparentWire() const;
    qint32 reactiveWire() const;
    qint32 capacitiveWire() const;

    double active() const { return m_active; }
    double reactive() const { return m_reactive; }
    double capacitive() const { return m_capacitive; }

private:
    double m_active = 0;
    double m_reactive = 0;
    double m_capacitive = 0;
};

} // namespace sim
