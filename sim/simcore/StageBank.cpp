#include "simcore/StageBank.h"

#include <algorithm>

namespace sim {

namespace {

constexpr quint8 kStage8Bit = 0x80;

} // namespace

double StageBank::sizeA(int stage)
{
    // Two small stages for fine steps, then equal ones.
    return stage < 2 ? 0.25 : 0.5;
}

double StageBank::compensationA() const
{
    double sum = 0;
    for (int s = 0; s < kStages; ++s)
        sum += m_on[s] ? sizeA(s) : 0;
    return sum;
}

int StageBank::countOn() const
{
    return int(std::count(m_on.begin(), m_on.end(), true));
}

quint8 StageBank::lampByte1() const
{
    quint8 byte = 0xFF;
    for (int s = 0; s < 8; ++s)
        if (m_on[s])
            byte &= quint8(~(1u << s));
    return byte;
}

quint8 StageBank::lampByte2() const
{
    return quint8(m_lamp2Rest | (m_on[8] ? 0 : kStage8Bit));
}

void StageBank::writeLampByte1(quint8 value)
{
    for (int s = 0; s < 8; ++s)
        m_on[s] = !(value & (1u << s));
}

void StageBank::writeLampByte2(quint8 value)
{
    m_on[8] = !(value & kStage8Bit);
    m_lamp2Rest = value & quint8(~kStage8Bit);
}

void StageBank::startDischarge(int stage, int seconds)
{
    m_dischargeMs.at(stage) = qint64(seconds) * 1000;
}

int StageBank::dischargeLeftSeconds(int stage) const
{
    return int((m_dischargeMs.at(stage) + 999) / 1000);
}

void StageBank::elapse(qint64 ms)
{
    for (qint64 &left : m_dischargeMs)
        left = std::max<qint64>(0, left - ms);
}

} // namespace sim
