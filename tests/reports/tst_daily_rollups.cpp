// The daily roll-ups of a random archive on both engines: as the samples wrote them, as an
// interrupted upgrade builds them, as the period reports and chart read them.
#include "TestMain.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "db/Database.h"
#include "db/SampleStore.h"
#include "db/Schema.h"
#include "db/SchemaVersion.h"
#include "reports/PeriodChart.h"
#include "reports/ReportQueries.h"

#include <QRandomGenerator>
#include <QSqlRecord>
#include <QTest>
#include <stdexcept>
#include <utility>

namespace {

const QDate Start(2025, 12, 10);

// Controllers 1-4 (C at 3 deleted), samples hours apart through the write path, in eighths (exact sums),
// energies now and then NULL or 0; after some midnights one of the day before, as after a clock stepped back.
void fill(Database &db)
{
    db.open(Database::OpenMode::CreateIfMissing);
    Schema::create(db);
    db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres) VALUES ('A', 1), ('B', 2), ('C', 3), ('D', 4)"));
    db.execText(QStringLiteral("DELETE FROM Regulatory WHERE Kod = 'C'"));
    QRandomGenerator dice(7);
    const auto eighths = [&](int from, int to) { return float(dice.bounded(from, to)) / 8; };
    const auto energy = [&] { return dice.bounded(0, 10) == 0 ? QVariant() : QVariant(dice.bounded(0, 9) ? eighths(-80, 4000) : 0); };
    const auto sample = [&](int adres, ZDate t) {
        return StoredSample{std::int16_t(adres), energy(), energy(), energy(), eighths(3000, 3400), 0, eighths(0, 800), eighths(390, 410), t};
    };
    SampleStore store([&db]() -> Database & { return db; });
    db.inTransaction([&] {
        for (int adres = 1; adres <= 4; ++adres)
            for (ZDate t = ZDate::startOf(Start); t.date() < Start.addDays(60); t = t.addMinutes(dice.bounded(15, 255))) {
                store.appendSample(sample(adres, t));
                if (t.time().hour() == 0)
                    store.appendSample(sample(adres, t.addMinutes(-t.time().minute() - 5)));
            }
    });
}

// The column names, then each row's cells; numbers to 10 digits, as the
// roll-ups add in another order than a query of the samples.
QList<QStringList> rowsOf(Database &db, const SqlStatement &query)
{
    QSqlQuery q = db.exec(query);
    QList<QStringList> out{{}};
    for (int i = 0; i < q.record().count(); ++i)
        out[0] << q.record().fieldName(i);
    while (q.next()) {
        out << QStringList();
        for (int i = 0; i < q.record().count(); ++i) {
            const QVariant v = q.value(i);
            const bool number = v.typeId() != QMetaType::QString && v.canConvert<double>();
            out.back() << (v.isNull() ? QStringLiteral("NULL") : number ? QString::number(v.toDouble(), 'g', 10) : v.toString());
        }
    }
    return out;
}

// The period report's (or chart's) figures straight from every sample.
SqlStatement plainPeriod(QDate first, QDate last, const QString &where, bool chart)
{
    SqlStatement q(QStringLiteral("Select "));
    q.dayFirstText(QStringLiteral("data")) << (chart ? " as MData, " : " as data, ");
    q.sum(QStringLiteral("EnCzynna")) << (chart ? " as SumEnCzynna, " : " as EnCzynnaSuma, ");
    q.sum(QString::fromLatin1(chart ? "EnBiernaCalk" : "EnBiernaCalk-EnBiernaPoj")) << (chart ? " as SumEnBiernaCalk" : " as EnBiernaSuma");
    if (!chart) {
        for (const auto &[f, alias] : {std::pair{"AVG", "Sr"}, {"MIN", "Min"}, {"MAX", "Maks"}}) {
            q << ", " << f << "(CASE WHEN EnCzynna<>0 THEN ";
            q.ratio(QStringLiteral("EnBiernaCalk"), QStringLiteral("EnCzynna")) << " ELSE 0 END) as tgfi" << alias;
        }
        q << ", ";
        q.sum(QStringLiteral("EnBiernaPoj")) << " as EnBiernaPojSuma";
        for (const char *m : {"Napiecie", "Czestotliwosc", "PradCalk"})
            q << QStringLiteral(", AVG(%1) as %1Sr, MIN(%1) as %1Min, MAX(%1) as %1Maks").arg(QLatin1String(m));
    }
    q << " from Pomiary LEFT JOIN Regulatory ON Pomiary.adres = Regulatory.adres where data >= ";
    q.date(ZDate::startOf(first)) << " and data < ";
    q.date(ZDate::startOf(last.addDays(1))) << " and (" << where << ") GROUP BY ";
    q.dayFirstText(QStringLiteral("data")) << " order by ";
    q.dayFirstText(QStringLiteral("data"));
    return q;
}

}

