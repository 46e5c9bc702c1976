// The bill of reactive energy against figures worked out by hand from the
// rules' formulas, on both engines; its tariff texts; its parts, gaps and pace.
#include "TestMain.h"
#include "BillingArchive.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"
#include "base/SettingsStore.h"
#include "db/Database.h"
#include "reports/BillingPrint.h"
#include "reports/BillingStatement.h"
#include "reports/ReportQueries.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <cmath>

namespace {

const QDate First(2026, 3, 1), Third(2026, 3, 3);
const ZDate April = ZDate::fromParts(2026, 4, 1);
const BillingQuery::Scope Hala{std::nullopt, ReportQueries::condition(QStringLiteral("'A','B'"))};

ReactiveTariff tariff(const QMap<QString, QString> &texts)
{
    return ReactiveTariff::fromTexts(texts);
}
const ReactiveTariff Polish = tariff({{"Crk", "300"}});
const ReactiveTariff Threshold = tariff({{"Regula", "prog"}, {"r", "0,33"}, {"CenaKvarh", "0.5"}});

// The PL fee of sums in kWh/kvarh: the formula of the regulation, written out again.
double plFee(double a, double q, double qWithoutActive, double capacitive, double crk = 300)
{
    const double tg = (q - qWithoutActive) / a;
    const double over = tg > 0.4 ? std::sqrt((1 + tg * tg) / (1 + 0.4 * 0.4)) - 1 : 0;
    return crk * (over * a + qWithoutActive + capacitive) / 1000;
}

struct Figures {
    double active, inductive, capacitive, withoutActive;
    std::optional<double> tgFi;
    double excess;
    std::optional<double> fee;
};

void compare(const BillingStatement::Line &line, const Figures &f)
{
    QCOMPARE(line.sums.active, f.active);
    QCOMPARE(line.sums.inductive, f.inductive);
    QCOMPARE(line.sums.capacitive, f.capacitive);
    QCOMPARE(line.sums.inductiveWithoutActive, f.withoutActive);
    QCOMPARE(line.tgFi.has_value(), f.tgFi.has_value());
    if (f.tgFi)
        QVERIFY(std::abs(*line.tgFi - *f.tgFi) < 1e-9);
    QVERIFY2(std::abs(line.excess - f.excess) < 1e-9, qPrintable(QString::number(line.excess)));
    QCOMPARE(line.fee.has_value(), f.fee.has_value());
    if (f.fee)
        QVERIFY2(std::abs(*line.fee - *f.fee) < 1e-9, qPrintable(QString::number(*line.fee)));
}

QList<QDate> daysOf(const std::vector<BillingStatement::Day> &days)
{
    QList<QDate> out;
    for (const BillingStatement::Day &d : days)
        out << d.day;
    return out;
}

// The PDF's text as pdftotext lays it out, blanks run together, or why there is none.
QString pdfText(const BillingStatement &s, const TestEnv &env)
{
    const QString pdf = env.file(QStringLiteral("b.pdf"));
    BillingPrint::savePdf(s, pdf);
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return QStringLiteral("pdftotext failed");
    QStringList lines;
    for (const QString &line : QString::fromUtf8(p.readAllStandardOutput()).split(u'\n'))
        lines << line.simplified();
    return lines.join(u'\n');
}

}

class BillingTest : public QObject {
    Q_OBJECT
private slots:
    void billMatchesTheHandWorkedFiguresUnderBothRules_data() { TestDatabases::addEngineRows(); }
    void billMatchesTheHandWorkedFiguresUnderBothRules()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        BillingArchive::fill(db);
        BillingStatement s = BillingStatement::compute(db, Hala, "Obiekt 'Hala'", First, Third, April, Polish);
        QCOMPARE(s.controllers.size(), std::size_t(2));
        // A: active 240 + 110 + 130 + 230 = 710; inductive (Calk - Poj) 120 + (55 + 4) + (65 + 23·8 + 23) = 451;
        // capacitive 23; without active energy 4. tg φ 451/710; billed tg φ (451-4)/710 = 0.6296 > 0.4:
        // excess 447 - 0.4·710 = 163, plus 4 + 23 whole = 190; fee 300·(√((1+0.6296²)/1.16) - 1)·0.710
        // + 300·0.027 = 20.70 + 8.10 = 28.80 zł
        compare(s.controllers[0], {710, 451, 23, 4, 451.0 / 710, 190, plFee(710, 451, 4, 23)});
        // B: active 200 + 50 + 0 (NULL) = 250; inductive 40 + (30 + 20) + 6 = 96; capacitive 10; without active
        // 30 (the NULL one is unknown, not 0); billed tg φ 66/250 = 0.264 ≤ 0.4: only 30 + 10 whole, 12.00 zł
        compare(s.controllers[1], {250, 96, 10, 30, 96.0 / 250, 40, 12.0});
        // Hala: 960, 547, 33, 34; billed tg φ 513/960 = 0.5344: excess 513 - 384 + 34 + 33 = 196, fee 35.29 zł
        compare(s.total, {960, 547, 33, 34, 547.0 / 960, 196, plFee(960, 547, 34, 33)});
        QVERIFY(std::abs(plFee(960, 547, 34, 33) - 35.286) < 1e-3);

