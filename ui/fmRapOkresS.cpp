#include "fmRapOkresS.h"

#include "Raporty.h"

#include "station/Station.h"

#include <QDateTimeEdit>

void fmRapOkresS::makeReport()
{
    raporty().RaportOkresowyObiektu(dtData()->date(), dtDataDo()->date(), station().oApp.AktElStruktury);
}
