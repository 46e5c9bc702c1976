#include "simcore/AutoRegulation.h"

#include <cmath>
#include <limits>

namespace sim {

namespace {

void switchOff(StageBank &stages, int stage)
{
    stages.setOn(stage, false);
    stages.startDischarge(stage, StageBank::kDischargeSeconds);
}

bool canSwitch(const StageBank &stages, int stage, bool switchOn)
{
    return switchOn ? !stages.isOn(stage) && stages.isDischarged(stage) : stages.isOn(stage);
}

} // namespace

double netTgFi(const LoadPoint &load, double compensationA)
{
    if (load.activeA <= 0)
        return 0;
    return (load.reactiveA - compensationA) / load.activeA;
}

int AutoRegulation::decide(StageBank &stages, const LoadPoint &load) const
{
    const double tg = netTgFi(load, stages.compensationA());
    int stage = -1;
    if (tg > m_band.max) {
        stage = bestStage(stages, load, true);
        if (stage >= 0)
            stages.setOn(stage, true);
    } else if (tg < m_band.min) {
        stage = bestStage(stages, load, false);
        if (stage >= 0)
            switchOff(stages, stage);
    }
    return stage;
}

int AutoRegulation::bestStage(const StageBank &stages, const LoadPoint &load,
                              bool switchOn) const
{
    int best = -1;
    double bestDistance = std::numeric_limits<double>::max();
    for (int s = 0; s < StageBank::kStages; ++s) {
        if (!canSwitch(stages, s, switchOn))
            continue;
        const double delta = switchOn ? StageBank::sizeA(s) : -StageBank::sizeA(s);
        const double tg = netTgFi(load, stages.compensationA() + delta);
        // Never overshoot the band: that would make the next decision undo this one.
        const bool overshoots = switchOn ? tg < m_band.min : tg > m_band.max;
        const double distance = std::fabs(tg - m_band.middle());
        if (!overshoots && distance < bestDistance) {
            best = s;
            bestDistance = distance;
        }
    }
    return best;
}

int AutoRegulation::stepOn(StageBank &stages)
{
    for (int s = 0; s < StageBank::kStages; ++s) {
        if (canSwitch(stages, s, true)) {
            stages.setOn(s, true);
            return s;
        }
    }
    return -1;
}

int AutoRegulation::stepOff(StageBank &stages)
{
    for (int s = StageBank::kStages - 1; s >= 0; --s) {
        if (stages.isOn(s)) {
            switchOff(stages, s);
            return s;
        }
    }
    return -1;
}

} // namespace sim
