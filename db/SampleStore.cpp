#include "db/SampleStore.h"

#include "db/DailyRollup.h"
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
        appendSample(sample);
        setBase(sample);
        db.commit();
    } catch (...) {
        db.rollback();
        throw;
    }
}

void SampleStore::appendSample(const StoredSample &sample)
{
    Database &db = m_connection();
    db.run(insertSample(sample));
    db.run(DailyRollup::addSample(sample));
}

void SampleStore::setBase(const StoredSample &sample)
{
    Database &db = m_connection();
    if (db.run(updateBase(sample)) < 1)
        db.run(insertBase(sample));
}

std::vector<StoredSample> SampleStore::bases()
{
    std::vector<StoredSample> out;
    QSqlQuery q = m_connection().exec(SqlStatement(QStringLiteral(
        "SELECT Adres, PopPradCzynny, PopPradBiernSr, PopPradBiernPojSr, PopTimerU, Czas FROM OstPomiar")));
    while (q.next()) {
        StoredSample s;
        s.adres = std::int16_t(q.value(0).toInt());
        s.PopPradCzynny = q.value(1).toFloat();
        s.PopPradBiernSr = q.value(2).toFloat();
        s.PopPradBiernPojSr = q.value(3).toFloat();
        s.PopTimerU = q.value(4).toInt();
        s.Data = ZDate::fromVariant(q.value(5));
        out.push_back(s);
    }
    return out;
}
