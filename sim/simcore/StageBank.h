#pragma once

#include <QtGlobal>
#include <array>

namespace sim {

// The nine capacitor stages of one controller with their discharge timers.
// Stages are numbered 0 to 8; 0 to 7 sit in lamp byte 1, stage 8 in bit 7
// of lamp byte 2, and a clear bit means that the stage is on.
class StageBank {
public:
    static constexpr int kStages = 9;
    static constexpr int kDischargeSeconds = 60;

    bool isOn(int stage) const { return m_on.at(stage); }
    void setOn(int stage, bool on) { m_on.at(stage) = on; }
    // Reactive current a stage takes off the line, secondary amperes.
    static double sizeA(int stage);
    double compensationA() const;
    int countOn() const;

    quint8 lampByte1() const;
    quint8 lampByte2() const;
    void writeLampByte1(quint8 value);
    // Bit 7 is stage 8; the other bits drive panel lamps and are kept.
    void writeLampByte2(quint8 value);

    void startDischarge(int stage, int seconds);
    // Whole seconds left, rounded up, so that 0 means discharged.
    int dischargeLeftSeconds(int stage) const;
    bool isDischarged(int stage) const { return m_dischargeMs.at(stage) <= 0; }
    void elapse(qint64 ms);

private:
    std::array<bool, kStages> m_on{};
    std::array<qint64, kStages> m_dischargeMs{};
    quint8 m_lamp2Rest = 0x7F;  // the other lamps of byte 2, all dark
};

} // namespace sim
