#include "SimFleet.h"

#include "LargeArchive.h"

SimFleet::SimFleet(const QString &dbFile) : station(dbFile)
{
    station.attachLine(line, FakeEventPump::arrivalsOf(line));
}

void SimFleet::addRows(int n)
{
    for (int adres = 1; adres <= n; ++adres)
        station.addController(LargeArchive::kodOf(adres), adres);
}

void SimFleet::addSimulated(int n)
{
    for (int adres = 1; adres <= n; ++adres) {
        sim::ControllerConfig c;
        c.address = adres;
        line.bus().addController(c);
    }
}
