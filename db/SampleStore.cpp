#include "db/SampleStore.h"

#include "db/Database.h"
#include "db/SqlStatement.h"

namespace {

SqlStatement insertSample(const StoredSample &s)
{
    SqlStatement q(QStringLiteral("INSERT INTO Pomiary (Adres, EnCzynna, EnBiernaPoj, EnBiernaCalk, Napiecie, "
                                  "PradBierny, PradCalk, Czestotliwosc, Data) VALUES ("));
    for (const QVariant &v : {QVariant(s.adres), s.EnCzynna, s.EnBiernaPoj, s.EnBiernaCalk, QVariant(s.Napiecie),
                              QVariant(s.PradBierny), QVariant(s.PradCalk), QVariant(s.Czestotliwosc)})
        q.value(v) << ", ";
    q.date(s.Data) << ")";
    return q;
}

SqlStatement updateBase(const StoredSample &s)
{
    SqlStatement q(QStringLiteral("UPDATE OstPomiar SET PopPradCzynny = "));
    q.value(s.PopPradCzynny) << ", PopPradBiernSr = ";
    q.value(s.PopPradBiernSr) << ", PopPradBiernPojSr = ";
    q.value(s.PopPradBiernPojSr) << ", PopTimerU = ";
    q.value(s.PopTimerU) << ", Czas = ";
    q.date(s.Data) << " WHERE Adres = ";
    q.value(s.adres);
    return q;
}

SqlStatement insertBase(const StoredSample &s)
{
    SqlStatement q(QStringLiteral("INSERT INTO OstPomiar (Adres, PopPradCzynny, PopPradBiernSr, "
                                  "PopPradBiernPojSr, PopTimerU, Czas) VALUES ("));
    for (const QVariant &v : {QVariant(s.adres), QVariant(s.PopPradCzynny), QVariant(s.PopPradBiernSr),
                              QVariant(s.PopPradBiernPojSr), QVariant(s.PopTimerU)})
        q.value(v) << ", ";
    q.date(s.Data) << ")";
    return q;
}

}

void SampleStore::ZapiszPomiar(const StoredSample &sample)
{
    // The sample and its base are committed together: after a crash the
    // archive never holds a period whose base was not moved on, or the reverse.
    Database &db = m_connection();
    db.transaction();
    try {
        db.exec(insertSample(sample));
        if (db.exec(updateBase(sample)).numRowsAffected() < 1)
            db.exec(insertBase(sample));
        db.commit();
    } catch (...) {
        db.rollback();
        throw;
    }
}
