#pragma once

#include "simcore/LoadProfile.h"
#include "simcore/StageBank.h"

namespace sim {

// The band in which the controller holds tg fi.
struct TgBand {
    double min = 0.1;
    double max = 0.4;
    double middle() const { return (min + max) / 2; }
    bool contains(double tg) const { return tg >= min && tg <= max; }
};

// tg fi of the load with the stages that are on: net reactive over active.
double netTgFi(const LoadPoint &load, double compensationA);

// The controller's own regulation: at each decision it switches at most one
// stage, the one that brings tg fi nearest the middle of the band without
// leaving the band on the other side. A stage switched off starts its
// discharge timer and is not switched on again before it has run out.
class AutoRegulation {
public:
    static constexpr qint64 kDecisionMs = 10000;  // the controller's reaction time

    explicit AutoRegulation(TgBand band = {}) : m_band(band) {}
    const TgBand &band() const { return m_band; }
    // Returns the stage it switched, or -1.
    int decide(StageBank &stages, const LoadPoint &load) const;
    // One manual step of the + or - key: the first usable stage.
    static int stepOn(StageBank &stages);
    static int stepOff(StageBank &stages);

private:
    int bestStage(const StageBank &stages, const LoadPoint &load, bool switchOn) const;
    TgBand m_band;
};

} // namespace sim
