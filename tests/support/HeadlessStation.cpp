#include "HeadlessStation.h"

#include "base/RunTimeError.h"

#include <QSqlRecord>

void HeadlessStation::start()
{
    Station &s = station();
    s.StartUp();
    // no operator to ask: a port that will not open ends the start
    s.openLine([this] { throw RunTimeError::portNotOpened(port().errorString()); });
}

void HeadlessStation::runTicks(int n)
{
    for (int i = 0; i < n; ++i) {
        timers().Timer1Tick();
        clock.advanceMs(TickPeriodMs);
    }
}

void HeadlessStation::runUntil(ZDate until)
{
    while (clock.now() < until)
        runTicks(1);
}

QList<QVariantMap> HeadlessStation::rows(const QString &sql)
{
    QSqlQuery q = station().connection().exec(SqlStatement(sql));
    QList<QVariantMap> out;
    while (q.next()) {
        QVariantMap row;
        const QSqlRecord r = q.record();
        for (int i = 0; i < r.count(); ++i)
            row.insert(r.fieldName(i), r.value(i));
        out.append(row);
    }
    return out;
}

int HeadlessStation::count(const QString &table, const QString &where)
{
    QString sql = QStringLiteral("SELECT COUNT(*) AS n FROM ") + table;
    if (!where.isEmpty())
        sql += QStringLiteral(" WHERE ") + where;
    return rows(sql).value(0).value(QStringLiteral("n")).toInt();
}
