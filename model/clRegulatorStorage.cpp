// One stored sample: the energy of the period as the difference of two
// counter readings, and the counters themselves as the base of the next.
#include "model/clRegulator.h"

#include "core/Dialogs.h"
#include "core/NumberForm.h"
#include "core/Station.h"
#include "ui/clsWizual.h"

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

    SqlStatement sample(QStringLiteral("INSERT INTO Pomiary (Adres, EnCzynna, EnBiernaPoj, EnBiernaCalk, Napiecie, "
                                       "PradBierny, PradCalk, Czestotliwosc, Data) VALUES ("));
    for (const QVariant &v : {QVariant(adres), enCzynna, enBiernaPoj, enBiernaCalk, QVariant(Napiecie),
                              QVariant(PradBierny), QVariant(PradCalk), QVariant(Okres)})
        sample.value(v) << ", ";
    sample.date(OstatniOdczyt) << ")";

    // the base of the next sample advances even when this one is lost:
    // a lost period is never added to the next
    PopPradCzynny = PradCzynny;
    PopPradBiernSr = PradBiernSr;
    PopPradBiernPojSr = PradBiernPojSr;
    popTimerU = TimerU;

    SqlStatement base(QStringLiteral("UPDATE OstPomiar SET PopPradCzynny = "));
    base.value(PopPradCzynny) << ", PopPradBiernSr = ";
    base.value(PopPradBiernSr) << ", PopPradBiernPojSr = ";
    base.value(PopPradBiernPojSr) << ", PopTimerU = ";
    base.value(popTimerU) << ", Czas = ";
    base.date(OstatniOdczyt) << " WHERE Adres = ";
    base.value(adres);

    SqlStatement newBase(QStringLiteral("INSERT INTO OstPomiar (Adres, PopPradCzynny, PopPradBiernSr, "
                                        "PopPradBiernPojSr, PopTimerU, Czas) VALUES ("));
    for (const QVariant &v : {QVariant(adres), QVariant(PopPradCzynny), QVariant(PopPradBiernSr),
                              QVariant(PopPradBiernPojSr), QVariant(popTimerU)})
        newBase.value(v) << ", ";
    newBase.date(OstatniOdczyt) << ")";

    // The sample and its base are committed together: after a crash the
    // archive never holds a period whose base was not moved on, or the reverse.
    Station &s = ctx();
    try {
        Database &db = s.connection();
        db.transaction();
        try {
            db.exec(sample);
            if (db.exec(base).numRowsAffected() < 1)
                db.exec(newBase);
            db.commit();
        } catch (...) {
            db.rollback();
            throw;
        }
    } catch (const RunTimeError &e) {
        s.oWizual.eZapisDB(true);
        s.services.dialogs.MsgBox(QStringLiteral("Błąd zapisu do bazy danych nr ") + numberForm(e.number()) +
                                  QStringLiteral("\r'") + e.description() + QStringLiteral("'"));
    }
}
