#include "TestMain.h"
#include "ErrorOf.h"
#include "RecordingWizual.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "base/CommandLine.h"
#include "base/Conversions.h"
#include "base/LoginPrompt.h"
#include "base/NumberForm.h"
#include "base/PictureFormat.h"
#include "base/RunTimeError.h"
#include "base/SettingsStore.h"
#include "base/clsFunkcje.h"
#include "station/PortOpening.h"

#include <QFile>
#include <QSqlQuery>
#include <QTest>
#include <functional>
#include <limits>

namespace {

const QString Again = QStringLiteral("\rProszę zmienić nr portu.");

void set(SettingsStore &store, const char *section, const char *key, const char *value)
{
    store.setValue(QString::fromLatin1(section), QString::fromLatin1(key), QString::fromLatin1(value));
}

void setPort(StationFixture &f, const char *number) { set(f.settings, "port", "nr_portu", number); }

// The error the start routine ends with.
RunTimeError startFails(StationFixture &f)
{
    try {
        f.station().StartUp();
    } catch (const RunTimeError &e) {
        return e;
    }
    qFatal("the start routine did not fail");
}

// Message boxes that note each prompt, marked when the start window was still up.
struct WatchingDialogs final : Dialogs {
    explicit WatchingDialogs(const RecordingSplash &s) : splash(s) {}
    int MsgBox(const QString &prompt, int, const QString &) override
    {
        prompts << prompt + (splash.closed ? QString() : QStringLiteral(" [start window up]"));
        return Ok;
    }
    const RecordingSplash &splash;
    QStringList prompts;
};

// A login window that answers as the test says: it writes the slot as its
// buttons do, or leaves it as a window closed by its close box does.
struct ScriptedLogin final : LoginPrompt {
    void showLogin() override { answer(); }
    std::function<void()> answer = [] {};
};

}

// The shared types and helpers (dates, the number form, arithmetic that
// refuses to wrap, the keyed collection, the command line), and the station's
// options, start, control mode, port and stop.
class CoreTest : public QObject {
    Q_OBJECT
private slots:
    void datesCountDaysFromTheZeroSecondsExactlyAndComeBackFromEveryStoredForm()
    {
        QCOMPARE(ZDate().date(), QDate(1899, 12, 30));
        QCOMPARE(ZDate::fromParts(2023, 3, 15, 12).days(), 45000.5);
        // before the zero the count runs negative, linearly
        QCOMPARE(ZDate::fromParts(1899, 12, 29, 18).days(), -0.25);
        QCOMPARE(ZDate::fromDays(-0.25).toIsoText(), QStringLiteral("1899-12-29 18:00:00"));

        const ZDate t = ZDate::fromParts(2024, 6, 1, 10, 15, 0);
        const std::int64_t s = ZDate::secondsBetween(ZDate(), t); // more than 31 bits, still exact
        QVERIFY(s > std::numeric_limits<std::int32_t>::max());
        QCOMPARE(ZDate().addSecs(s), t);
        // whole-second boundaries, as a clock read in seconds counts them, also below the zero
        QCOMPARE(ZDate::secondsBetween(t.addMsecs(999), t.addMsecs(1000)), std::int64_t(1));
        QCOMPARE(ZDate::secondsBetween(t.addMsecs(1), t.addMsecs(999)), std::int64_t(0));
        QCOMPARE(ZDate::secondsBetween(ZDate().addMsecs(-1), ZDate()), std::int64_t(1));

        const ZDate gap = ZDate::fromParts(2024, 3, 31, 2, 30, 5); // inside a daylight-saving gap in Europe
        QCOMPARE(gap.toIsoText(), QStringLiteral("2024-03-31 02:30:05"));
        QCOMPARE(ZDate::fromVariant(QStringLiteral("2024-03-31T02:30:05")), gap);
        QCOMPARE(ZDate::fromVariant(QDateTime(QDate(2024, 3, 31), QTime(2, 30, 5), Qt::UTC)), gap);
        bool ok = true;
        ZDate::fromVariant(QStringLiteral("wczoraj"), &ok);
        QVERIFY(!ok);
    }

