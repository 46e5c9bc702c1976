#pragma once

#include <QtGlobal>

namespace sim {

// The load on the secondary side of the current transformer, in amperes.
struct LoadPoint {
    double activeA = 0;
    double reactiveA = 0;  // inductive demand of the load, before compensation
};

// A working day's load: low at night, a broad peak before noon and a
// smaller one in the evening, with a slow ripple. Each address gets its
// own size and a shift of its hours, so that no two feeds look the same.
// Deterministic: the same time and address give the same load.
class LoadProfile {
public:
    explicit LoadProfile(int address);
    LoadPoint at(qint64 localMs) const;

private:
    double m_scale;
    double m_shiftHours;
    double m_ripplePhase;
};

} // namespace sim
