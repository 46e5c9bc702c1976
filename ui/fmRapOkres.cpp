#include "fmRapOkres.h"

#include "Raporty.h"

#include "station/Station.h"

#include <QDateTimeEdit>

void fmRapOkres::makeReport()
{
    raporty().RaportOkresowyRegulatora(dtData()->date(), dtDataDo()->date(), selectedId());
}
