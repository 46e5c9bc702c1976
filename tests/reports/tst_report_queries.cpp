#include "TestMain.h"
#include "ErrorOf.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/Schema.h"
#include "reports/ReportQueries.h"
#include "reports/ReportTable.h"

#include "base/PictureFormat.h"
#include "db/RowSet.h"

#include <QSqlRecord>
#include <QTest>

namespace {

struct Sample {
    int adres;
    ZDate when;
    double active, reactive, capacitive, volts;
};

void fill(Database &db, const QList<Sample> &samples)
{
    db.open(Database::OpenMode::CreateIfMissing);
    Schema::create(db);
    db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ) VALUES ('A', 1, 'regulator')"));
    db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ) VALUES ('B', 2, 'regulator')"));
    for (const Sample &s : samples) {
        SqlStatement q(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna, EnBiernaCalk, EnBiernaPoj, Napiecie) VALUES ("));
        q.value(s.adres) << ", ";
        q.date(s.when) << ", ";
        q.value(s.active) << ", ";
        q.value(s.reactive) << ", ";
        q.value(s.capacitive) << ", ";
        q.value(s.volts) << ")";
        db.exec(q);
    }
    TestDatabases::rollUpAgain(db);
}

// The named columns of every row, "-" for NULL, numbers to 4 places.
QStringList rows(Database &db, const SqlStatement &query, const QStringList &columns)
{
    QSqlQuery q = db.exec(query);
    QStringList out;
    while (q.next()) {
        QStringList cells;
        for (const QString &c : columns) {
            const QVariant v = q.value(q.record().indexOf(c));
            const QString text = v.toString();
            if (v.isNull())
                cells << QStringLiteral("-");
            else if (c == QLatin1String("data")) // a day as the report groups it, or a sample's time
                cells << (text.size() == 8 ? text : ZDate::fromVariant(v).toString(QStringLiteral("HH:mm")));
            else
                cells << QString::number(v.toDouble(), 'f', 4);
        }
        out << cells.join(QLatin1Char('|'));
    }
    return out;
}

ZDate at(int month, int day, int hour) { return ZDate::fromParts(2026, month, day, hour); }

}

// The report queries on both engines: bounds, guards, the text order of
// days, and the condition made from the object tree's list.
class ReportQueriesTest : public QObject {
    Q_OBJECT
private slots:
    void conditionJoinsThePlacesOfTheList()
    {
        QCOMPARE(ReportQueries::condition(QString()), QString());
        QCOMPARE(ReportQueries::condition(QStringLiteral("'A','B'")), QStringLiteral("kod='A' OR kod='B'"));
        QCOMPARE(ReportQueries::condition(QStringLiteral("'A',,'B',")), QStringLiteral("kod='A' OR kod= OR kod='B' OR kod="));
    }

    void reportsReadTheRowsTheirDaysAndControllersHold_data() { TestDatabases::addEngineRows(); }
    void reportsReadTheRowsTheirDaysAndControllersHold()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        fill(db, {{1, at(11, 30, 8), 4, 2, 0.5, 400},
                  {2, at(11, 30, 9), 2, 1, 0, 410},
                  {1, at(11, 30, 10), 0, 1, 0, 390},  // tg fi: none per sample, 0 in the day's figures
                  {3, at(11, 30, 11), 9, 9, 9, 999},  // a controller no longer in the table
                  {1, at(12, 1, 0), 1, 0.5, 0, 400},  // midnight: the next day's
                  {1, at(12, 2, 23), 2, 2, 0, 420}});
        const QDate nov30(2026, 11, 30), dec2(2026, 12, 2);
        QCOMPARE(rows(db, ReportQueries::dailyOfController(nov30, 1), {"data", "EnBierna", "tgfi"}),
                 (QStringList{"08:00|1.5000|0.5000", "10:00|1.0000|-"}));
        QCOMPARE(rows(db, ReportQueries::dailyOfObject(nov30, QStringLiteral("kod='A' OR kod='B'")), {"data", "tgfi"}),
                 (QStringList{"08:00|0.5000", "09:00|0.5000", "10:00|-"}));
        // days in the order of their text: December's before 30 November
        QCOMPARE(rows(db, ReportQueries::periodOfController(nov30, dec2, 1),
                      {"data", "EnCzynnaSuma", "EnBiernaSuma", "tgfiSr", "tgfiMin", "tgfiMaks", "NapiecieMaks"}),
                 (QStringList{"01/12/26|1.0000|0.5000|0.5000|0.5000|0.5000|400.0000",
                              "02/12/26|2.0000|2.0000|1.0000|1.0000|1.0000|420.0000",
                              "30/11/26|4.0000|2.5000|0.2500|0.0000|0.5000|400.0000"}));
        QCOMPARE(rows(db, ReportQueries::periodOfObject(nov30, nov30, QStringLiteral("kod='A' OR kod='B'")),
                      {"data", "EnCzynnaSuma", "tgfiSr", "NapiecieSr"}),
                 (QStringList{"30/11/26|6.0000|0.3333|400.0000"}));
        // the tables the layouts print: cells in their pictures, figures over the rows with a value
        using F = ReportTable::Figure;
        QSqlQuery set = db.exec(ReportQueries::dailyOfController(nov30, 1));
        ReportTable daily(ReportTable::Kind::Daily, QStringLiteral(" regulatora 'A'"), QStringLiteral(" z dnia 30/11/2026"));
        daily.read(set, {"data", "EnCzynna", "tgfi", "Napiecie"});
        QCOMPARE(QStringList({daily.text(0, "data", "HH:mm:ss"), daily.text(0, "EnCzynna", "0,000;(0,000)"),
                              daily.text(0, "tgfi", "0,00"), daily.text(1, "tgfi", "0,00")}),
                 (QStringList{"08:00:00", "4,000", "0,50", ""}));
        QCOMPARE(QStringList({daily.figureText(F::Sum, "EnCzynna", "0,000"), daily.figureText(F::Average, "tgfi", "0,00"),
                              daily.figureText(F::Min, "tgfi", "0,00"), daily.figureText(F::Average, "Napiecie", "0")}),
                 (QStringList{"4,000", "0,50", "0,50", "395"}));
        QSqlQuery periodRows = db.exec(ReportQueries::periodOfController(nov30, dec2, 1));
        ReportTable period(ReportTable::Kind::Period, {}, {});
        period.read(periodRows, {"data", "EnCzynnaSuma", "tgfiSr"});
        QCOMPARE(QStringList({period.text(0, "data", "dd/MM/yyyy"), period.figureText(F::Sum, "EnCzynnaSuma", "0,000"),
                              period.figureText(F::Average, "tgfiSr", "0,00")}),
                 (QStringList{"01/12/26", "7,000", "0,58"}));
        QSqlQuery noRows = db.exec(ReportQueries::dailyOfController(dec2.addDays(5), 1));
        daily.read(noRows, {"data", "EnCzynna"});
        QVERIFY(daily.rowCount() == 0 && daily.figureText(F::Sum, "EnCzynna", "0,000").isEmpty());
        QCOMPARE(pictureFormatComma(-1.5, QStringLiteral("0,000;(0,000)")), QStringLiteral("(1,500)"));

        // an empty place of the tree's list: the engine refuses the bare "kod="
        QCOMPARE(errorOf([&] { db.exec(ReportQueries::dailyOfObject(nov30, ReportQueries::condition(QStringLiteral("'A',")))); }),
                 int(RunTimeError::DatabaseError));
    }
};

ZORBEL_TEST_MAIN(ReportQueriesTest)
#include "tst_report_queries.moc"
