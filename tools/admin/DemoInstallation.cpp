#include "DemoInstallation.h"

#include "db/ControllerStore.h"
#include "db/Database.h"
#include "db/HierarchyStore.h"
#include "db/SampleStore.h"
#include "db/clsBD.h"

#include "base/NumberForm.h"

#include <cmath>
#include <numbers>
#include <random>

namespace {

DemoInstallation::Totals totals;

// Share of peak power drawn at a time of day: a two-shift factory.
double loadShare(const QTime &t, int dayOfWeek)
{
    const double h = t.hour() + t.minute() / 60.0;
    const bool workday = dayOfWeek <= 5;
    double share = 0.18; // night base load
    if (h >= 6 && h < 22)
        share = workday ? 0.75 + 0.2 * std::sin((h - 6) / 16.0 * std::numbers::pi) : 0.3;
    if (workday && h >= 13.5 && h < 14.5)
        share *= 0.8; // shift change
    return share;
}

QVariantMap controllerRow(const DemoInstallation::Controller &c)
{
    QVariantMap row = {
        {"Kod", c.kod}, {"Adres", c.adres}, {"Typ", "regulator"}, {"aktywny", c.aktywny},
        {"NrFabryczny", QStringLiteral("ZB-%1").arg(2300 + c.adres * 17)}, {"Opis", c.opis},
        {"NapieciePomiar", c.napieciePomiar}, {"Przekladnia", c.przekladnia}, {"PrzekladniaNap", c.przekladniaNap},
        {"CzestOdczytu", c.czestOdczytu}, {"CzestTrans", 0}, {"awarCzest", c.awarCzest},
        {"ProgNapiecie", c.progNapiecie}, {"ProgPrad", c.progPrad}, {"ProgTgFi", c.progTgFi},
        {"ProgTgFiMin", c.progTgFiMin},
    };
    for (const char *b : {"EnCzynna", "EnBiernaCalk", "EnBiernaPoj", "Napiecie", "PradCzynny", "PradBierny", "PradCalk",
                          "Czestotliwosc"}) {
        row.insert(QString::fromLatin1(b) + QLatin1String("Min"), 0.0f);
        row.insert(QString::fromLatin1(b) + QLatin1String("Max"), 1.0e9f);
    }
    for (int i = 1; i <= 9; ++i)
        row.insert(QStringLiteral("BKSt%1").arg(i), i <= 6 ? c.nominalKw / 8.0 : 0.0); // stage powers in kvar
    return row;
}

std::function<Database &()> on(Database &db)
{
    return [&db]() -> Database & { return db; };
}

}

const std::vector<DemoInstallation::Controller> &DemoInstallation::controllers()
{
    static const std::vector<Controller> list = {
        // a medium-voltage feed: 15 kV through 15000/100 V, 1000/5 A
        {"GPZ-T1", 1, 100, 200.0f, 150, 15, 5, "Tak", 16500.0f, 400.0f, 0.0f, 0.4f, 9000.0f, "Transformator T1, pole 4"},
        {"GPZ-T2", 2, 100, 200.0f, 150, 15, 5, "Tak", 16500.0f, 400.0f, 0.0f, 0.4f, 8000.0f, "Transformator T2, pole 7"},
        // low-voltage halls: 400 V, 800/5 A and 600/5 A
        {"HALA-A", 5, 380, 160.0f, 1, 15, 5, "Tak", 420.0f, 350.0f, 0.0f, 0.4f, 450.0f, "Hala produkcyjna A"},
        {"HALA-B", 6, 380, 120.0f, 1, 15, 5, "Tak", 420.0f, 260.0f, 0.0f, 0.4f, 350.0f, "Hala produkcyjna B"},
        // its voltage threshold is set below the feed's 500 V: the demo shows an over-voltage alarm
        {"SPREZARKI", 7, 500, 60.0f, 1, 5, 2, "Tak", 480.0f, 120.0f, 0.0f, 0.4f, 180.0f, "Sprężarkownia 500 V"},
        // not yet connected
        {"MAGAZYN", 9, 380, 40.0f, 1, 15, 5, "Nie", 420.0f, 80.0f, 0.0f, 0.4f, 60.0f, "Magazyn wyrobów gotowych"},
    };
    return list;
}

const std::vector<DemoInstallation::Element> &DemoInstallation::tree()
{
    static const std::vector<Element> list = {
        {"Zakład", "System Zorbel", "S"},
        // the medium-voltage switchgear and its two transformer feeders
        {"Rozdzielnia SN 15 kV", "Zakład", "S"},
        {"Pole 4 - transformator T1", "Rozdzielnia SN 15 kV", "S"},
        {"GPZ-T1", "Pole 4 - transformator T1", "R"},
        {"Pole 7 - transformator T2", "Rozdzielnia SN 15 kV", "S"},
        {"GPZ-T2", "Pole 7 - transformator T2", "R"},
        // the two production halls and the compressor house on the low-voltage side
        {"Hala produkcyjna A", "Zakład", "S"},
        {"HALA-A", "Hala produkcyjna A", "R"},
        {"Hala produkcyjna B", "Zakład", "S"},
        {"HALA-B", "Hala produkcyjna B", "R"},
        {"Sprężarkownia", "Zakład", "S"},
        {"SPREZARKI", "Sprężarkownia", "R"},
        // tree keys compare exactly, but a hall must not share a controller's name
        {"Magazyn wyrobów gotowych", "Zakład", "S"},
        {"MAGAZYN", "Magazyn wyrobów gotowych", "R"},
    };
    return list;
}

