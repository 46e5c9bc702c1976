#include "TestMain.h"
#include "ErrorOf.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "AdminTool.h"
#include "DemoInstallation.h"
#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/RowSet.h"
#include "db/Schema.h"
#include "db/SchemaVersion.h"
#include "db/clsBD.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

// A station database on the current row's engine, with its writer.
struct StationDb {
    explicit StationDb(const DatabaseConfig &c) : db(c), bd([this]() -> Database & { return db; })
    {
        db.open(Database::OpenMode::CreateIfMissing);
        Schema::create(db);
    }
    void addSample(int adres, ZDate when, float enCzynna)
    {
        SqlStatement s(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna) VALUES ("));
        s.value(adres) << ", ";
        s.date(when) << ", ";
        s.value(enCzynna) << ")";
        db.exec(s);
    }
    // The columns of a query's rows as text, NULL as an invalid variant, dates in the stored form.
    QList<QVariantList> rows(const SqlStatement &query)
    {
        QSqlQuery q = db.exec(query);
        QList<QVariantList> all;
        while (q.next()) {
            all.append(QVariantList());
            for (int i = 0; i < q.record().count(); ++i)
                all.last() << (q.isNull(i) ? QVariant()
                               : q.value(i).typeId() == QMetaType::QDateTime ? ZDate::fromVariant(q.value(i)).toIsoText()
                                                                             : q.value(i).toString());
        }
        return all;
    }
    Database db;
    clsBD bd;
};

const ZDate Raised = ZDate::fromParts(2026, 11, 23, 8, 15, 0);
const ZDate Confirmed = ZDate::fromParts(2026, 11, 23, 8, 20, 5);
const ZDate Ended = ZDate::fromParts(2026, 11, 23, 9, 0, 0);


struct Run {
    int code;
    QString out, err;
};

// zorbel-admin with these arguments; "DB" stands for the current row's database.
Run admin(QStringList args, const DatabaseConfig &c = {})
{
    const QString url = c.engine == SqlDialect::Engine::SQLite ? QStringLiteral("sqlite:") + c.file
                                                                : qEnvironmentVariable("ZORBEL_TEST_PG_URL");
    args.replaceInStrings(QRegularExpression(QStringLiteral("^DB$")), url);
    QString out, err;
    QTextStream o(&out), e(&err);
    const int code = AdminTool(o, e).run(QStringList{QStringLiteral("zorbel-admin")} + args);
    o.flush();
    e.flush();
    return {code, out, err};
}

int number(Database &db, const QString &query)
{
    QSqlQuery q = db.exec(SqlStatement(query));
    return q.next() ? q.value(0).toInt() : -1;
}

}

// The database on both engines, the alarm and log writer, and zorbel-admin.
class DbTest : public QObject {
    Q_OBJECT
private slots:
    void statementsKeepValuesOutOfTheirText()
    {
        const ZDate day = ZDate::fromParts(2026, 3, 29, 2, 30, 0);
        for (auto engine : {SqlDialect::Engine::SQLite, SqlDialect::Engine::PostgreSQL}) {
            SqlStatement s(QStringLiteral("SELECT 1 FROM Log WHERE Operacja = "));
            s.value(QStringLiteral("x'; DROP TABLE Log; --")) << " AND Czas < ";
            s.date(day);
            QVariantList binds;
            QCOMPARE(s.render(*SqlDialect::create(engine), &binds),
                     QStringLiteral("SELECT 1 FROM Log WHERE Operacja = ? AND Czas < ?"));
            QCOMPARE(binds, (QVariantList{QStringLiteral("x'; DROP TABLE Log; --"), QStringLiteral("2026-03-29 02:30:00")}));
        }
    }

    void datesTextAndRowSetsCompareAsTheStationExpects_data() { TestDatabases::addEngineRows(); }
    void datesTextAndRowSetsCompareAsTheStationExpects()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        StationDb st(config);
        QVERIFY(Schema::missingTables(st.db).isEmpty());
        const ZDate day = ZDate::fromParts(2026, 3, 29, 0, 0, 0); // a spring-forward night in Poland
        st.addSample(5, day.addMinutes(150), 1234.5f);            // 02:30 is on no clock that night
        st.addSample(5, day.addDays(-1), 1.0f);
        st.addSample(5, day.addDays(1), 2.0f);
        st.addSample(17, day.addMinutes(60), 17.0f);
        SqlStatement q(QStringLiteral("SELECT Data, EnCzynna FROM Pomiary WHERE Adres = "));
        q.value(5) << " AND Data >= ";
        q.date(day) << " AND Data < ";
        q.date(day.addDays(1));
        QCOMPARE(st.rows(q), (QList<QVariantList>{{QStringLiteral("2026-03-29 02:30:00"), QStringLiteral("1234.5")}}));