    void numberFormHasTheBlankAndShortestDigits_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("single");
        QTest::addColumn<QString>("text");
        QTest::newRow("positive fraction") << 131.5 << true << " 131.5";
        QTest::newRow("negative whole") << -1.0 << true << "-1";
        QTest::newRow("negative zero") << -0.0 << true << " 0";
        QTest::newRow("leading zero") << 0.5 << true << " 0.5";
        QTest::newRow("large") << 1e10 << true << " 1E+10";
        QTest::newRow("seven digits") << 1234567.0 << true << " 1234567";
        QTest::newRow("eight digits rounds") << 12345678.0 << true << " 1.234568E+07";
        QTest::newRow("single noise hidden") << double(0.1f + 0.2f) << true << " 0.3";
        QTest::newRow("small") << -0.0001 << true << "-0.0001";
        QTest::newRow("tiny") << 0.000015 << true << " 1.5E-05";
        QTest::newRow("threshold") << 999999999.0 << true << " 1E+09";
        QTest::newRow("double keeps more") << 0.1 + 0.2 << false << " 0.3";
        QTest::newRow("double fifteen digits") << 123456789012345.0 << false << " 123456789012345";
        QTest::newRow("double sixteen digits") << 1234567890123456.0 << false << " 1.23456789012346E+15";
    }
    void numberFormHasTheBlankAndShortestDigits()
    {
        QFETCH(double, value);
        QFETCH(bool, single);
        QFETCH(QString, text);
        QCOMPARE(single ? numberForm(float(value)) : numberForm(value), text);
    }

    void pictureFormatsRoundAndPlaceTheirDigits_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("single");
        QTest::addColumn<QString>("picture");
        QTest::addColumn<QString>("text");
        const QString energy = QStringLiteral("##########0.000");
        QTest::newRow("zero keeps its digit") << 0.0 << true << energy << "0.000";
        QTest::newRow("zero whole") << 0.0 << true << "#######0" << "0";
        QTest::newRow("zero two places") << 0.0 << true << "###0.00" << "0.00";
        QTest::newRow("no padding") << 12.3456 << true << energy << "12.346";
        QTest::newRow("negative keeps its sign") << -5.25 << true << energy << "-5.250";
        QTest::newRow("negative rounding to zero has none") << -0.0004 << true << "0.000" << "0.000";
        QTest::newRow("half away from zero") << 2.5 << false << "#######0" << "3";
        QTest::newRow("negative half away from zero") << -2.5 << false << "#######0" << "-3";
        QTest::newRow("single half on its digits") << 1.0005 << true << "0.000" << "1.001";
        QTest::newRow("single's digits") << 123456.7891 << true << "0.000" << "123456.800";
        QTest::newRow("double's digits") << 123456.7891 << false << "0.000" << "123456.789";
        QTest::newRow("carry through nines") << 99.999 << true << "###0.00" << "100.00";
        QTest::newRow("more digits than places") << 1234567.0 << true << "###0.00" << "1234567.00";
        QTest::newRow("single's seventh digit") << 12345678.0 << true << "#######0" << "12345680";
        QTest::newRow("small fraction") << 0.05 << true << "0.000" << "0.050";
        QTest::newRow("optional decimals trimmed") << 1.5 << false << "0.0#" << "1.5";
        QTest::newRow("optional leading digit") << 0.5 << false << "#.##" << ".5";
        QTest::newRow("negative section") << -1234.5 << false << "0.000;(0.000)" << "(1234.500)";
        QTest::newRow("positive section") << 3.0 << false << "0.000;(0.000)" << "3.000";
        QTest::newRow("zero section") << 0.0 << false << "0.00;(0.00);-" << "-";
        QTest::newRow("literal around") << 42.0 << false << "Nr 00" << "Nr 42";
    }
    void pictureFormatsRoundAndPlaceTheirDigits()
    {
        QFETCH(double, value);
        QFETCH(bool, single);
        QFETCH(QString, picture);
        QFETCH(QString, text);
        QCOMPARE(single ? pictureFormat(float(value), picture) : pictureFormat(value, picture), text);
    }

    void arithmeticAndConversionsRaiseOverflowInsteadOfWrapping()
    {
        QCOMPARE(numberForm(5), QStringLiteral(" 5"));
        QCOMPARE(numberForm(-32768), QStringLiteral("-32768"));
        QCOMPARE(conv::add16(32766, 1), std::int16_t(32767));
        QCOMPARE(errorOf([] { conv::add16(32767, 1); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::sub16(-32768, 1); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::mul16(256, 128); }), int(RunTimeError::Overflow));
        QCOMPARE(conv::addByte(0x8F, 0x70), std::uint8_t(0xFF));
        QCOMPARE(errorOf([] { conv::addByte(0x90, 0x70); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::subByte(0, 1); }), int(RunTimeError::Overflow));
        // data-block words: big-endian, two's complement; the unsigned counter overflows past 31 bits
        QCOMPARE(clsFunkcje::TworzInt(0x01, 0x7C), std::int16_t(380));
        QCOMPARE(clsFunkcje::TworzInt(0x80, 0x00), std::int16_t(-32768));
        QCOMPARE(clsFunkcje::TworzLong(0xFF, 0xFF, 0xFF, 0xFE), std::int32_t(-2));
        QCOMPARE(clsFunkcje::TworzLong(0x7F, 0x01, 0x02, 0x03), std::int32_t(0x7F010203));
        QCOMPARE(clsFunkcje::TworzLongU(0x7F, 0xFF, 0xFF, 0xFF), std::int32_t(2147483647));
        QCOMPARE(errorOf([] { clsFunkcje::TworzLongU(0x80, 0x00, 0x00, 0x00); }), int(RunTimeError::Overflow));
        // conversions round half to even and refuse what does not fit
        QCOMPARE(conv::toInt16(2.5), std::int16_t(2));
        QCOMPARE(conv::toInt16(-3.5), std::int16_t(-4));
        QCOMPARE(conv::toByte(QVariant(QStringLiteral(" 255 "))), std::uint8_t(255));
        QCOMPARE(errorOf([] { conv::toByte(QVariant(QStringLiteral("256"))); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::toByte(QVariant(-1)); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::toByte(QVariant(QStringLiteral("COM1"))); }), int(RunTimeError::TypeMismatch));
        QCOMPARE(errorOf([] { conv::toInt16(QVariant(32768)); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::toSingle(QVariant()); }), int(RunTimeError::InvalidUseOfNull));
        QCOMPARE(errorOf([] { conv::toSingle(QVariant(1e39)); }), int(RunTimeError::Overflow));
    }

    void collectionKeysAreCaseBlindAndApartFromPositions()
    {
        colRegulatory c;
        c.Add(7, QStringLiteral("2"), QStringLiteral("2"));
        c.Add(9, QStringLiteral("K1"), QStringLiteral("K1"));
        c.Add(3, QStringLiteral("bez"), QString()); // without a key: by position only
        c.Add(4, QStringLiteral("R4"), QStringLiteral("R4"));
        QCOMPARE(c.Item(1).Kod, QStringLiteral("2")); // the integer is a position, the text a key
        QCOMPARE(c.Item(QStringLiteral("2")).adres, std::int16_t(7));
        QCOMPARE(c.Item(QStringLiteral("k1")).adres, std::int16_t(9));
        QCOMPARE(errorOf([&] { c.Add(5, QStringLiteral("k1"), QStringLiteral("k1")); }), int(RunTimeError::DuplicateKey));
        QCOMPARE(c.Count(), 4); // the refused one was not added
        QCOMPARE(errorOf([&] { c.Item(0); }), int(RunTimeError::SubscriptOutOfRange));
        QCOMPARE(errorOf([&] { c.Item(5); }), int(RunTimeError::SubscriptOutOfRange));
        QCOMPARE(errorOf([&] { c.Item(QStringLiteral("bez")); }), int(RunTimeError::InvalidCall));
        c.Remove(QStringLiteral("K1")); // the keys after it still find their items
        QCOMPARE(c.Item(QStringLiteral("R4")).adres, std::int16_t(4));
        QCOMPARE(c.Item(3).Kod, QStringLiteral("R4"));
        QCOMPARE(errorOf([&] { c.Item(QStringLiteral("K1")); }), int(RunTimeError::InvalidCall));
    }

    void commandLineOutcomes_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("outcome");
        QTest::addColumn<QString>("error");
        const int run = int(CommandLine::Outcome::Run), refused = int(CommandLine::Outcome::Refused);
        QTest::newRow("all it takes") << QStringList{"--force", "--count", "3", "a.db"} << run << QString();
        QTest::newRow("help wins over a fault") << QStringList{"--bogus", "-h"} << int(CommandLine::Outcome::Help)
                                                << QString();
        QTest::newRow("version") << QStringList{"--version"} << int(CommandLine::Outcome::Version) << QString();
        QTest::newRow("unknown long") << QStringList{"--bogus"} << refused << "nieznana opcja --bogus";
        QTest::newRow("unknown short") << QStringList{"-x"} << refused << "nieznana opcja -x";
        QTest::newRow("value missing") << QStringList{"--count"} << refused << "opcja --count wymaga wartości";
        QTest::newRow("value on a flag") << QStringList{"--force=1"} << refused
                                         << "opcja --force nie przyjmuje wartości";
        QTest::newRow("one argument too many") << QStringList{"a", "b"} << refused << "nieoczekiwany argument: b";
    }
    void commandLineOutcomes()
    {
        QFETCH(QStringList, args);
        QFETCH(int, outcome);
        QFETCH(QString, error);
        const QCommandLineOption count(QStringLiteral("count"), QStringLiteral("ile razy"), QStringLiteral("N"));
        CommandLine line(QStringLiteral("prog"), QStringLiteral("Program do prób."));
        line.addOption(QCommandLineOption(QStringLiteral("force"), QStringLiteral("zastępuje")));
        line.addOption(count);
        line.setArguments(QStringLiteral("[PLIK]"), 1);
        QCOMPARE(int(line.parse(QStringList{QStringLiteral("prog")} + args)), outcome);
        QCOMPARE(line.error(), error);
        if (!line.isSet(count) || line.outcome() != CommandLine::Outcome::Run)
            return;
        // the program's own refusals: the first one is told
        line.refuseValue(count, QStringLiteral("liczba od 0 do 5"));
        line.refuse(QStringLiteral("druga usterka"));
        QString out, err;
        QTextStream o(&out), e(&err);
        QCOMPARE(line.answer(o, e).value_or(-1), CommandLine::RefusedExitCode);
        QCOMPARE(err, QStringLiteral("prog: błędna wartość opcji --count: %1 (dozwolona: liczba od 0 do 5)\n"
                                     "Pomoc: prog --help\n").arg(line.value(count)));
    }

    void optionsAreReadFromTheirSectionsAndRefuseWhatDoesNotFit()
    {
        MemorySettingsStore store;
        set(store, "port", "nr_portu", "3");
        set(store, "adm_haslo", "wartosc", "tajne");
        set(store, "dzwieki", "wartosc", "1");
        clsoApp app;
        app.WczytajOpcje(store);
        QCOMPARE(app.nr_portu, std::uint8_t(3));
        QCOMPARE(app.AdmHaslo, QStringLiteral("tajne"));
        QCOMPARE(app.Dzwieki, std::int16_t(1));
        set(store, "dzwieki", "wartosc", "70000");
        QCOMPARE(errorOf([&] { app.WczytajOpcje(store); }), int(RunTimeError::Overflow));
        set(store, "dzwieki", "wartosc", "tak");
        QCOMPARE(errorOf([&] { app.WczytajOpcje(store); }), int(RunTimeError::TypeMismatch));
    }

    // Also on a database from before schema versions were kept.
    void loadsExactRegulatorRowsInKodOrderWithTheirLastSample()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral("ZETA"), 2, {{"NapieciePomiar", 500}});
        f.addController(QStringLiteral(" ALFA "), 7,
                        {{"NapieciePomiar", 100}, {"ProgPrad", QVariant()}, {"aktywny", "tak"}});
        f.addController(QStringLiteral("CAPS"), 3, {{"Typ", "Regulator"}});
        f.addController(QStringLiteral("PAD"), 4, {{"Typ", "regulator "}});
        f.addController(QStringLiteral("METER"), 5, {{"Typ", "miernik"}});
        f.addController(QStringLiteral("MID"), 6, {{"NapieciePomiar", 230}});
        const ZDate when = ZDate::fromParts(2026, 11, 20, 14, 15, 0);
        f.addLastSample(2, 1234.5f, 77.25f, 3.5f, 86400, when);
        Station &s = f.station();
        s.StartUp();

        QCOMPARE(s.oApp.IloscRegulatorow, std::int16_t(3));
        const clRegulator &alfa = s.Regulatory.Item(QStringLiteral("alfa"));
        QCOMPARE(alfa.Id, std::int16_t(1));
        QCOMPARE(alfa.SkalaNapiecia, 0.25f);
        QCOMPARE(alfa.ProgPrad, 999999999.0f); // no threshold: never crossed
        QVERIFY(!alfa.aktywny());              // only "Tak" makes a controller active
        QCOMPARE(alfa.popTimerU, 0);
        QCOMPARE(alfa.OstatniOdczyt, ZDate());
        QCOMPARE(s.Regulatory.Item(2).SkalaNapiecia, 0.0f);
        const clRegulator &zeta = s.Regulatory.Item(3);
        QCOMPARE(zeta.Kod, QStringLiteral("ZETA"));
        QCOMPARE(zeta.SkalaNapiecia, 1.25f);
        QVERIFY(zeta.aktywny());
        QCOMPARE((QList<float>{zeta.PopPradCzynny, zeta.PopPradBiernSr, zeta.PopPradBiernPojSr}),
                 (QList<float>{1234.5f, 77.25f, 3.5f}));
        QCOMPARE(zeta.popTimerU, 86400);
        QCOMPARE(zeta.OstatniOdczyt, when);
    }

    void failuresEndTheStartWithTheirMessage_data()
    {
        QTest::addColumn<QString>("sql"); // run on the fresh database; empty: no database at all
        QTest::addColumn<QStringList>("kods");
        QTest::addColumn<QVariantMap>("columns");
        QTest::addColumn<int>("error");
        QTest::addColumn<QString>("message");
        const int db = RunTimeError::DatabaseError;
        QTest::newRow("no database") << QString() << QStringList() << QVariantMap() << db << "zorbel.db";
        QTest::newRow("table missing") << "DROP TABLE OstPomiar" << QStringList() << QVariantMap() << db << "OstPomiar";
        QTest::newRow("newer schema") << "UPDATE WersjaSchematu SET wersja = 99" << QStringList() << QVariantMap() << db
                                      << "w wersji 99, nowszej";
        QTest::newRow("older schema") << "UPDATE WersjaSchematu SET wersja = 3" << QStringList() << QVariantMap() << db
                                      << "w wersji 3, starszej niż ten program (wersja 4). Proszę ją uaktualnić "
                                         "poleceniem zorbel-admin upgrade.";
        QTest::newRow("null") << "SELECT 1" << QStringList{"K1"} << QVariantMap{{"Przekladnia", QVariant()}}
                              << int(RunTimeError::InvalidUseOfNull)
                              << "tabela Regulatory, kolumna Przekladnia, Kod \"K1\"";
        QTest::newRow("beyond 16 bits") << "SELECT 1" << QStringList{"K1"} << QVariantMap{{"CzestOdczytu", 40000}}
                                        << int(RunTimeError::Overflow) << "kolumna CzestOdczytu, Kod \"K1\"";
        QTest::newRow("a key twice once trimmed") << "SELECT 1" << QStringList{"K1", " K1"} << QVariantMap()
                                                  << int(RunTimeError::DuplicateKey) << "kolumna Kod, Kod \"K1\"";
    }
    void failuresEndTheStartWithTheirMessage()
    {
        QFETCH(QString, sql);
        QFETCH(QStringList, kods);
        QFETCH(QVariantMap, columns);
        QFETCH(int, error);
        QFETCH(QString, message);
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        if (!sql.isEmpty())
            f.createDatabase().execText(sql);
        for (const QString &kod : kods)
            f.addController(kod, 1, columns);
        const RunTimeError e = startFails(f);
        QCOMPARE(e.number(), error);
        QVERIFY2(e.description().contains(message), qPrintable(e.description()));
        QCOMPARE(QFile::exists(env.file(QStringLiteral("zorbel.db"))), !sql.isEmpty()); // never made by the station
    }

    void controlModeIsEnteredThroughTheLoginOnly()
    {
        RecordingWizual hub;
        clsoApp fresh;
        ScriptedLogin login; // closed at once on a fresh slot, which stays empty: no
        QVERIFY(!fresh.PrzelaczTrybSterowania(login, hub));

        clsoApp app;
        int shown = 0;
        QVariant answer = false; // what the window's buttons write; invalid: closed by its close box
        login.answer = [&] {
            ++shown;
            if (answer.isValid())
                app.setParametrGlob(answer);
        };
        bool tryb = true;
        QVERIFY(!app.UstawTrybSterowania(tryb, login, hub)); // cancelled
        QVERIFY(!tryb);                                        // the caller's flag is cleared too
        answer = true;
        QVERIFY(app.PrzelaczTrybSterowania(login, hub));
        QVERIFY(app.TrybSterowania);
        QVERIFY(!app.PrzelaczTrybSterowania(login, hub)); // leaving asks for no password
        QVERIFY(!app.TrybSterowania);
        QCOMPARE(shown, 2);
        // a window closed by its close box leaves the last login's answer standing
        answer = QVariant();
        QVERIFY(app.PrzelaczTrybSterowania(login, hub));
        QCOMPARE(shown, 3);
        QCOMPARE(hub.argsOf("eZmianaTrybuSterowania"), (QList<QVariantList>{{false}, {false}, {true}, {false}, {true}}));
    }

    void portIsAskedForUntilOneOpensButAnIllegalNumberEndsTheFirstRound()
    {
        TestEnv env;
        for (auto [bad, error] : {std::pair{"0", RunTimeError::InvalidPortNumber},
                                  std::pair{"COM1", RunTimeError::TypeMismatch}, std::pair{"256", RunTimeError::Overflow}}) {
            StationFixture f(QStringLiteral("zorbel.db"));
            setPort(f, bad);
            QCOMPARE(errorOf([&] { openPortWithOperatorHelp(f.station(), [] { QFAIL("not asked"); }); }), int(error));
            QVERIFY(f.dialogs.calls.isEmpty());
        }

        // later rounds meet every failure with the message and the options, read again each round
        StationFixture f(QStringLiteral("zorbel.db"));
        WatchingDialogs dialogs(f.splash);
        Station station(StationServices{f.clock, f.settings, dialogs, f.splash, f.line, f.pump, f.wizual, f.panels});
        f.line.failOpenWith(QStringLiteral("zajęty"));
        int asked = 0;
        openPortWithOperatorHelp(station, [&] {
            setPort(f, ++asked == 1 ? "0" : (asked == 2 ? "x" : "4"));
            if (asked == 3)
                f.line.failOpenWith(QString());
        });
        QVERIFY(f.line.isOpen());
        QCOMPARE(f.line.openedNumber(), std::uint8_t(4));
        QCOMPARE(station.oApp.nr_portu, std::uint8_t(4));
        const QString failure = QStringLiteral("Błąd otwarcia portu szeregowego: ");
        QCOMPARE(dialogs.prompts, QStringList({failure + QStringLiteral("zajęty") + Again, // the start window went first
                                               failure + RunTimeError::invalidPortNumber().description() + Again,
                                               failure + RunTimeError::typeMismatch().description() + Again}));
    }

    void stopRunsEveryStepInOrderAndOnlyOnce()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral("T1"), 1);
        Station &s = f.station();
        s.StartUp();
        openPortWithOperatorHelp(s, [] { QFAIL("the port opens at once"); });
        QVERIFY(!f.splash.closed); // nothing to tell: the start goes on under its window
        s.startPolling();
        s.stop();
        QVERIFY(!s.timers.Timer1.isActive());
        QVERIFY(!f.line.isOpen());
        QVERIFY(!s.rsPomiary->isOpen() && !s.rsRegulatory->isOpen() && !s.rsOstPomiar->isOpen());
        QVERIFY(!s.db->isOpen());
        f.line.open(3);
        s.stop(); // only the first stop acts
        QVERIFY(f.line.isOpen());
        // the log was written before the connection closed
        Database check(s.db->config());
        check.open();
        QSqlQuery q = check.exec(
            SqlStatement(QStringLiteral("SELECT Operacja, Status, Typ, Kod_Regul FROM Log ORDER BY Id_wpisu")));
        QVERIFY(q.last());
        QCOMPARE(q.value(0).toString() + q.value(1).toString() + q.value(2).toString(),
                 QStringLiteral("Zatrzymanie aplikacjiNL"));
        QVERIFY(q.value(3).isNull());

        // a step that fails (the log, its table gone) does not keep the connection from closing
        StationFixture g(QStringLiteral("g.db"));
        g.createDatabase().execText(QStringLiteral("DROP TABLE Log"));
        g.station().StartUp();
        g.station().stop();
        QVERIFY(!g.station().db->isOpen());
    }
};

ZORBEL_TEST_MAIN(CoreTest)
#include "tst_core.moc"