        // days of Hala: 1st 440/160 (tg 0.364), 2nd 160/109 (tg 0.681, excess 75 - 64 + 34 + 10 = 55),
        // 3rd 360/278 (tg 0.772, excess 278 - 144 + 23 = 157)
        QCOMPARE(daysOf(s.days), (QList<QDate>{First, First.addDays(1), Third}));
        QCOMPARE(s.days[1].charge.excess, 55.0);
        QVERIFY(std::abs(*s.days[1].charge.fee - plFee(160, 109, 34, 10)) < 1e-9);
        QCOMPARE(s.worst->day, Third);
        QCOMPARE(s.best->day, First);
        QCOMPARE(daysOf(s.worstByExcess), (QList<QDate>{Third, First.addDays(1)}));
        QCOMPARE(daysOf(s.worstByFee), (QList<QDate>{Third, First.addDays(1)})); // 25.59 and 14.42 zł

        // gaps: A on the 2nd has 12 of 24, B on the 3rd 1 of 2; Hala holds 65 of 78 samples
        QCOMPARE(s.gaps.size(), std::size_t(2));
        QCOMPARE(s.gaps[0].kod, QStringLiteral("A"));
        QCOMPARE(s.gaps[0].missingHours, 12.0);
        QCOMPARE(s.gaps[1].day, Third);
        QCOMPARE(s.gaps[1].missingHours, 12.0);
        QCOMPARE(s.total.coverage(), 65.0 / 78);
        QVERIFY(s.notes.contains(QStringLiteral("Archiwum pokrywa 83,3 % okresu: 2 dni regulatorów z brakami pomiarów.")));