        // text compares case-blind
        st.db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ) VALUES ('Hala-A', 5, 'regulator')"));
        SqlStatement kod(QStringLiteral("SELECT Adres FROM Regulatory WHERE Kod = "));
        kod.value(QStringLiteral("HALA-A"));
        QCOMPARE(st.rows(kod), (QList<QVariantList>{{QStringLiteral("5")}}));

        // a row set finds forward only, by a criterion in the number form, its column named case-blind
        RowSet rs(st.db);
        rs.openTable(QStringLiteral("POMIARY"));
        rs.MoveFirst();
        rs.Find(QStringLiteral("Adres= 17"));
        QVERIFY(!rs.EOF_());
        QCOMPARE(rs.field(QStringLiteral("enczynna")).toFloat(), 17.0f);
        rs.MoveNext();
        rs.Find(QStringLiteral("Adres=17"));
        QVERIFY(rs.EOF_());
        // read again, a set holds what the table holds now, once
        st.addSample(17, day.addMinutes(75), 18.0f);
        rs.requery();
        QCOMPARE(rs.rowCount(), 5);
        QCOMPARE(errorOf([&] { RowSet(st.db).openTable(QStringLiteral("Pomiar")); }), int(RunTimeError::DatabaseError));
    }

    void writerLeavesEmptyTextNullAndValuesOutOfTheStatement_data() { TestDatabases::addEngineRows(); }
    void writerLeavesEmptyTextNullAndValuesOutOfTheStatement()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        StationDb st(config);
        const std::int32_t a = st.bd.ZapiszAlarm(Raised, QStringLiteral("R"), QStringLiteral("Brak komunikacji"),
                                                 QString(), QString());
        const std::int32_t b = st.bd.ZapiszAlarm(Raised, QStringLiteral("R"), QStringLiteral("Napięcie"),
                                                 QStringLiteral("HALA-A"), QStringLiteral("Kowalski"));
        QVERIFY(a > 0);
        QCOMPARE(b, a + 1);
        // confirmation and deactivation leave each other alone, in either order
        st.bd.ModyfikujAlarm(a, Confirmed.toVariant(), QVariant(), QString());
        st.bd.ModyfikujAlarm(a, QVariant(), Ended.toVariant(), QString());
        st.bd.ModyfikujAlarm(b, QVariant(), Ended.toVariant(), QString());
        st.bd.ModyfikujAlarm(b, Confirmed.toVariant(), QVariant(), QString());
        QCOMPARE(errorOf([&] { st.bd.ModyfikujAlarm(b + 7, QVariant(), QVariant(), QStringLiteral("Nowak")); }),
                 int(RunTimeError::NoCurrentRecord));
        const QString confirmed = QStringLiteral("2026-11-23 08:20:05"), ended = QStringLiteral("2026-11-23 09:00:00");
        QCOMPARE(st.rows(SqlStatement(QStringLiteral("SELECT Data, Tresc, Typ, Kod_Regul, Operator, Data_potw, Data_dezakt "
                                                     "FROM Alarmy ORDER BY Id_alarmu"))),
                 (QList<QVariantList>{{QStringLiteral("2026-11-23 08:15:00"), QStringLiteral("Brak komunikacji"),
                                       QStringLiteral("R"), QVariant(), QVariant(), confirmed, ended},
                                      {QStringLiteral("2026-11-23 08:15:00"), QStringLiteral("Napięcie"),
                                       QStringLiteral("R"), QStringLiteral("HALA-A"), QStringLiteral("Kowalski"),
                                       confirmed, ended}}));

        // a log text is only ever a value; the database stamps the entry
        const QString hostile = QStringLiteral("x'); DROP TABLE Pomiary; --");
        st.bd.ZapiszDoLoga(hostile, QStringLiteral("N"), QStringLiteral("L"), QString());
        st.bd.ZapiszDoLoga(QStringLiteral("Załączono stopień nr  3"), QStringLiteral("N"), QStringLiteral("S"),
                           QStringLiteral("GPZ-T1"));
        QVERIFY(st.db.tableExists(QStringLiteral("Pomiary")));
        const QList<QVariantList> rows =
            st.rows(SqlStatement(QStringLiteral("SELECT Operacja, Status, Typ, Kod_Regul, Czas FROM Log ORDER BY Id_wpisu")));
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows[0].mid(0, 4), (QVariantList{hostile, QStringLiteral("N"), QStringLiteral("L"), QVariant()}));
        QCOMPARE(rows[1][3], QVariant(QStringLiteral("GPZ-T1")));
        bool ok = false;
        const ZDate stamped = ZDate::fromVariant(rows[1][4], &ok);
        QVERIFY(ok);
        const ZDate now = ZDate::fromDateTime(QDateTime::currentDateTime());
        QVERIFY2(qAbs(ZDate::secondsBetween(stamped, now)) < 120, qPrintable(stamped.toIsoText()));
    }

    // init refuses a database with the station's tables unless forced; upgrade moves
    // an older schema forward keeping its rows, leaves a current one and refuses a newer one.
    void initAndUpgradeTouchOnlyWhatTheyMay_data() { TestDatabases::addEngineRows(); }
    void initAndUpgradeTouchOnlyWhatTheyMay()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        const QString rows = QStringLiteral("SELECT COUNT(*) FROM Regulatory");
        QCOMPARE(admin({"upgrade", "--db", "DB"}, config).code, 1); // no station tables yet: init makes them
        QCOMPARE(admin({"init", "--db", "DB"}, config).code, 0);
        Database db(config);
        db.open();
        QVERIFY(Schema::missingTables(db).isEmpty());
        db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres) VALUES ('K', 1)"));
        Run r = admin({"init", "--db", "DB"}, config);
        QCOMPARE(r.code, 1);
        QVERIFY2(r.err.contains(QLatin1String("--force")), qPrintable(r.err));
        QCOMPARE(number(db, rows), 1);

        // as made before versions were kept, with the index of that time
        db.execText(QStringLiteral("DROP TABLE WersjaSchematu"));
        db.execText(QStringLiteral("DROP INDEX ix_Pomiary_Adres_Data_En"));
        db.execText(QStringLiteral("CREATE INDEX ix_Pomiary_Adres_Data ON Pomiary (Adres, Data)"));
        const auto hasIndex = [&](const char *name) {
            const QString sql = config.engine == SqlDialect::Engine::SQLite
                                    ? QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type = 'index' AND name = '%1'")
                                    : QStringLiteral("SELECT COUNT(*) FROM pg_indexes WHERE indexname = lower('%1')");
            return number(db, sql.arg(QLatin1String(name))) == 1;
        };
        r = admin({"upgrade", "--db", "DB"}, config);
        QVERIFY(hasIndex("ix_Pomiary_Adres_Data_En") && !hasIndex("ix_Pomiary_Adres_Data"));
        QCOMPARE(r.code, 0);
        QVERIFY2(r.out.contains(QStringLiteral("z wersji 0 do wersji %1").arg(SchemaVersion::Current)), qPrintable(r.out));
        QCOMPARE(SchemaVersion::of(db), SchemaVersion::Current);
        QCOMPARE(number(db, rows), 1);
        r = admin({"upgrade", "--db", "DB"}, config);
        QVERIFY2(r.code == 0 && r.out.contains(QStringLiteral("już w wersji")), qPrintable(r.out));

        db.execText(QStringLiteral("UPDATE WersjaSchematu SET wersja = 99"));
        r = admin({"upgrade", "--db", "DB"}, config);
        QCOMPARE(r.code, 1);
        QVERIFY2(r.err.contains(QStringLiteral("w wersji 99, nowszej")), qPrintable(r.err));
        QCOMPARE(SchemaVersion::of(db), 99);
        db.close(); // a forced init replaces the SQLite file
        QCOMPARE(admin({"init", "--force", "--db", "DB"}, config).code, 0);
        Database again(config);
        again.open();
        QCOMPARE(number(again, rows), 0);
        QCOMPARE(SchemaVersion::of(again), SchemaVersion::Current);
    }

    void demoHistoryAgreesWithItsLastSamples_data() { TestDatabases::addEngineRows(); }
    void demoHistoryAgreesWithItsLastSamples()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        const Run r = admin({"demo", "--days", "2", "--db", "DB"}, config);
        QVERIFY2(r.code == 0, qPrintable(r.err));
        Database db(config);
        db.open();
        const int controllers = int(DemoInstallation::controllers().size());
        QCOMPARE(number(db, QStringLiteral("SELECT COUNT(*) FROM Regulatory")), controllers);
        // every element of the tree hangs under the root or one that exists, and every controller is in it
        QCOMPARE(number(db, QStringLiteral("SELECT COUNT(*) FROM Hierarchia h WHERE h.kod_obiektu_nad <> 'System Zorbel' "
                                           "AND NOT EXISTS (SELECT 1 FROM Hierarchia p WHERE p.kod_obiektu = h.kod_obiektu_nad)")),
                 0);
        QCOMPARE(number(db, QStringLiteral("SELECT COUNT(*) FROM Regulatory r "
                                           "WHERE NOT EXISTS (SELECT 1 FROM Hierarchia h WHERE h.kod_obiektu = r.Kod)")),
                 0);
        // each address's last-sample row carries the time of its newest sample, of two days at a quarter hour or finer
        QCOMPARE(number(db, QStringLiteral("SELECT COUNT(*) FROM OstPomiar o "
                                           "WHERE o.Czas = (SELECT MAX(p.Data) FROM Pomiary p WHERE p.Adres = o.Adres) "
                                           "AND (SELECT COUNT(*) FROM Pomiary p WHERE p.Adres = o.Adres) >= 192")),
                 controllers);
    }

    void hierarchyIsListedAddedToAndPrunedOnlyWhereItMakesSense()
    {
        TestEnv env;
        const DatabaseConfig config = DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + env.file(QStringLiteral("h.db")));
        QCOMPARE(admin({"demo", "--db", "DB"}, config).code, 0);
        struct Step {
            QStringList args;
            int code;
            const char *said; // in the output or, on a refusal, the error
        };
        const QList<Step> steps{
            {{"hierarchy", "add", "--element", "Oczyszczalnia", "--nad", "Zakład"}, 0, "Dodano element Oczyszczalnia"},
            {{"hierarchy", "add", "--element", "Oczyszczalnia"}, 1, "już jest w strukturze"},
            {{"hierarchy", "add", "--element", "System Zorbel"}, 1, "korzeniem"},
            {{"hierarchy", "add", "--element", "NOWY", "--typ", "R"}, 1, "brak regulatora o kodzie NOWY"},
            {{"hierarchy", "remove", "--element", "Zakład"}, 1, "zawiera inne elementy"},
            {{"hierarchy", "remove", "--element", "Nieznany"}, 1, "brak elementu Nieznany"},
            {{"hierarchy", "remove", "--element", "Oczyszczalnia"}, 0, "Usunięto element Oczyszczalnia"},
            {{"hierarchy", "list"}, 0, "System Zorbel\n  Zakład\n    Hala produkcyjna A\n      HALA-A  [regulator]\n"},
        };
        for (const Step &step : steps) {
            const Run r = admin(step.args + QStringList{"--db", "DB"}, config);
            QVERIFY2(r.code == step.code && (step.code ? r.err : r.out).contains(QString::fromUtf8(step.said)),
                     qPrintable(step.args.join(QLatin1Char(' ')) + QLatin1String(": ") + r.out + r.err));
        }
        QVERIFY(!admin({"hierarchy", "list", "--db", "DB"}, config).out.contains(QStringLiteral("Oczyszczalnia")));
    }

    void badArgumentsExitTwoAndTouchNothing()
    {
        TestEnv env;
        for (const QStringList &args : QList<QStringList>{{}, {"wipe"}, {"demo", "--days", "many"}, {"demo", "--days", "-3"},
                                                          {"init", "--days", "3"}, {"init", "--db"},
                                                          {"init", "--db", "oracle://x"}, {"init", "extra"},
                                                          {"hierarchy"}, {"hierarchy", "move"}, {"hierarchy", "add"},
                                                          {"hierarchy", "add", "--element", "X", "--typ", "Q"},
                                                          {"hierarchy", "remove", "--element", "X", "--nad", "Y"},
                                                          {"demo", "--element", "X"}}) {
            const Run r = admin(args);
            QVERIFY2(r.code == 2 && !r.err.isEmpty(), qPrintable(args.join(QLatin1Char(' '))));
        }
        QVERIFY(!QFile::exists(env.file(QStringLiteral("zorbel.db"))));
    }
};

ZORBEL_TEST_MAIN(DbTest)
#include "tst_db.moc"
