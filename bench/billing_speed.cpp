// The bill of reactive energy of an object of 50 controllers over a year,
// read from the daily roll-ups in one query, from the call to the computed
// statement:
//
//   billing_speed [--db FILE] [--repeat K]
//
// FILE is an archive at the current schema version (it is only read: an
// older one is refused, never upgraded here). Without --db a small archive
// of day roll-ups alone (50 controllers, the year 2025) is made at
// /tmp/zorbel-billing-bench.db on the first run. Prints
// "billing_year_object50: N ms" (the median) and its slowest run.

#include "Timings.h"

#include "base/ReactiveTariff.h"
#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/Schema.h"
#include "db/SchemaVersion.h"
#include "reports/BillingStatement.h"
#include "reports/ReportQueries.h"

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>

namespace {

constexpr int Controllers = 50;
const QDate First(2025, 1, 1), Last(2025, 12, 31);

void fillRollups(Database &db)
{
    db.open(Database::OpenMode::CreateIfMissing);
    Schema::create(db);
    QRandomGenerator dice(3);
    db.inTransaction([&] {
        for (int adres = 1; adres <= Controllers; ++adres) {
            SqlStatement c(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, CzestOdczytu) VALUES ("));
            c.value(QStringLiteral("R%1").arg(adres, 3, 10, QLatin1Char('0'))) << ", ";
            c.value(adres) << ", 15)";
            db.exec(c);
            for (QDate d = First; d <= Last; d = d.addDays(1)) {
                const double a = dice.bounded(2000, 6000), q = a * dice.bounded(10, 70) / 100;
                SqlStatement r(
                    QStringLiteral("INSERT INTO PomiaryDzien (Adres, Dzien, Ile, EnCzynnaSuma, EnBiernaSuma, "
                                   "EnBiernaPojSuma, EnBiernaBezCzynnejSuma) VALUES ("));
                r.value(adres) << ", ";
                r.date(ZDate::startOf(d)) << ", ";
                r.value(dice.bounded(90, 97)) << ", ";
                r.value(a) << ", ";
                r.value(q) << ", ";
                r.value(-double(dice.bounded(0, 40))) << ", ";
                r.value(double(dice.bounded(0, 5))) << ")";
                db.exec(r);
            }
        }
    });
}

QString objectCondition()
{
    QStringList places;
    for (int adres = 1; adres <= Controllers; ++adres)
        places << QStringLiteral("'R%1'").arg(adres, 3, 10, QLatin1Char('0'));
    return ReportQueries::condition(places.join(QLatin1Char(',')));
}

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    QString file = QStringLiteral("/tmp/zorbel-billing-bench.db");
    int repeat = 5;
    QTextStream out(stdout);
    for (; args.size() >= 2; args.remove(0, 2)) {
        if (args[0] == QLatin1String("--db"))
            file = args[1];
        else if (args[0] == QLatin1String("--repeat"))
            repeat = std::max(1, args[1].toInt());
        else
            break;
    }
    if (!args.isEmpty()) {
        out << "billing_speed [--db FILE] [--repeat K]\n";
        return 2;
    }
    try {
        const bool made = !QFile::exists(file);
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + file));
        if (made)
            fillRollups(db);
        else
            db.open();
        SchemaVersion::check(db);
        const BillingQuery::Scope scope{std::nullopt, objectCondition()};
        const ReactiveTariff tariff = ReactiveTariff::fromTexts({{QStringLiteral("Crk"), QStringLiteral("300")}});
        Timings t;
        int days = 0;
        for (int i = 0; i < repeat; ++i)
            days = int(t.time([&] {
                            return BillingStatement::compute(db, scope, QStringLiteral("Obiekt"), First, Last,
                                                             ZDate::startOf(Last.addDays(1)), tariff);
                        }).days.size());
        out << "billing_year_object50: " << QString::number(t.median(), 'f', 1) << " ms (" << days << " days, slowest "
            << QString::number(t.max(), 'f', 1) << " ms)\n";
    } catch (const RunTimeError &e) {
        out << "billing_speed: " << e.description() << "\n";
        return 1;
    }
    return 0;
}
