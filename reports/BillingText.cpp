#include "reports/BillingText.h"

#include "reports/BillingStatement.h"

#include <QLocale>

namespace {

using S = BillingStatement;
using Section = BillingText::Section;
using Table = BillingText::Table;
using BillingText::number;

QString kwh(double v)
{
    return number(v, 1);
}
QString day(QDate d)
{
    return d.toString(QStringLiteral("dd.MM.yyyy"));
}

QString ruleLine(TariffValues::Rule rule)
{
    return rule == TariffValues::Rule::Poland
               ? QStringLiteral("PL: opłata = k · Crk · (√((1 + tg²φ) / (1 + tg²φ0)) − 1) · A [MWh]; energia bierna "
                                "pojemnościowa i indukcyjna pobrana bez energii czynnej: k · Crk za każdy Mvarh")
               : QStringLiteral("prog: nadwyżka = max(0, energia bierna indukcyjna − r · A), po CenaKvarh za kvarh");
}

Section tariffSection(const S &s)
{
    Section out{QStringLiteral("Taryfa (ustawienia, sekcja Rozliczenie)"), {}, {}};
    for (const S::Part &p : s.total.parts)
        out.lines << QStringLiteral("Od %1 do %2 reguła %3").arg(day(p.first), day(p.last), ruleLine(p.values.rule));
    for (const QString &key : ReactiveTariff::keys()) {
        const QString h = s.tariff.history(key).replace(QLatin1Char('.'), QLatin1Char(','));
        out.lines << key + QStringLiteral(": ") + (h.isEmpty() ? QStringLiteral("nie ustawiono (domyślna)") : h);
    }
    QStringList captions{"Od",       "Do",    "Reguła", "tg φ0",          "k",     "Crk zł/MWh", "r",
                         "zł/kvarh", "A kWh", "tg φ",   "Nadwyżka kvarh", "Opłata"};
    Table t{captions, {1.3, 1.3, 0.8, 0.8, 0.7, 1.1, 0.8, 0.9, 1.3, 0.8, 1.3, 1.3}, {}};
    for (const S::Part &p : s.total.parts) {
        const TariffValues &v = p.values;
        t.rows.push_back({day(p.first), day(p.last), v.rule == TariffValues::Rule::Poland ? "PL" : "prog",
                          number(v.tgFi0, 4), number(v.k, 2), v.crk ? number(*v.crk, 2) : "—", number(v.r, 4),
                          v.cenaKvarh ? number(*v.cenaKvarh, 4) : "—", kwh(p.sums.active),
                          BillingText::tgFi(p.charge.tgFi), kwh(p.charge.excess), BillingText::fee(p.charge.fee)});
    }
    out.table = t;
    return out;
}

QStringList lineRow(const S::Line &l, const QString &name)
{
    return {name,
            kwh(l.sums.active),
            kwh(l.sums.inductive),
            kwh(l.sums.capacitive),
            kwh(l.sums.inductiveWithoutActive),
            BillingText::tgFi(l.tgFi),
            kwh(l.excess),
            BillingText::fee(l.fee),
            number(100 * l.coverage(), 1) + " %"};
}

Section linesSection(const S &s)
{
    Section out{QStringLiteral("Energie okresu"), {}, {}};
    Table t{{"Regulator", "A kWh", "Indukc. kvarh", "Pojemn. kvarh", "Ind. bez czynnej", "tg φ", "Nadwyżka kvarh",
             "Opłata", "Pokrycie"},
            {1.4, 1.3, 1.3, 1.3, 1.3, 0.8, 1.3, 1.3, 1.0},
            {}};
    for (const S::Line &l : s.controllers)
        t.rows.push_back(lineRow(l, l.kod));
    t.rows.push_back(lineRow(s.total, QStringLiteral("Razem")));
    out.table = t;
    QStringList tg0;
    for (const S::Part &p : s.total.parts)
        tg0 << number(p.values.tgFi0, 2);
    out.lines << QStringLiteral("tg φ okresu (energia bierna indukcyjna ÷ czynna): %1, tg φ0: %2")
                     .arg(BillingText::tgFi(s.total.tgFi), tg0.join(QStringLiteral(" / ")));
    const auto dayLine = [](const char *what, const std::optional<S::Day> &d) {
        return d ? QStringLiteral("%1 dzień (tg φ dnia): %2, tg φ %3")
                       .arg(QLatin1String(what), day(d->day), BillingText::tgFi(d->charge.tgFi))
                 : QStringLiteral("%1 dzień: brak dni z energią czynną").arg(QLatin1String(what));
    };
    out.lines << dayLine("Najgorszy", s.worst) << dayLine("Najlepszy", s.best);
    if (s.pace)
        out.lines << QStringLiteral(
                         "Okres trwa (%1 z %2 dni): tg φ dotąd %3, opłata dotąd %4, w tym tempie za cały okres %5")
                         .arg(number(s.pace->elapsedDays, 1))
                         .arg(s.pace->periodDays)
                         .arg(BillingText::tgFi(s.total.tgFi), BillingText::fee(s.total.fee),
                              BillingText::fee(s.pace->feeAtPace));
    return out;
}

Section daysSection(const QString &heading, const std::vector<S::Day> &days,
                    const QString &none = QStringLiteral("Brak dni z nadwyżką."))
{
    Section out{heading, {}, {}};
    if (days.empty())
        out.lines << none;
    Table t{{"Dzień", "A kWh", "Indukc. kvarh", "Pojemn. kvarh", "tg φ", "Nadwyżka kvarh", "Opłata"},
            {1.3, 1.3, 1.3, 1.3, 0.8, 1.3, 1.3},
            {}};
    for (const S::Day &d : days)
        t.rows.push_back({day(d.day), kwh(d.sums.active), kwh(d.sums.inductive), kwh(d.sums.capacitive),
                          BillingText::tgFi(d.charge.tgFi), kwh(d.charge.excess), BillingText::fee(d.charge.fee)});
    if (!days.empty())
        out.table = t;
    return out;
}

Section gapsSection(const S &s)
{
    Section out{QStringLiteral("Braki w archiwum"), {}, {}};
    out.lines << QStringLiteral("Pomiary obecne wobec oczekiwanych (1440 min ÷ częstość odczytu na dobę, dni przyszłe "
                                "pominięte): pokrycie okresu %1 %.")
                     .arg(number(100 * s.total.coverage(), 1));
    if (s.gaps.empty())
        return out;
    Table t{{"Regulator", "Dzień", "Pomiary", "Oczekiwane", "Brak godzin"}, {1.4, 1.3, 1, 1, 1}, {}};
    for (const S::Gap &g : s.gaps)
        t.rows.push_back(
            {g.kod, day(g.day), QString::number(g.present), QString::number(g.expected), number(g.missingHours, 2)});
    out.table = t;
    return out;
}

}

