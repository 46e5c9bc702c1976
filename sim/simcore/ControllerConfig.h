#pragma once

#include <optional>

namespace sim {

// Counter values as the station last stored them (table OstPomiar), in its
// engineering units: kWh for active energy, kvarh for the reactive ones.
struct CounterSeed {
    double activeKWh = 0;
    double reactiveKvarh = 0;
    double capacitiveKvarh = 0;
};

// What the installation tells about one controller (table Regulatory).
struct ControllerConfig {
    int address = 1;
    double currentRatio = 100;   // Przekladnia: current transformer
    int voltageRatio = 1;        // PrzekladniaNap: voltage transformer
    int measuringVoltage = 380;  // NapieciePomiar, V: 100, 380 or 500
    std::optional<CounterSeed> seed;
};

constexpr int kLowestAddress = 0;
constexpr int kHighestAddress = 255;  // the address travels as one byte

} // namespace sim
