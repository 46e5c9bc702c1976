#include "station/ControllerLoader.h"
#include "base/Conversions.h"
#include "base/SplashView.h"
#include "db/ControllerStore.h"
#include "db/SchemaVersion.h"
#include "station/Station.h"

void Station::StartUp()
{
    Station &station = *this;
    fillBitMasks(station.bitMasks);

    station.services.splash.showProgress(QStringLiteral("Otwieram bazę danych i wczytuje regulatory..."));

    station.db = std::make_unique<Database>(DatabaseConfig::fromSettings(station.services.settings));
    station.db->open();
    SchemaVersion::check(*station.db);

    station.rsPomiary = std::make_unique<RowSet>(*station.db);
    station.rsRegulatory = std::make_unique<RowSet>(*station.db);
    station.rsOstPomiar = std::make_unique<RowSet>(*station.db);
    // a controller is deleted through this set; a row is told by its code and address
    station.rsRegulatory->open(ControllerStore::allByKod(), QStringLiteral("Regulatory"), ControllerStore::rowKey());
    station.rsPomiary->openTable(QStringLiteral("Pomiary"));
    station.rsOstPomiar->openTable(QStringLiteral("OstPomiar"));

    ControllerLoader loader(*station.rsRegulatory, *station.rsOstPomiar, station.Regulatory);
    std::int16_t count = 0;
    RowSet &rows = *station.rsRegulatory;
    rows.MoveFirst();
    while (!rows.EOF_()) {
        // exactly "regulator", untrimmed and case-sensitive: anything else is inert
        if (rows.field(QStringLiteral("typ")).toString() == QLatin1String("regulator")) {
            count = conv::add16(count, 1);
            loader.load(count);
        }
        rows.MoveNext();
    }
    station.oApp.IloscRegulatorow = count;
    station.oApp.NrAktRegulatora = 1;
}
