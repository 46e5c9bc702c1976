#include "core/Station.h"

Station::Station(const StationServices &s) : services(s) {}

Station::~Station()
{
    // Row sets go before the connection they live on.
    rsOstPomiar.reset();
    rsRegulatory.reset();
    rsPomiary.reset();
    db.reset();
}
