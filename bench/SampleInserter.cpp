#include "SampleInserter.h"

#include "base/RunTimeError.h"
#include "db/Database.h"

#include <QSqlError>

SampleInserter::SampleInserter(Database &db) : m_db(db), m_full(prepared(RowsPerStatement)) {}

QSqlQuery SampleInserter::prepared(int rows)
{
    const QString row = QStringLiteral("(?,?,?,?,?,?,?,?,?)");
    QStringList all;
    for (int i = 0; i < rows; ++i)
        all << row;
    QSqlQuery q(m_db.connection());
    const QString sql = QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna, EnBiernaCalk, EnBiernaPoj, Napiecie, "
                                       "PradBierny, PradCalk, Czestotliwosc) VALUES ") + all.join(QLatin1Char(','));
    if (!q.prepare(sql))
        throw RunTimeError::database(QStringLiteral("INSERT do Pomiary: ") + q.lastError().text());
    return q;
}

void SampleInserter::add(int adres, const QString &dateText, const SyntheticSamples::Row &values)
{
    const int base = m_held * Columns;
    m_full.bindValue(base, adres);
    m_full.bindValue(base + 1, dateText);
    for (int i = 0; i < SyntheticSamples::Values; ++i)
        m_full.bindValue(base + 2 + i, values[std::size_t(i)]);
    if (++m_held == RowsPerStatement)
        run(m_full);
}

void SampleInserter::flush()
{
    if (m_held == 0)
        return;
    // the held values are rebound to a statement of exactly their count
    QSqlQuery tail = prepared(m_held);
    for (int i = 0; i < m_held * Columns; ++i)
        tail.bindValue(i, m_full.boundValue(i));
    run(tail);
}

void SampleInserter::run(QSqlQuery &query)
{
    if (!query.exec())
        throw RunTimeError::database(QStringLiteral("INSERT do Pomiary: ") + query.lastError().text());
    m_held = 0;
}
