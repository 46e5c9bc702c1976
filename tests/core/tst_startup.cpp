#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"

#include <QTest>

// Runs the start routine and hands back the error it ends with.
static RunTimeError startFails(StationFixture &f)
{
    try {
        f.station().StartUp();
    } catch (const RunTimeError &e) {
        return e;
    }
    qFatal("the start routine did not fail");
}

class StartUpTest : public QObject {
    Q_OBJECT
private slots:
    void loadsOnlyExactRegulatorRowsInKodOrder()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral("ZETA"), 2);
        f.addController(QStringLiteral("ALFA"), 1);
        f.addController(QStringLiteral("CAPS"), 3, {{"Typ", "Regulator"}});
        f.addController(QStringLiteral("PAD"), 4, {{"Typ", "regulator "}});
        f.addController(QStringLiteral("METER"), 5, {{"Typ", "miernik"}});
        f.station().StartUp();

        Station &s = f.station();
        QCOMPARE(s.oApp.IloscRegulatorow, std::int16_t(2));
        QCOMPARE(s.oApp.NrAktRegulatora, std::int16_t(1));
        QCOMPARE(s.Regulatory.Item(1).Kod, QStringLiteral("ALFA"));
        QCOMPARE(s.Regulatory.Item(1).Id, std::int16_t(1));
        QCOMPARE(s.Regulatory.Item(QStringLiteral("ZETA")).Id, std::int16_t(2));
        QCOMPARE(s.bitMasks[7], std::uint8_t(128));
        QCOMPARE(f.splash.texts, QStringList{QStringLiteral("Otwieram bazę danych i wczytuje regulatory...")});
    }

    void convertsConfigurationAsTheControllerHoldsIt()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral(" T1 "), 7,
                        {{"NapieciePomiar", 100}, {"Przekladnia", 12.5}, {"CzestOdczytu", 15}, {"ProgPrad", QVariant()},
                         {"ProgTgFi", 0.4}, {"aktywny", "tak"}, {"awarCzest", 5}});
        f.addController(QStringLiteral("T2"), 8, {{"NapieciePomiar", 500}, {"aktywny", "Tak"}});
        f.addController(QStringLiteral("T3"), 9, {{"NapieciePomiar", 230}});
        f.station().StartUp();

        const clRegulator &t1 = f.station().Regulatory.Item(QStringLiteral("T1"));
        QCOMPARE(t1.adres, std::int16_t(7));
        QCOMPARE(t1.SkalaNapiecia, 0.25f);
        QCOMPARE(t1.Przekladnia, 12.5f);
        QCOMPARE(t1.ProgPrad, 999999999.0f); // no threshold: never crossed
        QCOMPARE(t1.ProgTgFiMax, 0.4f);
        QVERIFY(!t1.aktywny());              // only "Tak" makes a controller active
        QCOMPARE(t1.awarCzest, std::int16_t(5));
        QCOMPARE(f.station().Regulatory.Item(QStringLiteral("T2")).SkalaNapiecia, 1.25f);
        QVERIFY(f.station().Regulatory.Item(QStringLiteral("T2")).aktywny());
        QCOMPARE(f.station().Regulatory.Item(QStringLiteral("T3")).SkalaNapiecia, 0.0f);
    }

    void seedsCountersFromTheLastSampleOfEachAddress()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral("A"), 1);
        f.addController(QStringLiteral("B"), 2);
        const ZDate when = ZDate::fromParts(2026, 11, 20, 14, 15, 0);
        f.addLastSample(2, 1234.5f, 77.25f, 3.5f, 86400, when);
        f.station().StartUp();

        const clRegulator &b = f.station().Regulatory.Item(QStringLiteral("B"));
        QCOMPARE(b.PopPradCzynny, 1234.5f);
        QCOMPARE(b.PopPradBiernSr, 77.25f);
        QCOMPARE(b.PopPradBiernPojSr, 3.5f);
        QCOMPARE(b.popTimerU, 86400);
        QCOMPARE(b.OstatniOdczyt, when);
        const clRegulator &a = f.station().Regulatory.Item(QStringLiteral("A"));
        QCOMPARE(a.popTimerU, 0);
        QCOMPARE(a.OstatniOdczyt, ZDate());
    }

    void missingDatabaseOrTableStopsTheStart()
    {
        TestEnv env;
        StationFixture none(QStringLiteral("nowhere.db"));
        QCOMPARE(startFails(none).number(), int(RunTimeError::DatabaseError));
        QVERIFY(!QFile::exists(env.file(QStringLiteral("nowhere.db")))); // never created by the station

        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase().execText(QStringLiteral("DROP TABLE OstPomiar"));
        const RunTimeError e = startFails(f);
        QCOMPARE(e.number(), int(RunTimeError::DatabaseError));
        QVERIFY2(e.description().contains(QLatin1String("OstPomiar")), qPrintable(e.description()));

        // a schema newer than the program: refused, whatever the tables hold
        StationFixture newer(QStringLiteral("newer.db"));
        newer.createDatabase().execText(QStringLiteral("UPDATE WersjaSchematu SET wersja = 99"));
        QVERIFY(startFails(newer).description().contains(QLatin1String("w wersji 99, nowszej")));
        // an older one (before versions were kept) still starts
        StationFixture older(QStringLiteral("older.db"));
        older.createDatabase().execText(QStringLiteral("DROP TABLE WersjaSchematu"));
        older.station().StartUp();
    }

    void badRowNamesTableColumnAndKod()
    {
        TestEnv env;
        StationFixture nullColumn(QStringLiteral("a.db"));
        nullColumn.createDatabase();
        nullColumn.addController(QStringLiteral("K1"), 1, {{"Przekladnia", QVariant()}});
        RunTimeError e = startFails(nullColumn);
        QCOMPARE(e.number(), int(RunTimeError::InvalidUseOfNull));
        QVERIFY2(e.description().startsWith(QLatin1String("tabela Regulatory, kolumna Przekladnia, Kod \"K1\"")),
                 qPrintable(e.description()));

        StationFixture tooFar(QStringLiteral("b.db"));
        tooFar.createDatabase();
        tooFar.addController(QStringLiteral("K2"), 1, {{"CzestOdczytu", 40000}});
        QCOMPARE(startFails(tooFar).number(), int(RunTimeError::Overflow));

        StationFixture twice(QStringLiteral("c.db"));
        twice.createDatabase();
        twice.addController(QStringLiteral("K3"), 1);
        twice.addController(QStringLiteral(" K3"), 2); // the same key once trimmed
        QCOMPARE(startFails(twice).number(), int(RunTimeError::DuplicateKey));
    }
};

ZORBEL_TEST_MAIN(StartUpTest)
#include "tst_startup.moc"
