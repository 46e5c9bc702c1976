#include "reports/ReportBuild.h"

#include "db/Database.h"
#include "reports/ReportLayout.h"
#include "reports/ReportQueries.h"

namespace {

using Kind = ReportTable::Kind;

ReportTable computed(Database &db, Kind kind, const SqlStatement &query, const QString &tytul, const QString &podtytul)
{
    QSqlQuery rows = db.exec(query);
    ReportTable table(kind, tytul, podtytul);
    table.read(rows, ReportLayout::of(kind).fields());
    return table;
}

QString ofController(const QString &kod)
{
    return QStringLiteral(" regulatora '") + kod + QLatin1Char('\'');
}

QString ofObject(const QString &name)
{
    return QStringLiteral(" obiektu '") + name + QLatin1Char('\'');
}

QString ofDay(QDate day)
{
    return QStringLiteral(" z dnia ") + day.toString(QStringLiteral("dd/MM/yyyy"));
}

QString ofPeriod(QDate first, QDate last)
{
    const QString form = QStringLiteral("dd/MM/yy");
    return QStringLiteral(" za okres od ") + first.toString(form) + QStringLiteral(" do ") + last.toString(form);
}

}

ReportTable ReportBuild::dailyOfController(Database &db, QDate day, std::int16_t adres, const QString &kod)
{
    return computed(db, Kind::Daily, ReportQueries::dailyOfController(day, adres), ofController(kod), ofDay(day));
}

std::optional<ReportTable> ReportBuild::dailyOfObject(Database &db, QDate day, const QString &name,
                                                      const QString &controllerList)
{
    const QString condition = ReportQueries::condition(controllerList);
    if (condition.isEmpty())
        return std::nullopt;
    return computed(db, Kind::Daily, ReportQueries::dailyOfObject(day, condition), ofObject(name), ofDay(day));
}

ReportTable ReportBuild::periodOfController(Database &db, QDate first, QDate last, std::int16_t adres, const QString &kod)
{
    return computed(db, Kind::Period, ReportQueries::periodOfController(first, last, adres), ofController(kod),
                    ofPeriod(first, last));
}

std::optional<ReportTable> ReportBuild::periodOfObject(Database &db, QDate first, QDate last, const QString &name,
                                                       const QString &controllerList)
{
    const QString condition = ReportQueries::condition(controllerList);
    if (condition.isEmpty())
        return std::nullopt;
    return computed(db, Kind::Period, ReportQueries::periodOfObject(first, last, condition), ofObject(name),
                    ofPeriod(first, last));
}
