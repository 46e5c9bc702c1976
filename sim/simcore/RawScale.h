#pragma once

#include "simcore/ControllerConfig.h"

namespace sim {

// How the controller's raw numbers relate to volts, amperes and kWh.
// The controller itself only sees the secondary side of its transformers;
// the station applies the ratios when it decodes.
namespace RawScale {

// Raw current units per ampere on the secondary side of the transformer.
constexpr double kCurrentPerAmpere = 200;

// The counters add voltage x current (both raw) divided by this, per second.
constexpr double kCounterDivisor = 800;

// Scale of one raw voltage unit for a measuring voltage: 0 when unknown.
double voltageScale(int measuringVoltage);

// The raw voltage the controller reads at its rated measuring voltage.
int nominalRawVoltage(int measuringVoltage);

// kWh (or kvarh) that one raw counter unit stands for; 0 when the
// measuring voltage is unknown, since then no scale can be given.
double energyPerUnit(const ControllerConfig &config);

} // namespace RawScale
} // namespace sim
