#include "fmRapDob.h"

#include "Raporty.h"

#include "station/Station.h"

#include <QDateTimeEdit>

void fmRapDob::makeReport()
{
    raporty().RaportDobowyRegulatora(dtData()->date(), selectedId());
}
