#pragma once

#include "HeadlessStation.h"
#include "SimulatedLine.h"
#include "TestEnv.h"

// A headless station in a temporary directory on the simulated line: each
// controller is a row of Regulatory and a simulated controller at its address.
struct SimStationRig {
    SimStationRig()
    {
        station.createDatabase();
        station.attachLine(line, FakeEventPump::arrivalsOf(line));
    }
    void addController(const QString &kod, int adres, const QVariantMap &overrides = {})
    {
        station.addController(kod, adres, overrides);
        sim::ControllerConfig c;
        c.address = adres;
        line.bus().addController(c);
    }
    void silence(std::initializer_list<int> addresses)
    {
        sim::FaultPlan plan = line.bus().faults();
        plan.silentAddresses.unite(QSet<int>(addresses));
        line.bus().setFaults(plan);
    }
    void queueRead(int id) { s().Kolejka.Add(id, QueueOp::ReadState, QVariant::fromValue(now()), 0, {}); }
    Station &s() { return station.station(); }
    clRegulator &reg(const QString &kod) { return s().Regulatory.Item(kod); }
    ZDate now() const { return station.clock.now(); }
    // Byte `at` of each frame sent, in order: 1 the address, 2 the register.
    QList<int> sent(int at = 1) const
    {
        QList<int> out;
        for (const QByteArray &f : line.sent)
            out << quint8(f.at(at));
        return out;
    }

    TestEnv env;
    HeadlessStation station{QStringLiteral("zorbel.db")};
    SimulatedLine line{station.clock};
};

inline ZDate at(int h, int m, int s = 0, int ms = 0)
{
    return ZDate::fromParts(2024, 1, 15, h, m, s, ms);
}
