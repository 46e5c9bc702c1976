#pragma once

#include "HeadlessStation.h"
#include "SimulatedLine.h"

// A headless station on the simulated line (fake clock, in-process
// controllers) for the benches of a large installation: controllers at
// addresses 1..n, each a row of Regulatory and a simulated controller.
class SimFleet {
public:
    explicit SimFleet(const DatabaseConfig &db);

    // Rows of Regulatory (station's defaults) for addresses 1..n, in a
    // database already open, coded as in the large archive ("R001").
    void addRows(int n);
    void addRow(int adres);
    // Simulated controllers at addresses 1..n on the line.
    void addSimulated(int n);

    HeadlessStation station;
    SimulatedLine line{station.clock};
};
