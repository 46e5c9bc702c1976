// One stored sample: the energy of the period as the difference of two
// counter readings, and the counters themselves as the base of the next.
#include "model/clRegulator.h"

#include "base/Dialogs.h"
#include "base/NumberForm.h"
#include "base/RunTimeError.h"
#include "base/SampleArchive.h"
#include "model/ControllerContext.h"
#include "base/clsWizual.h"

namespace {


// A counter of 0 at the last sample is an unknown base: the period stores 0.
QVariant difference(float now, float before)
{
    return before == 0 ? QVariant(0) : QVariant(float(now - before));
}

}

void clRegulator::ZapiszDaneDB()
{
    const QVariant enCzynna = difference(PradCzynny, PopPradCzynny);
    const float d = PradBiernPojSr - PopPradBiernPojSr;
    // the capacitive counter runs downward: a rise can only be a reset
    const QVariant enBiernaPoj = d <= 0 ? QVariant(d) : QVariant(1);
    const QVariant enBiernaCalk = difference(PradBiernSr, PopPradBiernSr);
    TgFiOkres = enCzynna.toFloat() != 0 ? enBiernaCalk.toFloat() / enCzynna.toFloat() : NoActiveEnergy;

    // the base of the next sample advances even when this one is lost:
    // a lost period is never added to the next
    PopPradCzynny = PradCzynny;
    PopPradBiernSr = PradBiernSr;
    PopPradBiernPojSr = PradBiernPojSr;
    popTimerU = TimerU;

    StoredSample sample;
    sample.adres = adres;
    sample.EnCzynna = enCzynna;
    sample.EnBiernaPoj = enBiernaPoj;
    sample.EnBiernaCalk = enBiernaCalk;
    sample.Napiecie = Napiecie;
    sample.PradBierny = PradBierny;
    sample.PradCalk = PradCalk;
    sample.Czestotliwosc = Okres;
    sample.Data = OstatniOdczyt;
    sample.PopPradCzynny = PopPradCzynny;
    sample.PopPradBiernSr = PopPradBiernSr;
    sample.PopPradBiernPojSr = PopPradBiernPojSr;
    sample.PopTimerU = popTimerU;

    ControllerContext &s = ctx();
    try {
        s.samples.ZapiszPomiar(sample);
    } catch (const RunTimeError &e) {
        s.oWizual.eZapisDB(true);
        s.dialogs.MsgBox(QStringLiteral("Błąd zapisu do bazy danych nr ") + numberForm(e.number()) +
                                  QStringLiteral("\r'") + e.description() + QStringLiteral("'"));
    }
}
