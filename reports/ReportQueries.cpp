#include "reports/ReportQueries.h"

#include "base/ZDate.h"

#include <QStringList>

namespace {

const QString ObjectJoin = QStringLiteral(" from Pomiary LEFT JOIN Regulatory ON Pomiary.adres = Regulatory.adres where data >=");

// Every sample's columns with its reactive energy and its plain tg fi (the
// engine's answer where EnCzynna is 0).
SqlStatement dailyColumns(const QString &from)
{
    SqlStatement q(QStringLiteral("Select *, EnBiernaCalk-EnBiernaPoj as EnBierna, "));
    q.ratio(QStringLiteral("EnBiernaCalk"), QStringLiteral("EnCzynna")) << " as tgfi" << from;
    return q;
}

// A day's average of a measure over all its samples, NULL without any.
void average(SqlStatement &q, const QString &measure)
{
    q.ratio(QStringLiteral("SUM(PomiaryDzien.%1Suma)").arg(measure), QStringLiteral("SUM(PomiaryDzien.%1Ile)").arg(measure));
}

// The least or greatest of a single-precision measure, in the type of its samples.
void extreme(SqlStatement &q, const char *function, const QString &column)
{
    q << "CAST(" << function << "(PomiaryDzien." << column << ") AS ";
    q.typeName(SqlDialect::ColumnType::Single) << ")";
}

// Each day's figures from the roll-ups: sums add, averages weigh every sample
// alike. The columns are named with their table: the aliases repeat their names.
SqlStatement periodColumns(const QString &from)
{
    SqlStatement q(QStringLiteral("Select "));
    q.dayFirstText(QStringLiteral("Dzien")) << " as data, ";
    q.sum(QStringLiteral("PomiaryDzien.EnCzynnaSuma")) << " as EnCzynnaSuma, ";
    q.sum(QStringLiteral("PomiaryDzien.EnBiernaSuma")) << " as EnBiernaSuma, ";
    average(q, QStringLiteral("TgFi"));
    q << " as tgfiSr, MIN(PomiaryDzien.TgFiMin) as tgfiMin, MAX(PomiaryDzien.TgFiMax) as tgfiMaks, ";
    q.sum(QStringLiteral("PomiaryDzien.EnBiernaPojSuma")) << " as EnBiernaPojSuma";
    for (const QString &m : {QStringLiteral("Napiecie"), QStringLiteral("Czestotliwosc"), QStringLiteral("PradCalk")}) {
        q << ", ";
        average(q, m);
        q << " as " << m << "Sr, ";
        extreme(q, "MIN", m + QLatin1String("Min"));
        q << " as " << m << "Min, ";
        extreme(q, "MAX", m + QLatin1String("Max"));
        q << " as " << m << "Maks";
    }
    q << from;
    return q;
}

void range(SqlStatement &q, QDate first, QDate last, const QString &column = QStringLiteral("data"))
{
    q << " ";
    q.date(ZDate::startOf(first)) << " and " << column << " <";
    q.date(ZDate::startOf(last.addDays(1)));
}

// kept: ordered by the day-first text, so months interleave
void byDay(SqlStatement &q)
{
    q << " GROUP BY ";
    q.dayFirstText(QStringLiteral("Dzien")) << " order by ";
    q.dayFirstText(QStringLiteral("Dzien"));
}

}

QString ReportQueries::condition(const QString &controllerList)
{
    if (controllerList.isEmpty())
        return {};
    QString w;
    for (const QString &place : controllerList.split(QLatin1Char(','))) {
        if (!w.isEmpty())
            w += QStringLiteral(" OR ");
        w += QStringLiteral("kod=") + place; // kept: an empty place leaves "kod=" bare
    }
    return w;
}

SqlStatement ReportQueries::dailyOfController(QDate day, std::int16_t adres)
{
    SqlStatement q = dailyColumns(QStringLiteral(" from Pomiary where data >="));
    range(q, day, day);
    q << " and adres = ";
    q.value(adres) << " order by data";
    return q;
}

SqlStatement ReportQueries::dailyOfObject(QDate day, const QString &condition)
{
    SqlStatement q = dailyColumns(ObjectJoin);
    range(q, day, day);
    // kept: the condition is text made from the tree's names
    q << " AND (" << condition << ") order by data";
    return q;
}

SqlStatement ReportQueries::periodOfController(QDate first, QDate last, std::int16_t adres)
{
    SqlStatement q = periodColumns(QStringLiteral(" from PomiaryDzien where Dzien >="));
    range(q, first, last, QStringLiteral("Dzien"));
    q << " and adres = ";
    q.value(adres);
    byDay(q);
    return q;
}

SqlStatement ReportQueries::periodOfObject(QDate first, QDate last, const QString &condition)
{
    SqlStatement q = periodColumns(QStringLiteral(" from PomiaryDzien LEFT JOIN Regulatory ON PomiaryDzien.adres = "
                                                  "Regulatory.adres where Dzien >="));
    range(q, first, last, QStringLiteral("Dzien"));
    q << " AND (" << condition << ")";
    byDay(q);
    return q;
}
