#include "simcore/RawScale.h"

#include <cmath>

namespace sim::RawScale {

double voltageScale(int measuringVoltage)
{
    switch (measuringVoltage) {
    case 100: return 0.25;
    case 380: return 1.0;
    case 500: return 1.25;
    default: return 0.0;
    }
}

int nominalRawVoltage(int measuringVoltage)
{
    const double scale = voltageScale(measuringVoltage);
    return scale > 0 ? int(std::lround(measuringVoltage / scale)) : measuringVoltage;
}

double energyPerUnit(const ControllerConfig &config)
{
    return std::sqrt(3.0) / 100 * config.currentRatio * voltageScale(config.measuringVoltage)
        * config.voltageRatio * 400 / 3600000;
}

} // namespace sim::RawScale
