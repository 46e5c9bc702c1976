#include "simcore/Faults.h"

namespace sim {

bool FaultPlan::isOn(Fault fault) const
{
    switch (fault) {
    case Fault::Silence: return !silentAddresses.isEmpty();
    case Fault::ByteDrop: return dropProbability > 0;
    case Fault::Noise: return noiseProbability > 0;
    case Fault::Delay: return delayMs > 0;
    case Fault::CounterReset: return !resettingAddresses.isEmpty();
    }
    return false;
}

} // namespace sim
