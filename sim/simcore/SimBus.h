#pragma once

#include "simcore/Faults.h"
#include "simcore/FrameLog.h"
#include "simcore/FrameReader.h"
#include "simcore/SimClock.h"
#include "simcore/SimController.h"

#include <QByteArray>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace sim {

// Bytes to put on the line: wait delayMs, then send them one after the
// other, kByteMs apart unless the port runs unpaced.
struct Transmission {
    qint64 delayMs = 0;
    QByteArray bytes;
};

// The line with its controllers, free of any I/O: the port feeds it what
// the station sent and puts on the line what it gives back. Two clocks:
// the line's (real time, for frame gaps and the log) and the model's
// (which may run faster, or be a manual one in tests).
class SimBus {
public:
    using LogSink = std::function<void(const FrameLogEntry &)>;

    SimBus(const SimClock &lineClock, const SimClock &modelClock, quint32 randomSeed = 1);

    // A second controller at the same address replaces the first.
    SimController &addController(const ControllerConfig &config);
    SimController *controller(int address);
    int controllerCount() const { return int(m_controllers.size()); }

    void setFaults(const FaultPlan &plan);
    const FaultPlan &faults() const { return m_faults; }
    void setLogSink(LogSink sink) { m_log = std::move(sink); }

    std::vector<Transmission> receive(const QByteArray &bytes);

private:
    void serve(const Request &request, std::vector<Transmission> &out);
    Transmission transmit(int address, const QByteArray &reply);
    QByteArray dropBytes(const QByteArray &bytes);
    QByteArray addNoise(const QByteArray &bytes);
    bool chance(double probability);
    void log(FrameLogEntry::Kind kind, int address, const QByteArray &bytes,
             const QString &note = {});

    const SimClock &m_lineClock;
    const SimClock &m_modelClock;
    std::map<int, std::unique_ptr<SimController>> m_controllers;
    FrameReader m_reader;
    FaultPlan m_faults;
    std::mt19937 m_random;
    LogSink m_log;
};

} // namespace sim
