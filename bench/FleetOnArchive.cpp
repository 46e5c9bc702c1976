#include "FleetOnArchive.h"

#include "SimFleet.h"

#include "base/RunTimeError.h"
#include "db/Database.h"

#include <QSet>
#include <QSqlRecord>

namespace {

QVariant single(Database &db, const QString &sql)
{
    QSqlQuery q = db.exec(SqlStatement(sql));
    return q.next() ? q.value(0) : QVariant();
}

// A row's values by column name in lower case: PostgreSQL gives the names so.
QVariantMap byLowerName(const QSqlRecord &r)
{
    QVariantMap out;
    for (int i = 0; i < r.count(); ++i)
        out.insert(r.fieldName(i).toLower(), r.value(i));
    return out;
}

FleetOnArchive::Completed emptyColumns(const QVariantMap &row)
{
    const int adres = row.value(QStringLiteral("adres")).toInt();
    FleetOnArchive::Completed out{adres, {}};
    for (const QString &column : StationFixture::controllerRow({}, adres).keys())
        if (row.contains(column.toLower()) && row.value(column.toLower()).isNull())
            out.columns << column;
    return out;
}

// The columns set to `values`, or emptied when there are none.
SqlStatement updateOf(const FleetOnArchive::Completed &c, const QVariantMap &values)
{
    SqlStatement q(QStringLiteral("UPDATE Regulatory SET "));
    for (const QString &column : c.columns) {
        q << (column == c.columns.first() ? "" : ", ") << column << " = ";
        if (values.isEmpty())
            q << "NULL";
        else
            q.value(values.value(column));
    }
    q << " WHERE Adres = ";
    q.value(c.adres);
    return q;
}

}

std::vector<FleetOnArchive::Completed> FleetOnArchive::completeControllers(Database &db)
{
    std::vector<Completed> rows;
    for (QSqlQuery q = db.exec(SqlStatement(QStringLiteral("SELECT * FROM Regulatory"))); q.next();)
        if (Completed c = emptyColumns(byLowerName(q.record())); !c.columns.isEmpty())
            rows.push_back(c);
    db.inTransaction([&] {
        for (const Completed &c : rows)
            db.exec(updateOf(c, StationFixture::controllerRow({}, c.adres)));
    });
    return rows;
}

void FleetOnArchive::emptyAgain(Database &db, const std::vector<Completed> &rows)
{
    for (const Completed &c : rows)
        db.exec(updateOf(c, {}));
}

ZDate FleetOnArchive::lastSample(Database &db)
{
    bool ok = false;
    const ZDate last = ZDate::fromVariant(single(db, QStringLiteral("SELECT MAX(Data) FROM Pomiary")), &ok);
    if (!ok)
        throw RunTimeError::database(db.config().describe() + QStringLiteral(" nie ma próbek: to nie jest archiwum"));
    return last;
}

std::vector<int> FleetOnArchive::addControllers(SimFleet &fleet, Database &db, int n)
{
    QSet<int> present;
    for (QSqlQuery q = db.exec(SqlStatement(QStringLiteral("SELECT Adres FROM Regulatory"))); q.next();)
        present.insert(q.value(0).toInt());
    std::vector<int> added;
    for (int adres = 1; adres <= n; ++adres)
        if (!present.contains(adres))
            added.push_back(adres);
    db.inTransaction([&] {
        for (int adres : added)
            fleet.addRow(adres);
    });
    return added;
}

void FleetOnArchive::addBases(SimFleet &fleet, Database &db, int n, ZDate at)
{
    if (single(db, QStringLiteral("SELECT COUNT(*) FROM OstPomiar")).toLongLong() > 0)
        throw RunTimeError::database(db.config().describe() + QStringLiteral(" ma już podstawy próbek (OstPomiar)"));
    db.inTransaction([&] {
        for (int adres = 1; adres <= n; ++adres)
            fleet.station.addLastSample(adres, 1000.0f, 500.0f, 200.0f, 0, at);
    });
}

qint64 FleetOnArchive::lastKey(Database &db, const QString &table, const QString &key)
{
    return single(db, QStringLiteral("SELECT COALESCE(MAX(%1), 0) FROM %2").arg(key, table)).toLongLong();
}
