#include "HeadlessStation.h"

#include "core/RunTimeError.h"
#include "core/StartUp.h"

#include <QSqlRecord>

void HeadlessStation::start()
{
    Station &s = station();
    s.oApp.WczytajOpcje(settings);
    StartUp(s);
    s.oApp.Znakdaty = QStringLiteral("#");
    s.oFunkcje.setZnakdaty(s.oApp.Znakdaty);
    if (!port().open(s.oApp.nr_portu))
        throw RunTimeError::portNotOpened(port().errorString());
    timers = std::make_unique<PollingTimers>(s, panels);
}

void HeadlessStation::runTicks(int n)
{
    for (int i = 0; i < n; ++i) {
        timers->Timer1Tick();
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
