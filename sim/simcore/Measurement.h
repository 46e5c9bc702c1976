#pragma once

#include "simcore/ControllerConfig.h"
#include "simcore/LoadProfile.h"

#include <QtGlobal>

namespace sim {

// What the controller's inputs see at one moment, on the secondary side of
// its transformers: the load less the stages that are on.
struct Measurement {
    double voltageRaw = 0;
    double activeA = 0;
    double reactiveA = 0;  // net of compensation; negative when capacitive
    double totalA = 0;
    double phaseDegrees = 0;
    int periodCount = 0;   // 115200 Hz counts of one mains period

    double tgFi() const;
    static Measurement take(const ControllerConfig &config, const LoadPoint &load,
                            double compensationA, qint64 modelMs);
};

} // namespace sim
