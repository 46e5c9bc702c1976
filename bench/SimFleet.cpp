#include "SimFleet.h"

#include "LargeArchive.h"

SimFleet::SimFleet(const DatabaseConfig &db) : station(db)
{
    station.attachLine(line, FakeEventPump::arrivalsOf(line));
}

void SimFleet::addRows(int n)
{
    for (int adres = 1; adres <= n; ++adres)
        addRow(adres);
}

void SimFleet::addRow(int adres)
{
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
