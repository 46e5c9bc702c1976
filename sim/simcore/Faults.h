#pragma once

#include <QSet>

namespace sim {

// The ways in which the simulated line can misbehave. Each one is off
// until its setting in FaultPlan switches it on.
enum class Fault {
    // Listed addresses neither answer nor act on writes: a dead or
    // disconnected controller.
    Silence,
    // Each reply byte is lost with a probability: a weak or badly ended line.
    ByteDrop,
    // A reply gets one stray byte at a random place with a probability:
    // interference that the station, having no checksum, takes for data.
    Noise,
    // Every reply starts late by a fixed time: a slow controller or a
    // converter that buffers.
    Delay,
    // Listed addresses lose their counters and timer at each full hour of
    // model time, as after a power cut.
    CounterReset,
};

struct FaultPlan {
    QSet<int> silentAddresses;
    double dropProbability = 0;
    double noiseProbability = 0;
    int delayMs = 0;
    QSet<int> resettingAddresses;

    bool isOn(Fault fault) const;
};

} // namespace sim
