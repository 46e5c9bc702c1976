#include "simcore/Mains.h"

#include "simcore/SimClock.h"

#include <cmath>
#include <numbers>

namespace sim::Mains {

namespace {

double cycle(qint64 localMs, double periodMinutes)
{
    const double minutes = double(msOfDay(localMs)) / 60000.0;
    return std::sin(2 * std::numbers::pi * minutes / periodMinutes);
}

} // namespace

double frequencyHz(qint64 localMs)
{
    return 50 + 0.04 * cycle(localMs, 13);
}

double voltageFactor(qint64 localMs, double currentA)
{
    return 1 + 0.015 * cycle(localMs, 24 * 60 / 2.0) - 0.006 * currentA;
}

int periodCount(qint64 localMs)
{
    return int(std::lround(kCountClockHz / frequencyHz(localMs)));
}

} // namespace sim::Mains
