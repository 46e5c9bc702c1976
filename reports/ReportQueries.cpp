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

// A sample's tg fi with 0 where EnCzynna is 0: the 0 counts in AVG and MIN.
void guardedTgFi(SqlStatement &q)
{
    q << "(CASE WHEN EnCzynna<>0 THEN ";
    q.ratio(QStringLiteral("EnBiernaCalk"), QStringLiteral("EnCzynna")) << " ELSE 0 END)";
}

SqlStatement periodColumns(const QString &from)
{
    SqlStatement q(QStringLiteral("Select "));
    q.dayFirstText(QStringLiteral("data")) << " as data, ";
    q.sum(QStringLiteral("EnCzynna")) << " as EnCzynnaSuma, ";
    q.sum(QStringLiteral("EnBiernaCalk-EnBiernaPoj")) << " as EnBiernaSuma, ";
    for (const char *f : {"AVG", "MIN", "MAX"}) {
        q << f << "(";
        guardedTgFi(q);
        q << ") as " << (f == QLatin1String("AVG") ? "tgfiSr, " : f == QLatin1String("MIN") ? "tgfiMin," : "tgfiMaks, ");
    }
    q.sum(QStringLiteral("EnBiernaPoj")) << " as EnBiernaPojSuma,";
    q << "AVG(Napiecie) as NapiecieSr, MIN(Napiecie) as NapiecieMin, MAX(Napiecie) as NapiecieMaks, "
         "AVG(Czestotliwosc) as CzestotliwoscSr,"
         "MIN(Czestotliwosc) as CzestotliwoscMin, MAX(Czestotliwosc) as CzestotliwoscMaks, AVG(PradCalk) as PradCalkSr,"
         "MIN(PradCalk) as PradCalkMin, MAX(PradCalk) as PradCalkMaks"
      << from;
    return q;
}

void range(SqlStatement &q, QDate first, QDate last)
{
    q << " ";
    q.date(ZDate::startOf(first)) << " and data <";
    q.date(ZDate::startOf(last.addDays(1)));
}

// kept: ordered by the day-first text, so months interleave
void byDay(SqlStatement &q)
{
    q << " GROUP BY ";
    q.dayFirstText(QStringLiteral("data")) << " order by ";
    q.dayFirstText(QStringLiteral("data"));
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
    SqlStatement q = periodColumns(QStringLiteral(" from Pomiary where data >="));
    range(q, first, last);
    q << " and adres = ";
    q.value(adres);
    byDay(q);
    return q;
}

SqlStatement ReportQueries::periodOfObject(QDate first, QDate last, const QString &condition)
{
    SqlStatement q = periodColumns(ObjectJoin);
    range(q, first, last);
    q << " AND (" << condition << ")";
    byDay(q);
    return q;
}
