#include "reports/AlarmHistory.h"

#include "db/AlarmArchive.h"
#include "db/Database.h"

#include <QSqlQuery>
#include <QSqlRecord>

namespace {

// A date column; NULL is the zero date ("never").
ZDate dateAt(const QSqlQuery &q, int column)
{
    return column < 0 || q.isNull(column) ? ZDate() : ZDate::fromVariant(q.value(column));
}

ZDate startOf(QDate day)
{
    return ZDate::fromParts(day.year(), day.month(), day.day());
}

}

AlarmHistory AlarmHistory::read(Database &db, const QString &kod, QDate first, QDate last)
{
    AlarmHistory h{kod, first, last, {}};
    QSqlQuery q = db.exec(AlarmArchive::query(kod, startOf(first), startOf(last.addDays(1))));
    // columns found by name: "Select *" gives them in the table's order, which may grow
    const QSqlRecord r = q.record();
    const int data = r.indexOf(QStringLiteral("Data")), regul = r.indexOf(QStringLiteral("Kod_Regul")),
              tresc = r.indexOf(QStringLiteral("Tresc")), potw = r.indexOf(QStringLiteral("Data_potw")),
              dezakt = r.indexOf(QStringLiteral("Data_dezakt"));
    while (q.next())
        h.rows.push_back({dateAt(q, data), q.value(regul).toString(), q.value(tresc).toString(), dateAt(q, potw),
                          dateAt(q, dezakt)});
    return h;
}

QString AlarmHistory::title() const
{
    const QString format = QStringLiteral("dd/MM/yyyy");
    if (first == last)
        return QStringLiteral("Alarmy regulatora '%1' z dnia %2").arg(kod, first.toString(format));
    return QStringLiteral("Alarmy regulatora '%1' od %2 do %3").arg(kod, first.toString(format), last.toString(format));
}