void DemoInstallation::fill(Database &db, int days, ZDate until, unsigned seed)
{
    totals = {};
    db.transaction();
    try {
        writeControllers(db);
        writeTree(db);
        for (const Controller &c : controllers())
            if (days > 0) { // an inactive one has its history from before it was switched off
                totals.samples += writeHistory(db, c, days, until, seed + unsigned(c.adres));
                totals.alarms += writeAlarms(db, c, days, until, seed + unsigned(c.adres));
            }
        db.commit();
    } catch (...) {
        db.rollback();
        throw;
    }
}

DemoInstallation::Totals DemoInstallation::lastTotals()
{
    return totals;
}

void DemoInstallation::writeControllers(Database &db)
{
    ControllerStore store(on(db));
    for (const Controller &c : controllers()) {
        store.add(controllerRow(c));
        ++totals.controllers;
    }
}

void DemoInstallation::writeTree(Database &db)
{
    HierarchyStore store(on(db));
    for (const Element &e : tree()) {
        store.add(e.kod, e.nad, e.typ);
        ++totals.elements;
    }
}

// The tg fi the compensation holds: about 0.22, but in hall A's last
// month before `until` two capacitor stages failed on the 8th and the
// hall ran above the contract's 0.4 until the month's end.
double DemoInstallation::compensatedTgFi(const Controller &c, QDate day, QDate until)
{
    const QDate lastMonth = QDate(until.year(), until.month(), 1).addMonths(-1);
    const bool failed = c.kod == QLatin1String("HALA-A") && day >= lastMonth.addDays(7) && day < lastMonth.addMonths(1);
    return failed ? 0.55 : 0.22;
}

int DemoInstallation::writeHistory(Database &db, const Controller &c, int days, ZDate until, unsigned seed)
{
    std::mt19937 rng(seed);
    std::normal_distribution<double> noise(0.0, 0.04);
    const std::int64_t period = c.czestOdczytu * ZDate::MsPerMinute;
    const ZDate last = ZDate::fromMsecs(until.msecs() / period * period); // on the reading grid
    const double ratedVoltage = c.napieciePomiar == 100 ? 15000.0 : (c.napieciePomiar == 500 ? 500.0 : 400.0);
    double counterP = 0, counterQ = 0, counterCap = 0;
    SampleStore samples(on(db));
    int written = 0;
    for (ZDate t = last.addDays(-days); t <= last; t = t.addMsecs(period)) {
        const double share = std::max(0.05, loadShare(t.time(), t.date().dayOfWeek()) + noise(rng));
        const double kw = c.nominalKw * share;
        const double tgfi = std::clamp(compensatedTgFi(c, t.date(), until.date()) + noise(rng) * 2.5, 0.05, 0.9);
        const double hours = c.czestOdczytu / 60.0;
        const double enP = kw * hours;
        const double enQ = kw * tgfi * hours;
        const double enCap = -kw * 0.02 * share * hours; // a little over-compensation now and then
        const double volts = ratedVoltage * (1.0 + noise(rng) * 0.25);
        const double amps = kw * 1000.0 / (std::sqrt(3.0) * volts * 0.95);
        StoredSample s;
        s.adres = std::int16_t(c.adres);
        s.Data = t;
        s.EnCzynna = float(enP);
        s.EnBiernaCalk = float(enQ);
        s.EnBiernaPoj = float(enCap);
        s.Napiecie = float(volts);
        s.PradBierny = float(amps * tgfi);
        s.PradCalk = float(amps);
        s.Czestotliwosc = float(50.0 + noise(rng) * 0.5);
        samples.appendSample(s);
        counterP += enP;
        counterQ += enQ;
        counterCap += enCap;
        ++written;
    }
    StoredSample base;
    base.adres = std::int16_t(c.adres);
    base.Data = last;
    base.PopPradCzynny = float(counterP);
    base.PopPradBiernSr = float(counterQ);
    base.PopPradBiernPojSr = float(counterCap);
    samples.setBase(base);
    return written;
}

// Alarms as the station writes them: the compressor house over its voltage
// threshold a few times a day, now and then a lost link or tg fi out of its
// band elsewhere; most confirmed within minutes and ended later, the newest
// ones not yet.
int DemoInstallation::writeAlarms(Database &db, const Controller &c, int days, ZDate until, unsigned seed)
{
    std::mt19937 rng(seed * 7919u);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const bool compressors = c.napieciePomiar == 500;
    const double perDay = compressors ? 4.0 : 0.3;
    clsBD writer(on(db));
    int written = 0;
    for (ZDate t = until.addDays(-days); ; ) {
        t = t.addSecs(std::int64_t(-std::log(1.0 - unit(rng)) / perDay * 86400.0)); // a Poisson process
        if (t > until)
            break;
        QString text = QStringLiteral("Brak komunikacji z regulatorem ");
        if (compressors)
            text = QStringLiteral("Przekroczona wartość napięcia (") + numberForm(float(std::round(2000.0 + unit(rng) * 120.0) / 4.0)) +
                   QStringLiteral(" V)"); // the device reads in quarters of a volt
        else if (unit(rng) < 0.5)
            text = QStringLiteral("Przekroczona wartość tg fi (") + QString::number(0.41 + unit(rng) * 0.2, 'f', 7) + QStringLiteral(")");
        const std::int32_t key = writer.ZapiszAlarm(t, AlarmSource::Controller, text, c.kod, QString());
        const ZDate confirmed = t.addSecs(60 + std::int64_t(unit(rng) * 1800));
        const ZDate ended = t.addSecs(300 + std::int64_t(unit(rng) * 7200));
        writer.ModyfikujAlarm(key, confirmed <= until ? confirmed.toVariant() : QVariant(),
                              ended <= until ? ended.toVariant() : QVariant(), QString());
        ++written;
    }
    return written;
}
