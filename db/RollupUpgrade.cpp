#include "db/RollupUpgrade.h"

#include "db/DailyRollup.h"
#include "db/Database.h"
#include "db/Schema.h"

namespace RollupUpgrade {

namespace {

QDate monthOf(const QVariant &date)
{
    const QDate d = ZDate::fromVariant(date).date();
    return QDate(d.year(), d.month(), 1);
}

int monthsFrom(QDate a, QDate b) { return (b.year() - a.year()) * 12 + b.month() - a.month(); }

void createTable(Database &db)
{
    db.inTransaction([&] {
        for (const QString &sql : Schema::createStatements(Schema::table(QString::fromLatin1(DailyRollup::TableName)),
                                                           db.dialect()))
            db.execText(sql);
    });
}

// A table of an older version lacks a measure's columns: its rows cannot be
// completed, only built again. A build of the current version, interrupted,
// has them all and is resumed.
bool lacksColumns(Database &db)
{
    const QStringList present = db.columnNames(QString::fromLatin1(DailyRollup::TableName));
    for (const Schema::Column &c : DailyRollup::columns())
        if (!present.contains(c.name, Qt::CaseInsensitive))
            return true;
    return false;
}

// The month after the last one built, or the first month of the archive.
QDate resumeFrom(Database &db, QDate first)
{
    QSqlQuery q = db.exec(SqlStatement(QStringLiteral("SELECT MAX(Dzien) FROM PomiaryDzien")));
    if (!q.next() || q.value(0).isNull())
        return first;
    return std::max(first, monthOf(q.value(0)).addMonths(1));
}

}

void build(Database &db, const Progress &progress)
{
    const QString table = QString::fromLatin1(DailyRollup::TableName);
    if (db.tableExists(table) && lacksColumns(db))
        db.execText(QStringLiteral("DROP TABLE ") + table);
    if (!db.tableExists(table))
        createTable(db);
    QSqlQuery span = db.exec(SqlStatement(QStringLiteral("SELECT MIN(Data), MAX(Data) FROM Pomiary")));
    if (!span.next() || span.value(0).isNull())
        return;
    const QDate first = monthOf(span.value(0)), last = monthOf(span.value(1));
    const int months = monthsFrom(first, last) + 1;
    for (QDate m = resumeFrom(db, first); m <= last; m = m.addMonths(1)) {
        db.inTransaction([&] { db.exec(DailyRollup::rollUp(ZDate::startOf(m), ZDate::startOf(m.addMonths(1)))); });
        if (progress)
            progress(100 * (monthsFrom(first, m) + 1) / months, m.toString(QStringLiteral("yyyy-MM")));
    }
}

}
