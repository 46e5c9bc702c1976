#include "core/Shutdown.h"

#include "core/PollingTimers.h"
#include "core/Station.h"
#include "link/LinePort.h"

void stopStation(Station &station, PollingTimers &timers)
{
    timers.Timer1.stop();
    station.services.line.close();
    for (auto *rows : {&station.rsPomiary, &station.rsRegulatory, &station.rsOstPomiar})
        if (*rows)
            (*rows)->close();
    station.oBD.ZapiszDoLoga(QStringLiteral("Zatrzymanie aplikacji"), QStringLiteral("N"), QStringLiteral("L"), QString());
    if (station.db)
        station.db->close();
}
