#pragma once

#include "simcore/AutoRegulation.h"
#include "simcore/ControllerConfig.h"
#include "simcore/DataBlock.h"
#include "simcore/EnergyCounters.h"
#include "simcore/LoadProfile.h"
#include "simcore/Measurement.h"
#include "simcore/PanelKeys.h"
#include "simcore/Request.h"
#include "simcore/StageBank.h"

#include <QByteArray>

namespace sim {

// One compensation controller: its load, its stages and their regulation,
// its counters and panel, and the registers through which the station
// reaches them. Model time moves only through advanceTo().
class SimController {
public:
    static constexpr quint8 kLeadByte = 0x06;  // opens the data reply
    static constexpr qint64 kStepMs = 1000;    // integration step of the model

    SimController(const ControllerConfig &config, qint64 modelMs);

    int address() const { return m_config.address; }
    const ControllerConfig &config() const { return m_config; }

    void advanceTo(qint64 modelMs);
    // The reply to a request for this controller, before stuffing; empty
    // when the request wants none or the controller does not know it.
    QByteArray answer(const Request &request);
    bool understands(const Request &request) const;
    // Counters and timer fall to 0 at each full hour of model time.
    void setCounterResets(bool on) { m_counterResets = on; }

    DataBlock dataBlock() const;
    Measurement measurement() const;
    const StageBank &stages() const { return m_stages; }
    const EnergyCounters &counters() const { return m_counters; }
    quint8 blockingByte() const { return m_blocking; }
    bool regulating() const;
    quint8 registerValue(quint8 reg) const;

private:
    void write(quint8 reg, quint8 value);
    void pressKeys(quint8 keys);
    void simulate(qint64 ms);
    void resetAtHour(qint64 fromMs, qint64 toMs);
    void settle();

    ControllerConfig m_config;
    LoadProfile m_profile;
    AutoRegulation m_regulation;
    StageBank m_stages;
    EnergyCounters m_counters;
    PanelKeys m_keys;
    qint64 m_modelMs;
    qint64 m_sinceDecisionMs = 0;
    qint64 m_uptimeMs = 0;
    quint8 m_blocking = 0;
    bool m_counterResets = false;
};

} // namespace sim
