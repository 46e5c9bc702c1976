#include "simcore/SimController.h"

#include "simcore/PanelBytes.h"
#include "simcore/RawScale.h"
#include "simcore/Registers.h"
#include "simcore/SimClock.h"

#include <algorithm>
#include <cmath>

namespace sim {

namespace {

constexpr qint64 kMsPerHour = 3600LL * 1000;
constexpr double kRawPerAmpere = RawScale::kCurrentPerAmpere;

qint16 raw16(double value)
{
    return qint16(std::clamp<long>(std::lround(value), -32768, 32767));
}

} // namespace

SimController::SimController(const ControllerConfig &config, qint64 modelMs)
    : m_config(config), m_profile(config.address), m_modelMs(modelMs)
{
    if (config.seed)
        m_counters.seed(*config.seed, RawScale::energyPerUnit(config));
    settle();
}

// A controller that has run for a while already holds tg fi in its band.
void SimController::settle()
{
    const LoadPoint load = m_profile.at(m_modelMs);
    for (int i = 0; i < StageBank::kStages; ++i)
        if (m_regulation.decide(m_stages, load) < 0)
            break;
}

bool SimController::regulating() const
{
    return !(m_blocking & Registers::kBlockedBit) && !m_keys.manual();
}

void SimController::advanceTo(qint64 modelMs)
{
    while (m_modelMs < modelMs) {
        const qint64 step = std::min(kStepMs, modelMs - m_modelMs);
        simulate(step);
    }
}

void SimController::simulate(qint64 ms)
{
    const qint64 middle = m_modelMs + ms / 2;
    const LoadPoint load = m_profile.at(middle);
    const Measurement m = Measurement::take(m_config, load, m_stages.compensationA(), middle);
    m_counters.accumulate(m.voltageRaw, m.activeA * kRawPerAmpere, m.reactiveA * kRawPerAmpere,
                          ms / 1000.0);
    m_stages.elapse(ms);
    m_sinceDecisionMs += ms;
    if (m_sinceDecisionMs >= AutoRegulation::kDecisionMs) {
        m_sinceDecisionMs = 0;
        if (regulating())
            m_regulation.decide(m_stages, load);
    }
    m_uptimeMs += ms;
    if (m_counterResets)
        resetAtHour(m_modelMs, m_modelMs + ms);
    m_modelMs += ms;
}

void SimController::resetAtHour(qint64 fromMs, qint64 toMs)
{
    if (fromMs / kMsPerHour != toMs / kMsPerHour) {
        m_counters.reset();
        m_uptimeMs = 0;
    }
}

Measurement SimController::measurement() const
{
    return Measurement::take(m_config, m_profile.at(m_modelMs), m_stages.compensationA(),
                             m_modelMs);
}

DataBlock SimController::dataBlock() const
{
    const Measurement m = measurement();
    DataBlock b;
    b.apparentCounter = m_counters.apparentWire();
    b.capacitiveCounter = m_counters.capacitiveWire();
    b.reactiveCounter = m_counters.reactiveWire();
    b.timer = quint32(m_uptimeMs / 1000);
    b.voltage = raw16(m.voltageRaw);
    b.reactiveCurrent = raw16(m.reactiveA * kRawPerAmpere);
    b.totalCurrent = raw16(m.totalA * kRawPerAmpere);
    b.phase = raw16(m.phaseDegrees * 10);
    b.periodLessOne = raw16(m.periodCount - 1);
    b.keyState1 = PanelBytes::keyState1(m_blocking & Registers::kBlockedBit, m_keys.manual());
    b.keyState2 = m_keys.keyState2();
    b.display = PanelBytes::display(m.tgFi());
    return b;
}

quint8 SimController::registerValue(quint8 reg) const
{
    if (Registers::isDischarge(reg))
        return quint8(m_stages.dischargeLeftSeconds(reg - Registers::kFirstDischarge));
    switch (reg) {
    case Registers::kBlocking: return m_blocking;
    case Registers::kKeys: return m_keys.keyState2();
    case Registers::kLamps1: return m_stages.lampByte1();
    case Registers::kLamps2: return m_stages.lampByte2();
    case Registers::kLamps3: return PanelBytes::lampByte3(measurement().tgFi(), m_regulation.band());
    default: return 0;
    }
}

bool SimController::understands(const Request &r) const
{
    if (r.reg == Registers::kDataBlock)
        return r.function == Functions::kPrepareBlock;
    if (Functions::isRead(r.function))
        return true;
    return Functions::isWrite(r.function) && r.reg != Registers::kLamps3;
}

QByteArray SimController::answer(const Request &r)
{
    if (!understands(r))
        return {};
    if (r.function == Functions::kPrepareBlock)
        return QByteArray(1, char(kLeadByte)) + dataBlock().encode();
    if (Functions::isRead(r.function))
        return QByteArray(1, char(registerValue(r.reg)));
    write(r.reg, r.value);
    return {};
}

void SimController::write(quint8 reg, quint8 value)
{
    if (Registers::isDischarge(reg)) {
        m_stages.startDischarge(reg - Registers::kFirstDischarge, value);
        return;
    }
    switch (reg) {
    case Registers::kBlocking: m_blocking = value; break;
    case Registers::kKeys: pressKeys(value); break;
    case Registers::kLamps1: m_stages.writeLampByte1(value); break;
    case Registers::kLamps2: m_stages.writeLampByte2(value); break;
    default: break;
    }
}

void SimController::pressKeys(quint8 keys)
{
    const quint8 pressed = m_keys.press(keys);
    if (pressed & PanelKeys::kPlus)
        AutoRegulation::stepOn(m_stages);
    if (pressed & PanelKeys::kMinus)
        AutoRegulation::stepOff(m_stages);
}

} // namespace sim