class DailyRollupsTest : public QObject {
    Q_OBJECT
private slots:
    void upgradeFromTwoBuildsTheRowsTheSamplesWrote_data() { TestDatabases::addEngineRows(); }
    void upgradeFromTwoBuildsTheRowsTheSamplesWrote() { upgradeBuildsTheRowsTheSamplesWrote(2); }
    void upgradeFromThreeBuildsTheRowsAgainWithTheNewMeasure_data() { TestDatabases::addEngineRows(); }
    void upgradeFromThreeBuildsTheRowsAgainWithTheNewMeasure() { upgradeBuildsTheRowsTheSamplesWrote(3); }

    void periodQueriesFromRollupsEqualThePlainOnes_data() { TestDatabases::addEngineRows(); }
    void periodQueriesFromRollupsEqualThePlainOnes()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        fill(db);
        const QStringList objects{"kod='A' OR kod='C'", "kod='B' OR kod='D' OR kod='A'", "kod='C'"};
        QRandomGenerator dice(5);
        for (int k = 0; k < 30; ++k) {
            const QDate first = Start.addDays(dice.bounded(-3, 60)), last = first.addDays(dice.bounded(45));
            const auto adres = std::int16_t(dice.bounded(1, 5));
            const QString object = objects.at(k % objects.size()), one = QStringLiteral("Pomiary.adres = %1").arg(adres);
            const auto plain = [&](const QString &w, bool chart) { return rowsOf(db, plainPeriod(first, last, w, chart)); };
            QCOMPARE(rowsOf(db, ReportQueries::periodOfController(first, last, adres)), plain(one, false));
            QCOMPARE(rowsOf(db, ReportQueries::periodOfObject(first, last, object)), plain(object, false));
            QCOMPARE(rowsOf(db, PeriodChart::query(adres, first, last)), plain(one, true));
        }
    }

private:
    // Version 2 kept no roll-ups; version 3 kept them without the inductive
    // energy of periods without active energy: its rows are built again.
    void upgradeBuildsTheRowsTheSamplesWrote(int version)
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        fill(db);
        const SqlStatement all(QStringLiteral("SELECT * FROM PomiaryDzien ORDER BY Adres, Dzien"));
        const QList<QStringList> written = rowsOf(db, all);
        // as that version kept it; an upgrade interrupted after its first month, then run again
        db.execText(QStringLiteral("DROP TABLE PomiaryDzien"));
        if (version == 3) {
            db.execText(QStringLiteral("CREATE TABLE PomiaryDzien (Adres INTEGER, Dzien DATE, Ile INTEGER, EnCzynnaSuma REAL)"));
            db.execText(QStringLiteral("INSERT INTO PomiaryDzien VALUES (1, '2026-01-05', 9, 1.5)"));
        }
        db.execText(QStringLiteral("UPDATE WersjaSchematu SET wersja = %1").arg(version));
        QStringList months;
        const auto stop = [&](int, const QString &month) { months << month, throw std::runtime_error("stop"); };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, SchemaVersion::upgrade(db, stop));
        QCOMPARE(SchemaVersion::of(db), version);
        QCOMPARE(rowsOf(db, all).size(), 1 + 4 * 23); // December wholly in: the 9th to the 31st
        SchemaVersion::upgrade(db, [&](int percent, const QString &month) { months << month + QString::number(percent); });
        QCOMPARE(SchemaVersion::of(db), SchemaVersion::Current);
        QCOMPARE(months, (QStringList{"2025-12", "2026-0166", "2026-02100"}));
        QCOMPARE(rowsOf(db, all), written);
    }
};

ZORBEL_TEST_MAIN(DailyRollupsTest)
#include "tst_daily_rollups.moc"
