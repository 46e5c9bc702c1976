#include "fmRapDobS.h"

#include "Raporty.h"

#include "station/Station.h"

#include <QDateTimeEdit>

void fmRapDobS::makeReport()
{
    raporty().RaportDobowyObiektu(dtData()->date(), station().oApp.AktElStruktury);
}
