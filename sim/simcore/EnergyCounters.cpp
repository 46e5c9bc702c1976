#include "simcore/EnergyCounters.h"

#include "simcore/RawScale.h"

#include <algorithm>
#include <cmath>

namespace sim {

namespace {

quint32 wrap32(double value)
{
    return quint32(quint64(std::llround(value)));
}

} // namespace

void EnergyCounters::accumulate(double voltageRaw, double activeRaw, double reactiveRaw,
                                double seconds)
{
    const double k = voltageRaw * seconds / RawScale::kCounterDivisor;
    m_active += activeRaw * k;
    m_reactive += reactiveRaw * k;
    m_capacitive += std::min(reactiveRaw, 0.0) * k;
}

void EnergyCounters::seed(const CounterSeed &seed, double energyPerUnit)
{
    if (energyPerUnit <= 0)
        return;  // the station reads every energy as 0: nothing to continue
    m_active = std::max(seed.activeKWh, 0.0) / energyPerUnit;
    m_reactive = seed.reactiveKvarh / energyPerUnit;
    m_capacitive = seed.capacitiveKvarh / energyPerUnit;
}

void EnergyCounters::reset()
{
    m_active = m_reactive = m_capacitive = 0;
}

quint32 EnergyCounters::apparentWire() const
{
    return wrap32(std::hypot(m_active, m_reactive));
}

qint32 EnergyCounters::reactiveWire() const
{
    return qint32(wrap32(m_reactive));
}

qint32 EnergyCounters::capacitiveWire() const
{
    return qint32(wrap32(m_capacitive));
}

} // namespace sim
