#include "reports/BillingStatement.h"

#include <QLocale>
#include <algorithm>

namespace {

using S = BillingStatement;
using Days = std::map<QDate, EnergySums>;

// `now` taken apart once: a date's conversion asks the system for the time zone.
struct Today {
    QDate day;
    int minutes; // of the day gone by
};

Today todayOf(ZDate now)
{
    const QDate day = now.date();
    return {day, int((now.msecs() - ZDate::startOf(day).msecs()) / ZDate::MsPerMinute)};
}

// The samples a day should hold: a whole day's, today's so far, none for a day to come.
int expectedOn(QDate day, int minutes, Today today)
{
    if (day > today.day)
        return 0;
    return (day < today.day ? 24 * 60 : today.minutes) / minutes;
}

// Fills in the samples each day of the period should hold, noting the days short of them.
void expect(BillingQuery::Controller &c, QDate first, QDate last, Today today, std::vector<S::Gap> &gaps)
{
    for (QDate d = first; d <= last && d <= today.day; d = d.addDays(1)) {
        EnergySums &s = c.days[d];
        s.expected = expectedOn(d, c.minutes, today);
        s.covered = std::min(s.samples, s.expected);
        if (s.samples < s.expected)
            gaps.push_back({c.kod, d, s.samples, s.expected, double(s.expected - s.samples) * c.minutes / 60});
    }
}

// The period cut at each day on which a value of the tariff changes.
std::vector<S::Part> partsOf(QDate first, QDate last, const ReactiveTariff &tariff)
{
    std::vector<QDate> cuts = tariff.changes(first, last);
    cuts.push_back(last.addDays(1));
    std::vector<S::Part> parts;
    QDate from = first;
    for (QDate cut : cuts) {
        parts.push_back({from, cut.addDays(-1), tariff.on(from), {}, {}});
        from = cut;
    }
    return parts;
}

S::Line lineOf(const QString &kod, const Days &days, std::vector<S::Part> parts)
{
    S::Line line{kod, {}, {}, std::move(parts), 0, {}};
    bool priced = true;
    double fee = 0;
    for (S::Part &p : line.parts) {
        for (auto it = days.lower_bound(p.first); it != days.end() && it->first <= p.last; ++it)
            p.sums += it->second;
        p.charge = BillingRule::charge(p.sums, p.values);
        line.sums += p.sums;
        line.excess += p.charge.excess;
        priced = priced && p.charge.fee.has_value();
        fee += p.charge.fee.value_or(0);
    }
    if (line.sums.active > 0)
        line.tgFi = line.sums.inductive / line.sums.active;
    if (priced)
        line.fee = fee;
    return line;
}

// The ten days ahead by `key`, those with none left out.
template <typename Key> std::vector<S::Day> worstBy(const std::vector<S::Day> &days, Key key)
{
    std::vector<S::Day> out;
    std::copy_if(days.begin(), days.end(), std::back_inserter(out), [&](const S::Day &d) { return key(d) > 0; });
    std::stable_sort(out.begin(), out.end(), [&](const S::Day &a, const S::Day &b) { return key(a) > key(b); });
    if (out.size() > std::size_t(S::WorstDays))
        out.resize(S::WorstDays);
    return out;
}

void rankDays(S &s)
{
    for (const S::Day &d : s.days) {
        if (!d.charge.tgFi)
            continue;
        if (!s.worst || *d.charge.tgFi > *s.worst->charge.tgFi)
            s.worst = d;
        if (!s.best || *d.charge.tgFi < *s.best->charge.tgFi)
            s.best = d;
    }
    s.worstByExcess = worstBy(s.days, [](const S::Day &d) { return d.charge.excess; });
    s.worstByFee = worstBy(s.days, [](const S::Day &d) { return d.charge.fee.value_or(0); });
}

std::optional<S::Pace> paceOf(const S &s)
{
    const QDate today = s.computedAt.date();
    if (today < s.first || today > s.last)
        return std::nullopt;
    S::Pace p{double(s.computedAt.msecs() - ZDate::startOf(s.first).msecs()) / double(ZDate::MsPerDay),
              int(s.first.daysTo(s.last)) + 1,
              {}};
    if (s.total.fee && p.elapsedDays > 0)
        p.feeAtPace = *s.total.fee * p.periodDays / p.elapsedDays;
    return p;
}

QStringList notesOf(const S &s)
{
    QStringList n{QStringLiteral("Energia z przerwy w zapisie (stacja wyłączona, regulator milczący) liczy się "
                                 "w pierwszym pomiarze po przerwie.")};
    if (s.total.sums.samples == 0)
        n << QStringLiteral("Brak pomiarów w okresie: energie i opłata są zerowe.");
    else if (s.total.sums.active <= 0 && s.total.sums.inductive > 0)
        n << QStringLiteral("Brak energii czynnej: tg φ „—”, cała energia bierna indukcyjna jest ponadumowna.");
    if (s.total.parts.size() > 1)
        n << QStringLiteral("Taryfa zmienia się w okresie: rozliczono go w %1 częściach, opłata jest ich sumą.")
                 .arg(s.total.parts.size());
    if (!s.total.fee)
        n << QStringLiteral("Nie ustawiono ceny (Crk dla reguły PL, CenaKvarh dla reguły prog): podano energie i tg φ, "
                            "bez opłaty.");
    if (!s.gaps.empty())
        n << QStringLiteral("Archiwum pokrywa %1 % okresu: %2 dni regulatorów z brakami pomiarów.")
                 .arg(QLocale(QLocale::Polish).toString(100 * s.total.coverage(), 'f', 1))
                 .arg(s.gaps.size());
    if (s.controllers.size() > 1)
        n << QStringLiteral("Opłata obiektu liczona jest z sum energii jego regulatorów.");
    return n;
}

}

BillingStatement BillingStatement::compute(Database &db, const BillingQuery::Scope &scope, const QString &title,
                                           QDate first, QDate last, ZDate now, const ReactiveTariff &tariff)
{
    BillingStatement s{title, first, last, now, tariff, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
    const std::vector<S::Part> parts = partsOf(first, last, tariff);
    const Today today = todayOf(now);
    Days object;
    for (BillingQuery::Controller &c : BillingQuery::read(db, scope, first, last)) {
        expect(c, first, last, today, s.gaps);
        s.controllers.push_back(lineOf(c.kod, c.days, parts));
        for (const auto &[day, sums] : c.days)
            object[day] += sums;
    }
    s.total = lineOf(QString(), object, parts);
    for (QDate d = first; d <= last && d <= today.day; d = d.addDays(1))
        s.days.push_back({d, object[d], BillingRule::charge(object[d], tariff.on(d))});
    rankDays(s);
    s.pace = paceOf(s);
    s.notes = notesOf(s);
    return s;
}
