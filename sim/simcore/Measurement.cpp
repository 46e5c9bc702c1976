#include "simcore/Measurement.h"

#include "simcore/Mains.h"
#include "simcore/RawScale.h"

#include <cmath>
#include <numbers>

namespace sim {

double Measurement::tgFi() const
{
    return activeA > 0 ? reactiveA / activeA : 0;
}

Measurement Measurement::take(const ControllerConfig &config, const LoadPoint &load,
                              double compensationA, qint64 modelMs)
{
    Measurement m;
    m.activeA = load.activeA;
    m.reactiveA = load.reactiveA - compensationA;
    m.totalA = std::hypot(m.activeA, m.reactiveA);
    m.phaseDegrees = std::atan2(m.reactiveA, m.activeA) * 180 / std::numbers::pi;
    m.voltageRaw = RawScale::nominalRawVoltage(config.measuringVoltage)
        * Mains::voltageFactor(modelMs, m.totalA);
    m.periodCount = Mains::periodCount(modelMs);
    return m;
}

} // namespace sim