QString BillingText::number(double value, int decimals)
{
    return QLocale(QLocale::Polish).toString(value, 'f', decimals);
}

QString BillingText::tgFi(const std::optional<double> &value)
{
    return value ? number(*value, 3) : QStringLiteral("—");
}

QString BillingText::fee(const std::optional<double> &value)
{
    return value ? number(*value, 2) + QStringLiteral(" zł") : QStringLiteral("brak ceny");
}

QString BillingText::subtitle(const BillingStatement &s)
{
    return QStringLiteral("%1, okres od %2 do %3; obliczono %4")
        .arg(s.scope, day(s.first), day(s.last), s.computedAt.toString(QStringLiteral("dd.MM.yyyy HH:mm")));
}

BillingText::Section BillingText::dailySeries(const BillingStatement &s)
{
    return daysSection(QStringLiteral("Dni okresu"), s.days, QStringLiteral("Brak dni do pokazania."));
}

std::vector<BillingText::Section> BillingText::sections(const BillingStatement &s)
{
    return {tariffSection(s),
            linesSection(s),
            daysSection(QStringLiteral("Dziesięć dni o największej nadwyżce energii biernej"), s.worstByExcess),
            daysSection(QStringLiteral("Dziesięć dni o największej opłacie (opłata dnia z jego własnych sum)"),
                        s.worstByFee),
            gapsSection(s),
            {QStringLiteral("Uwagi"), s.notes, {}}};
}
