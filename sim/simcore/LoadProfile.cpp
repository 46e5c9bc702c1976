#include "simcore/LoadProfile.h"

#include "simcore/SimClock.h"

#include <cmath>
#include <numbers>

namespace sim {

namespace {

// A bell around the hour centre, measured the short way round the clock.
double bell(double hour, double centre, double width)
{
    double d = std::fabs(hour - centre);
    d = std::min(d, 24 - d);
    return std::exp(-0.5 * (d / width) * (d / width));
}

} // namespace

LoadProfile::LoadProfile(int address)
    : m_scale(0.8 + 0.05 * (address % 8)),
      m_shiftHours(0.25 * (address % 5)),
      m_ripplePhase(address * 0.7)
{
}

LoadPoint LoadProfile::at(qint64 localMs) const
{
    const double hour = std::fmod(msOfDay(localMs) / 3.6e6 + 24 - m_shiftHours, 24.0);
    const double minutes = double(localMs % (1000LL * 3600 * 24 * 7)) / 60000.0;
    const double ripple = 1 + 0.03 * std::sin(2 * std::numbers::pi * minutes / 7 + m_ripplePhase);
    const double active = (1.2 + 1.5 * bell(hour, 10, 3) + 1.0 * bell(hour, 19, 2)) * m_scale;
    const double tgLoad = 0.55 + 0.35 * bell(hour, 12, 4);
    return {active * ripple, active * ripple * tgLoad};
}

} // namespace sim
