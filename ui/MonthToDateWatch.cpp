#include "MonthToDateWatch.h"

#include "base/ReactiveTariff.h"
#include "base/RunTimeError.h"
#include "model/StatusPanels.h"
#include "reports/MonthToDateNotice.h"
#include "station/Station.h"

void MonthToDateWatch::attach(Station &station)
{
    station.timers.setHourly([&station](ZDate now) {
        MonthToDateNotice notice;
        try {
            notice = MonthToDateNotice::check(station.connection(), now, ReactiveTariff::read(station.services.settings));
        } catch (const RunTimeError &e) { // a tariff value that is not a number
            notice.text = QStringLiteral("Rozliczenie energii biernej: ") + e.message();
        }
        station.services.panels.setNotice(notice.text, notice.toolTip);
    });
}
