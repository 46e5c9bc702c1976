#include "core/Station.h"

#include "core/Clock.h"
#include "core/RunTimeError.h"

Station::Station(const StationServices &s) : services(s) {}

Station::~Station()
{
    // Row sets go before the connection they live on.
    rsOstPomiar.reset();
    rsRegulatory.reset();
    rsPomiary.reset();
    db.reset();
}

Database &Station::connection()
{
    if (!db)
        throw RunTimeError::database(QStringLiteral("Baza danych nie jest otwarta"));
    return *db;
}

ZDate Station::now() const
{
    return services.clock.now();
}
