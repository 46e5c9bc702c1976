#include "TestMain.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/RowSet.h"
#include "db/Schema.h"

#include <QDateTime>
#include <QTest>

namespace {

void addSample(Database &db, int adres, ZDate when, float enCzynna)
{
    SqlStatement s(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna) VALUES ("));
    s.value(adres) << ", ";
    s.date(when) << ", ";
    s.value(enCzynna) << ")";
    db.exec(s);
}

void createSchema(Database &db)
{
    db.open(Database::OpenMode::CreateIfMissing);
    Schema::create(db);
}

}

class DatabaseTest : public QObject {
    Q_OBJECT
private slots:
    void datesCompareAndComeBackWhole_data() { TestDatabases::addEngineRows(); }
    void datesCompareAndComeBackWhole()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        createSchema(db);
        QVERIFY(Schema::missingTables(db).isEmpty());
        QVERIFY(db.tableExists(QStringLiteral("pomiary")));

        const ZDate day = ZDate::fromParts(2026, 3, 29, 0, 0, 0); // a spring-forward night in Poland
        addSample(db, 5, day.addMsecs(2 * 60 * ZDate::MsPerMinute + 30 * ZDate::MsPerMinute), 1234.5f);
        addSample(db, 5, day.addDays(-1), 1.0f);
        addSample(db, 5, day.addDays(1), 2.0f);
        addSample(db, 6, day.addMsecs(60 * ZDate::MsPerMinute), 3.0f);

        SqlStatement q(QStringLiteral("SELECT Data, EnCzynna FROM Pomiary WHERE Adres = "));
        q.value(5) << " AND Data >= ";
        q.date(day) << " AND Data < ";
        q.date(day.addDays(1)) << " ORDER BY Data";
        QSqlQuery rows = db.exec(q);
        QVERIFY(rows.next());
        bool ok = false;
        // 02:30 does not exist on that night's clocks; the archive keeps it as written
        QCOMPARE(ZDate::fromVariant(rows.value(0), &ok).toIsoText(), QStringLiteral("2026-03-29 02:30:00"));
        QVERIFY(ok);
        QCOMPARE(rows.value(1).toFloat(), 1234.5f);
        QVERIFY(!rows.next());
    }

    void rowSetsWalkAndFindCaseBlind_data() { TestDatabases::addEngineRows(); }
    void rowSetsWalkAndFindCaseBlind()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        createSchema(db);
        for (int adres : {3, 17, 170})
            addSample(db, adres, ZDate::fromParts(2026, 1, 1, 0, 0, 0), float(adres));

        RowSet rs(db);
        rs.openTable(QStringLiteral("POMIARY"));
        QVERIFY(!rs.isEmpty());
        rs.MoveFirst();
        rs.Find(QStringLiteral("Adres= 17")); // number form brings its blank
        QVERIFY(!rs.EOF_());
        QCOMPARE(rs.field(QStringLiteral("enczynna")).toFloat(), 17.0f);
        rs.MoveNext();
        rs.Find(QStringLiteral("Adres=17"));
        QVERIFY(rs.EOF_()); // the search runs forward only

        RowSet none(db);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, none.openTable(QStringLiteral("Pomiar")));
    }

    void keysAndTimesComeFromTheDatabase_data() { TestDatabases::addEngineRows(); }
    void keysAndTimesComeFromTheDatabase()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        createSchema(db);

        auto alarm = [&](const QString &text) {
            SqlStatement s(QStringLiteral("INSERT INTO Alarmy (Data, Tresc, Typ, Kod_Regul) VALUES ("));
            s.date(ZDate::fromParts(2026, 11, 23, 8, 0, 0)) << ", ";
            s.value(text) << ", ";
            s.value(QStringLiteral("A")) << ", ";
            s.value(QStringLiteral("GPZ")) << ")";
            return db.insert(s, QStringLiteral("Id_alarmu"));
        };
        const qint64 first = alarm(QStringLiteral("Przekroczenie"));
        const qint64 second = alarm(QStringLiteral("Przekroczenie"));
        QVERIFY(first > 0);
        QCOMPARE(second, first + 1);

        // a value is only ever a value: it can bring no statement of its own
        const QString hostile = QStringLiteral("x'); DROP TABLE Pomiary; --");
        SqlStatement log(QStringLiteral("INSERT INTO Log (Operacja, Status) VALUES ("));
        log.value(hostile) << ", ";
        log.value(QStringLiteral("OK")) << ")";
        db.exec(log);
        QVERIFY(db.tableExists(QStringLiteral("Pomiary")));

        QSqlQuery rows = db.exec(SqlStatement(QStringLiteral("SELECT Operacja, Czas FROM Log")));
        QVERIFY(rows.next());
        QCOMPARE(rows.value(0).toString(), hostile);
        bool ok = false;
        const ZDate stamped = ZDate::fromVariant(rows.value(1), &ok);
        QVERIFY(ok);
        const ZDate now = ZDate::fromDateTime(QDateTime::currentDateTime());
        QVERIFY2(qAbs(ZDate::secondsBetween(stamped, now)) < 120, qPrintable(stamped.toIsoText()));
    }

    void textComparesCaseBlind_data() { TestDatabases::addEngineRows(); }
    void textComparesCaseBlind()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        createSchema(db);
        db.exec(SqlStatement(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ) VALUES ('Hala-A', 5, 'regulator')")));
        SqlStatement q(QStringLiteral("SELECT Adres FROM Regulatory WHERE Kod = "));
        q.value(QStringLiteral("HALA-A"));
        QSqlQuery rows = db.exec(q);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(0).toInt(), 5);
    }
};

ZORBEL_TEST_MAIN(DatabaseTest)
#include "tst_database.moc"