        // prog, r 0.33 at 0.5 zł/kvarh: A 451 - 234.3 = 216.7; B 96 - 82.5 = 13.5; Hala 547 - 316.8 = 230.2
        s = BillingStatement::compute(db, Hala, "Obiekt 'Hala'", First, Third, April, Threshold);
        compare(s.controllers[0], {710, 451, 23, 4, 451.0 / 710, 216.7, 108.35});
        compare(s.controllers[1], {250, 96, 10, 30, 96.0 / 250, 13.5, 6.75});
        compare(s.total, {960, 547, 33, 34, 547.0 / 960, 230.2, 115.1});
    }

    void periodSpanningATariffChangeIsBilledInParts()
    {
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        BillingArchive::fill(db);
        const BillingStatement s = BillingStatement::compute(db, Hala, "Obiekt 'Hala'", First, Third, April,
                                                             tariff({{"Crk", "300; 2026-03-03 600,00"}}));
        QCOMPARE(s.total.parts.size(), std::size_t(2));
        QCOMPARE(s.total.parts[0].last, First.addDays(1));
        QCOMPARE(s.total.parts[1].values.crk, 600.0);
        // 1st-2nd: 600 kWh, 269 kvarh, 34 without active, 10 capacitive: billed tg φ 235/600 = 0.392, only
        // 44 kvarh whole, 13.20 zł; the 3rd at 600 zł/MWh: 51.19 zł
        QVERIFY(std::abs(*s.total.parts[0].charge.fee - 13.2) < 1e-9);
        QVERIFY(std::abs(*s.total.fee - 13.2 - plFee(360, 278, 0, 23, 600)) < 1e-9);
        QVERIFY(s.notes.join(' ').contains(QStringLiteral("w 2 częściach")));
    }

    void periodWithoutSamplesGivesZerosAndANote()
    {
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        BillingArchive::fill(db);
        const BillingStatement s =
            BillingStatement::compute(db, Hala, "Obiekt 'Hala'", QDate(2026, 2, 1), QDate(2026, 2, 28), April, Polish);
        compare(s.total, {0, 0, 0, 0, std::nullopt, 0, 0.0});
        QCOMPARE(s.total.coverage(), 0.0);
        QCOMPARE(s.gaps.size(), std::size_t(2 * 28));
        QVERIFY(!s.worst && s.worstByExcess.empty());
        QVERIFY(s.notes.join(' ').contains(QStringLiteral("Brak pomiarów")));
    }

    void withoutActiveEnergyAllInductiveEnergyIsExcess()
    {
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        BillingArchive::fill(db);
        const BillingQuery::Scope b{std::int16_t(2), {}};
        // B on the 3rd: no active energy, 6 kvarh inductive: under PL 300·0.006 = 1.80 zł, under prog 6·0.5
        BillingStatement s = BillingStatement::compute(db, b, "B", Third, Third, April, Polish);
        compare(s.total, {0, 6, 0, 0, std::nullopt, 6, 1.8});
        s = BillingStatement::compute(db, b, "B", Third, Third, April, Threshold);
        compare(s.total, {0, 6, 0, 0, std::nullopt, 6, 3.0});
        QVERIFY(s.notes.join(' ').contains(QStringLiteral("Brak energii czynnej")));
    }

    void runningMonthGivesTheFeeAtItsPaceAndExpectsNoFutureDays()
    {
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        BillingArchive::fill(db);
        const BillingStatement s = BillingStatement::compute(db, Hala, "Obiekt 'Hala'", First, QDate(2026, 3, 31),
                                                             ZDate::fromParts(2026, 3, 4), Polish);
        QCOMPARE(s.total.coverage(), 65.0 / 78); // the 4th, begun at midnight, expects nothing yet
        QCOMPARE(s.pace->periodDays, 31);
        QCOMPARE(s.pace->elapsedDays, 3.0);
        QVERIFY(std::abs(*s.pace->feeAtPace - plFee(960, 547, 34, 33) * 31 / 3) < 1e-9);
    }

    void withoutAPriceTheBillShowsEnergiesAndSaysSo()
    {
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        BillingArchive::fill(db);
        const BillingStatement s =
            BillingStatement::compute(db, Hala, "Obiekt 'Hala'", First, Third, April, tariff({}));
        compare(s.total, {960, 547, 33, 34, 547.0 / 960, 196, std::nullopt});
        QVERIFY(s.notes.join(' ').contains(QStringLiteral("Nie ustawiono ceny")));
    }

    void pdfPrintsTheRuleEveryValueTheDaysAndTheGaps_data()
    {
        QTest::addColumn<QString>("crk");
        QTest::addColumn<QStringList>("lines"); // each on a line of its own
        QTest::newRow("a price changed in the period")
            << "300; 2026-03-03 600,00"
            << QStringList{"Rozliczenie energii biernej",
                           "Obiekt 'Hala', okres od 01.03.2026 do 03.03.2026; obliczono 01.04.2026 00:00",
                           "Crk: 300 od zawsze; 600 od 2026-03-03", "tgFi0: nie ustawiono (domyślna)",
                           // the 1st-2nd: 269/600 = 0.448 but billed 235/600 ≤ 0.4: only 34 + 10 kvarh whole
                           "01.03.2026 02.03.2026 PL 0,4000 1,00 300,00 0,3300 — 600,0 0,448 44,0 13,20 zł",
                           // A in parts: 175 - 140 + 4 = 39 and 272 - 144 + 23 = 151 kvarh; 5,20 + 49,16 zł
                           "A 710,0 451,0 23,0 4,0 0,635 190,0 54,36 zł 83,3 %",
                           "Razem 960,0 547,0 33,0 34,0 0,570 201,0 64,39 zł 83,3 %",
                           "Najgorszy dzień (tg φ dnia): 03.03.2026, tg φ 0,772", "A 02.03.2026 12 24 12,00",
                           "B 03.03.2026 1 2 12,00",
                           "Taryfa zmienia się w okresie: rozliczono go w 2 częściach, "
                           "opłata jest ich sumą."};
        QTest::newRow("no price") << ""
                                  << QStringList{"Crk: nie ustawiono (domyślna)",
                                                 "Razem 960,0 547,0 33,0 34,0 0,570 196,0 brak ceny 83,3 %"};
    }
    void pdfPrintsTheRuleEveryValueTheDaysAndTheGaps()
    {
        QFETCH(QString, crk);
        QFETCH(QStringList, lines);
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("pdftotext (poppler-utils) is not installed");
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        BillingArchive::fill(db);
        const ReactiveTariff t = crk.isEmpty() ? tariff({}) : tariff({{"Crk", crk}});
        const QString text = pdfText(BillingStatement::compute(db, Hala, "Obiekt 'Hala'", First, Third, April, t), env);
        for (const QString &line : lines)
            QVERIFY2(text.split(u'\n').contains(line), qPrintable(line + QStringLiteral(" not in:\n") + text));
    }

    void tariffIsReadFromTheIniFileAsWritten()
    {
        TestEnv env;
        QFile ini(QDir(env.path()).filePath(QStringLiteral("config/Zorbel/Zorbel.conf")));
        QVERIFY(QDir().mkpath(QDir(env.path()).filePath(QStringLiteral("config/Zorbel"))));
        QVERIFY(ini.open(QIODevice::WriteOnly));
        // a bare comma makes a list of the INI's; a quoted list keeps its ';'
        ini.write("[Rozliczenie]\nRegula=prog\nCenaKvarh=0,25\nr=\"0,33; 2026-01-01 0,4843\"\n");
        ini.close();
        const ReactiveTariff t = ReactiveTariff::read(QtSettingsStore());
        QCOMPARE(t.on(QDate(2025, 12, 31)).r, 0.33);
        QCOMPARE(t.on(QDate(2026, 1, 1)).r, 0.4843);
        QCOMPARE(t.on(QDate(2026, 1, 1)).cenaKvarh, 0.25);
        QCOMPARE(t.on(QDate(2026, 1, 1)).rule, TariffValues::Rule::Threshold);
    }

    void tariffTextsGiveDatedValuesOrNameTheFault_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("day");
        QTest::addColumn<double>("value");  // of the key on the day; NaN: not set
        QTest::addColumn<QString>("fault"); // what the error says, empty for none
        const QDate before(2025, 12, 31), after(2026, 1, 1);
        const double unset = std::nan("");
        QTest::newRow("decimal comma") << "Crk"
                                       << "320,10" << before << 320.1 << "";
        QTest::newRow("decimal dot") << "tgFi0"
                                     << "0.35" << before << 0.35 << "";
        QTest::newRow("before a change") << "Crk"
                                         << "320,10; 2026-01-01 350,50" << before << 320.1 << "";
        QTest::newRow("from its day on") << "Crk"
                                         << "320,10; 2026-01-01 350,50" << after << 350.5 << "";
        QTest::newRow("before the first date: not set") << "Crk"
                                                        << "2026-01-01 350" << before << unset << "";
        QTest::newRow("before the first date: the default") << "k"
                                                            << "2026-01-01 3" << before << 1.0 << "";
        QTest::newRow("not a number") << "Crk"
                                      << "trzysta" << after << 0.0 << "Rozliczenie/Crk = „trzysta”";
        QTest::newRow("a dated value not a number") << "k"
                                                    << "1; 2026-01-01 x" << after << 0.0 << "„x” nie jest liczbą";
        QTest::newRow("zero") << "tgFi0"
                              << "0" << after << 0.0 << "";
        QTest::newRow("negative") << "r"
                                  << "-0,33" << after << 0.0 << "Rozliczenie/r";
        QTest::newRow("no such day") << "Crk"
                                     << "2026-02-30 300" << after << 0.0 << "nie jest datą";
        QTest::newRow("dates out of order") << "Crk"
                                            << "300; 2026-02-01 2; 2026-01-01 3" << after << 0.0 << "późniejszą";
        QTest::newRow("a second bare value") << "Crk"
                                             << "300; 310" << after << 0.0 << "późniejszą";
        QTest::newRow("unknown rule") << "Regula"
                                      << "EU" << after << 0.0 << "PL albo prog";
    }
    void tariffTextsGiveDatedValuesOrNameTheFault()
    {
        QFETCH(QString, key);
        QFETCH(QString, text);
        QFETCH(QDate, day);
        QFETCH(double, value);
        QFETCH(QString, fault);
        MemorySettingsStore store;
        store.setValue(ReactiveTariff::Section, key, text);
        try {
            const TariffValues v = ReactiveTariff::read(store).on(day);
            QVERIFY2(fault.isEmpty(), "no error");
            const std::optional<double> got = key == "Crk"     ? v.crk
                                              : key == "tgFi0" ? std::optional(v.tgFi0)
                                                               : std::optional(v.k);
            QCOMPARE(got.has_value(), !std::isnan(value));
            if (got)
                QCOMPARE(*got, value);
        } catch (const RunTimeError &e) {
            QVERIFY2(!fault.isEmpty() && e.description().contains(fault), qPrintable(e.description()));
        }
    }
};

ZORBEL_TEST_MAIN(BillingTest)
#include "tst_billing.moc"
