#include "TestMain.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "AdminTool.h"
#include "DemoInstallation.h"
#include "db/Database.h"
#include "db/Schema.h"
#include "db/SchemaVersion.h"

#include <QFile>
#include <QTest>

namespace {

struct Run {
    int code;
    QString out, err;
};

Run admin(const QStringList &args)
{
    QString out, err;
    QTextStream o(&out), e(&err);
    const int code = AdminTool(o, e).run(QStringList{QStringLiteral("zorbel-admin")} + args);
    o.flush();
    e.flush();
    return {code, out, err};
}

QString url(const DatabaseConfig &c)
{
    if (c.engine == SqlDialect::Engine::SQLite)
        return QStringLiteral("sqlite:") + c.file;
    return qEnvironmentVariable("ZORBEL_TEST_PG_URL");
}

int count(Database &db, const QString &table)
{
    QSqlQuery q = db.exec(SqlStatement(QStringLiteral("SELECT COUNT(*) FROM ") + table));
    q.next();
    return q.value(0).toInt();
}

}

class AdminTest : public QObject {
    Q_OBJECT
private slots:
    void initRefusesAnExistingDatabaseUnlessForced_data() { TestDatabases::addEngineRows(); }
    void initRefusesAnExistingDatabaseUnlessForced()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        QCOMPARE(admin({QStringLiteral("init"), QStringLiteral("--db"), url(config)}).code, 0);
        {
            Database db(config);
            db.open();
            QVERIFY(Schema::missingTables(db).isEmpty());
            db.exec(SqlStatement(QStringLiteral("INSERT INTO Regulatory (Kod, Adres) VALUES ('K', 1)")));
        }
        const Run again = admin({QStringLiteral("init"), QStringLiteral("--db"), url(config)});
        QCOMPARE(again.code, 1);
        QVERIFY2(again.err.contains(QLatin1String("--force")), qPrintable(again.err));
        {
            Database db(config);
            db.open();
            QCOMPARE(count(db, QStringLiteral("Regulatory")), 1); // untouched
        }
        QCOMPARE(admin({QStringLiteral("init"), QStringLiteral("--force"), QStringLiteral("--db"), url(config)}).code, 0);
        Database db(config);
        db.open();
        QCOMPARE(count(db, QStringLiteral("Regulatory")), 0);
    }

    void demoHistoryAgreesWithItsLastSamples_data() { TestDatabases::addEngineRows(); }
    void demoHistoryAgreesWithItsLastSamples()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        const Run r = admin({QStringLiteral("demo"), QStringLiteral("--days"), QStringLiteral("2"), QStringLiteral("--db"),
                             url(config)});
        QVERIFY2(r.code == 0, qPrintable(r.err));
        Database db(config);
        db.open();
        QCOMPARE(count(db, QStringLiteral("Regulatory")), int(DemoInstallation::controllers().size()));

        // every element of the tree hangs under the root or one that exists, and every controller is in it
        QSqlQuery orphans = db.exec(SqlStatement(QStringLiteral(
            "SELECT COUNT(*) FROM Hierarchia h WHERE h.kod_obiektu_nad <> 'System Zorbel' "
            "AND NOT EXISTS (SELECT 1 FROM Hierarchia p WHERE p.kod_obiektu = h.kod_obiektu_nad)")));
        QVERIFY(orphans.next());
        QCOMPARE(orphans.value(0).toInt(), 0);
        QSqlQuery unplaced = db.exec(SqlStatement(QStringLiteral(
            "SELECT COUNT(*) FROM Regulatory r WHERE NOT EXISTS (SELECT 1 FROM Hierarchia h WHERE h.kod_obiektu = r.Kod)")));
        QVERIFY(unplaced.next());
        QCOMPARE(unplaced.value(0).toInt(), 0);

        // the last-sample row of each address carries the time of its newest sample
        QSqlQuery last = db.exec(SqlStatement(QStringLiteral(
            "SELECT o.Adres, o.Czas, (SELECT MAX(p.Data) FROM Pomiary p WHERE p.Adres = o.Adres), "
            "(SELECT COUNT(*) FROM Pomiary p WHERE p.Adres = o.Adres) FROM OstPomiar o")));
        int addresses = 0;
        while (last.next()) {
            ++addresses;
            bool ok1 = false, ok2 = false;
            QCOMPARE(ZDate::fromVariant(last.value(1), &ok1), ZDate::fromVariant(last.value(2), &ok2));
            QVERIFY(ok1 && ok2);
            QVERIFY(last.value(3).toInt() >= 2 * 24 * 4); // two days at a quarter hour or finer
        }
        QCOMPARE(addresses, int(DemoInstallation::controllers().size()));
    }

    // An older database moves forward keeping its rows; a current one stays;
    // a newer one is refused untouched.
    void upgradeMovesOnlyAnOlderSchemaForward_data() { TestDatabases::addEngineRows(); }
    void upgradeMovesOnlyAnOlderSchemaForward()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        const QStringList upgrade{QStringLiteral("upgrade"), QStringLiteral("--db"), url(config)};
        QCOMPARE(admin(upgrade).code, 1); // no station tables yet: init makes them
        QCOMPARE(admin({QStringLiteral("init"), QStringLiteral("--db"), url(config)}).code, 0);
        Database db(config);
        db.open();
        db.exec(SqlStatement(QStringLiteral("INSERT INTO Regulatory (Kod, Adres) VALUES ('K', 1)")));
        db.execText(QStringLiteral("DROP TABLE WersjaSchematu")); // as made before versions were kept
        QCOMPARE(SchemaVersion::of(db), 0);

        Run r = admin(upgrade);
        QCOMPARE(r.code, 0);
        QVERIFY2(r.out.contains(QStringLiteral("z wersji 0 do wersji %1").arg(SchemaVersion::Current)), qPrintable(r.out));
        QCOMPARE(SchemaVersion::of(db), SchemaVersion::Current);
        QCOMPARE(count(db, QStringLiteral("Regulatory")), 1);
        r = admin(upgrade);
        QCOMPARE(r.code, 0);
        QVERIFY2(r.out.contains(QStringLiteral("już w wersji")), qPrintable(r.out));

        db.exec(SqlStatement(QStringLiteral("UPDATE WersjaSchematu SET wersja = 99")));
        r = admin(upgrade);
        QCOMPARE(r.code, 1);
        QVERIFY2(r.err.contains(QStringLiteral("w wersji 99, nowszej")), qPrintable(r.err));
        QCOMPARE(SchemaVersion::of(db), 99);
    }

    void badArgumentsExitTwoAndTouchNothing()
    {
        TestEnv env;
        const QList<QStringList> bad = {
            {},
            {QStringLiteral("wipe")},
            {QStringLiteral("demo"), QStringLiteral("--days"), QStringLiteral("many")},
            {QStringLiteral("demo"), QStringLiteral("--days"), QStringLiteral("-3")},
            {QStringLiteral("init"), QStringLiteral("--db")},
            {QStringLiteral("init"), QStringLiteral("--db"), QStringLiteral("oracle://x")},
            {QStringLiteral("init"), QStringLiteral("--colour")},
        };
        for (const QStringList &args : bad) {
            const Run r = admin(args);
            QVERIFY2(r.code == 2, qPrintable(args.join(QLatin1Char(' '))));
            QVERIFY2(!r.err.isEmpty(), qPrintable(args.join(QLatin1Char(' '))));
        }
        QVERIFY(!QFile::exists(env.file(QStringLiteral("zorbel.db"))));
    }
};

ZORBEL_TEST_MAIN(AdminTest)
#include "tst_admin.moc"
