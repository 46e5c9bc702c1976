#pragma once

#include <QtGlobal>

namespace sim {

// The supply the controllers hang on: its frequency wanders a little about
// 50 Hz and its voltage swings over the day and sags under load.
namespace Mains {

constexpr double kCountClockHz = 115200;  // the controller times a mains period by it

double frequencyHz(qint64 localMs);
// Factor on the rated voltage; currentA is the feed's secondary current.
double voltageFactor(qint64 localMs, double currentA);
// What the controller counts for one mains period.
int periodCount(qint64 localMs);

} // namespace Mains
} // namespace sim
