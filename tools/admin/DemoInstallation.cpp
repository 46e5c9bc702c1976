#include "DemoInstallation.h"

#include "db/Database.h"

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

void insertControllerRow(Database &db, const DemoInstallation::Controller &c)
{
    SqlStatement s(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ, aktywny, NrFabryczny, Opis, NapieciePomiar, "
                                  "Przekladnia, PrzekladniaNap, CzestOdczytu, CzestTrans, awarCzest, ProgNapiecie, "
                                  "ProgPrad, ProgTgFi, ProgTgFiMin"));
    const char *bounds[] = {"EnCzynna", "EnBiernaCalk", "EnBiernaPoj", "Napiecie",
                            "PradCzynny", "PradBierny", "PradCalk", "Czestotliwosc"};
    for (const char *b : bounds)
        s << QStringLiteral(", %1Min, %1Max").arg(QString::fromLatin1(b));
    for (int i = 1; i <= 9; ++i)
        s << QStringLiteral(", BKSt%1").arg(i);
    s << ") VALUES (";
    s.value(c.kod) << ", ";
    s.value(c.adres) << ", ";
    s.value(QStringLiteral("regulator")) << ", ";
    s.value(c.aktywny) << ", ";
    s.value(QStringLiteral("ZB-%1").arg(2300 + c.adres * 17)) << ", ";
    s.value(c.opis) << ", ";
    s.value(c.napieciePomiar) << ", ";
    s.value(c.przekladnia) << ", ";
    s.value(c.przekladniaNap) << ", ";
    s.value(c.czestOdczytu) << ", ";
    s.value(0) << ", ";
    s.value(c.awarCzest) << ", ";
    s.value(c.progNapiecie) << ", ";
    s.value(c.progPrad) << ", ";
    s.value(c.progTgFi) << ", ";
    s.value(c.progTgFiMin);
    for (int i = 0; i < 8; ++i) {
        s << ", ";
        s.value(0.0f) << ", ";
        s.value(1.0e9f);
    }
    for (int i = 1; i <= 9; ++i) {
        s << ", ";
        s.value(i <= 6 ? c.nominalKw / 8.0 : 0.0); // stage powers in kvar
    }
    s << ")";
    db.exec(s);
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
        {"Rozdzielnia SN", "Zakład", "S"},
        {"GPZ-T1", "Rozdzielnia SN", "R"},
        {"GPZ-T2", "Rozdzielnia SN", "R"},
        {"Hale produkcyjne", "Zakład", "S"},
        {"HALA-A", "Hale produkcyjne", "R"},
        {"HALA-B", "Hale produkcyjne", "R"},
        {"SPREZARKI", "Hale produkcyjne", "R"},
        // tree keys compare case-blind: the hall must not be called "Magazyn"
        {"Magazyny", "Zakład", "S"},
        {"MAGAZYN", "Magazyny", "R"},
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
            if (days > 0) // an inactive one has its history from before it was switched off
                totals.samples += writeHistory(db, c, days, until, seed + unsigned(c.adres));
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
    for (const Controller &c : controllers()) {
        insertControllerRow(db, c);
        ++totals.controllers;
    }
}

void DemoInstallation::writeTree(Database &db)
{
    for (const Element &e : tree()) {
        SqlStatement s(QStringLiteral("INSERT INTO Hierarchia (kod_obiektu, kod_obiektu_nad, typ) VALUES ("));
        s.value(e.kod) << ", ";
        s.value(e.nad) << ", ";
        s.value(e.typ) << ")";
        db.exec(s);
        ++totals.elements;
    }
}

int DemoInstallation::writeHistory(Database &db, const Controller &c, int days, ZDate until, unsigned seed)
{
    std::mt19937 rng(seed);
    std::normal_distribution<double> noise(0.0, 0.04);
    const std::int64_t period = c.czestOdczytu * ZDate::MsPerMinute;
    const ZDate last = ZDate::fromMsecs(until.msecs() / period * period); // on the reading grid
    const double ratedVoltage = c.napieciePomiar == 100 ? 15000.0 : (c.napieciePomiar == 500 ? 500.0 : 400.0);
    double counterP = 0, counterQ = 0, counterCap = 0;
    int written = 0;
    for (ZDate t = last.addDays(-days); t <= last; t = t.addMsecs(period)) {
        const double share = std::max(0.05, loadShare(t.time(), t.date().dayOfWeek()) + noise(rng));
        const double kw = c.nominalKw * share;
        const double tgfi = std::clamp(0.22 + noise(rng) * 2.5, 0.05, 0.55); // after compensation
        const double hours = c.czestOdczytu / 60.0;
        const double enP = kw * hours;
        const double enQ = kw * tgfi * hours;
        const double enCap = -kw * 0.02 * share * hours; // a little over-compensation now and then
        const double volts = ratedVoltage * (1.0 + noise(rng) * 0.25);
        const double amps = kw * 1000.0 / (std::sqrt(3.0) * volts * 0.95);
        SqlStatement s(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna, EnBiernaCalk, EnBiernaPoj, Napiecie, "
                                      "PradBierny, PradCalk, Czestotliwosc) VALUES ("));
        s.value(c.adres) << ", ";
        s.date(t) << ", ";
        s.value(float(enP)) << ", ";
        s.value(float(enQ)) << ", ";
        s.value(float(enCap)) << ", ";
        s.value(float(volts)) << ", ";
        s.value(float(amps * tgfi)) << ", ";
        s.value(float(amps)) << ", ";
        s.value(float(50.0 + noise(rng) * 0.5)) << ")";
        db.exec(s);
        counterP += enP;
        counterQ += enQ;
        counterCap += enCap;
        ++written;
    }
    SqlStatement s(QStringLiteral("INSERT INTO OstPomiar (Adres, PopPradCzynny, PopPradBiernSr, PopPradBiernPojSr, "
                                  "PopTimerU, Czas) VALUES ("));
    s.value(c.adres) << ", ";
    s.value(float(counterP)) << ", ";
    s.value(float(counterQ)) << ", ";
    s.value(float(counterCap)) << ", ";
    s.value(0) << ", ";
    s.date(last) << ")";
    db.exec(s);
    return written;
}
