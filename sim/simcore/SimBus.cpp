#include "simcore/SimBus.h"

#include "simcore/Stuffing.h"

#include <QStringList>

namespace sim {

SimBus::SimBus(const SimClock &lineClock, const SimClock &modelClock, quint32 randomSeed)
    : m_lineClock(lineClock), m_modelClock(modelClock), m_random(randomSeed)
{
}

SimController &SimBus::addController(const ControllerConfig &config)
{
    auto controller = std::make_unique<SimController>(config, m_modelClock.nowMs());
    controller->setCounterResets(m_faults.resettingAddresses.contains(config.address));
    SimController &ref = *controller;
    m_controllers[config.address] = std::move(controller);
    return ref;
}

SimController *SimBus::controller(int address)
{
    const auto it = m_controllers.find(address);
    return it == m_controllers.end() ? nullptr : it->second.get();
}

void SimBus::setFaults(const FaultPlan &plan)
{
    m_faults = plan;
    for (auto &[address, controller] : m_controllers)
        controller->setCounterResets(plan.resettingAddresses.contains(address));
}

std::vector<Transmission> SimBus::receive(const QByteArray &bytes)
{
    const FrameReader::Output input = m_reader.feed(bytes, m_lineClock.nowMs());
    if (!input.discarded.isEmpty())
        log(FrameLogEntry::Kind::Discarded, -1, input.discarded);
    std::vector<Transmission> out;
    for (const Request &request : input.requests)
        serve(request, out);
    return out;
}

void SimBus::serve(const Request &request, std::vector<Transmission> &out)
{
    log(FrameLogEntry::Kind::Received, request.address, request.bytes());
    SimController *target = controller(request.address);
    if (!target)
        return;  // another controller's frame, or nobody there
    if (m_faults.silentAddresses.contains(request.address)) {
        log(FrameLogEntry::Kind::Silent, request.address, {});
        return;
    }
    if (!target->understands(request)) {
        log(FrameLogEntry::Kind::Ignored, request.address, {}, QStringLiteral("nieznane zapytanie"));
        return;
    }
    target->advanceTo(m_modelClock.nowMs());
    const QByteArray reply = target->answer(request);
    if (!reply.isEmpty())
        out.push_back(transmit(request.address, reply));
}

Transmission SimBus::transmit(int address, const QByteArray &reply)
{
    const QByteArray stuffed = stuffReply(reply);
    const QByteArray kept = dropBytes(stuffed);
    Transmission t;
    t.delayMs = m_faults.delayMs;
    t.bytes = addNoise(kept);
    QStringList notes;
    if (t.delayMs > 0)
        notes << QStringLiteral("po %1 ms").arg(t.delayMs);
    if (kept.size() != stuffed.size())
        notes << QStringLiteral("utracone bajty: %1 z %2").arg(stuffed.size() - kept.size()).arg(stuffed.size());
    if (t.bytes.size() != kept.size())
        notes << QStringLiteral("dodany bajt zakłócenia");
    log(FrameLogEntry::Kind::Answered, address, t.bytes, notes.join(QStringLiteral(", ")));
    return t;
}

QByteArray SimBus::dropBytes(const QByteArray &bytes)
{
    if (!m_faults.isOn(Fault::ByteDrop))
        return bytes;
    QByteArray kept;
    for (char c : bytes)
        if (!chance(m_faults.dropProbability))
            kept.append(c);
    return kept;
}

QByteArray SimBus::addNoise(const QByteArray &bytes)
{
    if (!m_faults.isOn(Fault::Noise) || !chance(m_faults.noiseProbability))
        return bytes;
    std::uniform_int_distribution<int> place(0, int(bytes.size()));
    std::uniform_int_distribution<int> value(0, 255);
    QByteArray noisy = bytes;
    noisy.insert(place(m_random), char(value(m_random)));
    return noisy;
}

bool SimBus::chance(double probability)
{
    return std::uniform_real_distribution<double>(0, 1)(m_random) < probability;
}

void SimBus::log(FrameLogEntry::Kind kind, int address, const QByteArray &bytes,
                 const QString &note)
{
    if (m_log)
        m_log({m_lineClock.nowMs(), kind, address, bytes, note});
}

} // namespace sim
