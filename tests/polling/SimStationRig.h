#pragma once

#include "HeadlessStation.h"
#include "SimulatedLine.h"
#include "TestEnv.h"

#include <QVariantMap>

// A headless station in a temporary directory, on the simulated line: each
// controller added is both a row of Regulatory and a simulated controller
// at the same address with the same transformers.
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
        c.currentRatio = overrides.value(QStringLiteral("Przekladnia"), 100.0).toDouble();
        c.voltageRatio = overrides.value(QStringLiteral("PrzekladniaNap"), 1).toInt();
        c.measuringVoltage = overrides.value(QStringLiteral("NapieciePomiar"), 380).toInt();
        line.bus().addController(c);
    }
    void silence(std::initializer_list<int> addresses)
    {
        sim::FaultPlan plan = line.bus().faults();
        for (int a : addresses)
            plan.silentAddresses.insert(a);
        line.bus().setFaults(plan);
    }

    Station &s() { return station.station(); }
    clRegulator &reg(const QString &kod) { return s().Regulatory.Item(kod); }
    ZDate now() const { return station.clock.now(); }
    // The addresses of the frames sent, in order.
    QList<int> addressesSent() const
    {
        QList<int> out;
        for (const QByteArray &f : line.sent)
            out << quint8(f.at(1));
        return out;
    }

    TestEnv env;
    HeadlessStation station{QStringLiteral("zorbel.db")};
    SimulatedLine line{station.clock};
};

inline QByteArray frame(std::initializer_list<int> values)
{
    QByteArray b;
    for (int v : values)
        b.append(char(v));
    return b;
}
