#include "reports/BillingQuery.h"

#include "db/Database.h"

namespace {

const char *const Columns =
    "SELECT Regulatory.Kod, Regulatory.CzestOdczytu, PomiaryDzien.Dzien, PomiaryDzien.Ile, "
    "PomiaryDzien.EnCzynnaSuma, PomiaryDzien.EnBiernaSuma, PomiaryDzien.EnBiernaPojSuma, "
    "PomiaryDzien.EnBiernaBezCzynnejSuma FROM Regulatory LEFT JOIN PomiaryDzien ON PomiaryDzien.Adres = "
    "Regulatory.Adres AND PomiaryDzien.Dzien >= ";

SqlStatement query(const BillingQuery::Scope &scope, QDate first, QDate last)
{
    SqlStatement q(QString::fromLatin1(Columns));
    q.date(ZDate::startOf(first)) << " AND PomiaryDzien.Dzien < ";
    q.date(ZDate::startOf(last.addDays(1)));
    if (scope.adres) {
        q << " WHERE Regulatory.Adres = ";
        q.value(*scope.adres);
    } else if (!scope.everyController) {
        // kept: the condition is text made from the tree's names, as the reports take it
        q << " WHERE (" << scope.condition << ")";
    }
    q << " ORDER BY Regulatory.Kod, PomiaryDzien.Dzien";
    return q;
}

// A day's row; a NULL sum (no value among its samples) adds nothing. The
// capacitive counter runs downward: a day's positive sum (a counter reset's
// mark) counts as none.
EnergySums sumsOf(const QSqlQuery &q)
{
    EnergySums s;
    s.samples = q.value(3).toInt();
    s.active = q.value(4).toDouble();
    s.inductive = q.value(5).toDouble();
    s.capacitive = std::max(0.0, -q.value(6).toDouble());
    s.inductiveWithoutActive = q.value(7).toDouble();
    return s;
}

// The day of a roll-up's row: SQLite's text is read without a trip through
// the local time zone, which each conversion asks the system for.
QDate dayOf(const QVariant &v)
{
    if (v.typeId() == QMetaType::QString)
        return QDate::fromString(v.toString().left(10), Qt::ISODate);
    return ZDate::fromVariant(v).date();
}

}

std::vector<BillingQuery::Controller> BillingQuery::read(Database &db, const Scope &scope, QDate first, QDate last)
{
    QSqlQuery q = db.exec(query(scope, first, last));
    std::vector<Controller> out;
    while (q.next()) {
        const QString kod = q.value(0).toString();
        if (out.empty() || out.back().kod != kod) {
            const int minutes = q.value(1).toInt();
            out.push_back({kod, minutes > 0 ? minutes : 15, {}});
        }
        if (!q.value(2).isNull())
            out.back().days[dayOf(q.value(2))] = sumsOf(q);
    }
    return out;
}
