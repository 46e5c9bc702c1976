#include "reports/BillingCsv.h"

#include "reports/BillingStatement.h"
#include "reports/Csv.h"

namespace {

using S = BillingStatement;

QString num(double v, int decimals)
{
    return QString::number(v, 'f', decimals);
}
QString num(const std::optional<double> &v, int decimals)
{
    return v ? num(*v, decimals) : QString();
}
QString day(QDate d)
{
    return d.toString(Qt::ISODate);
}

QStringList energies(const EnergySums &s)
{
    return {num(s.active, 3), num(s.inductive, 3), num(s.capacitive, 3), num(s.inductiveWithoutActive, 3)};
}
const QStringList EnergyHeader{"A_kWh", "Indukcyjna_kvarh", "Pojemnosciowa_kvarh", "IndBezCzynnej_kvarh"};

class Writer {
public:
    void header(const QString &section, const QStringList &names) { row(u'#' + section, names); }
    void row(const QString &section, const QStringList &fields) { m_text += Csv::line(QStringList{section} + fields); }
    QByteArray bytes() const { return m_text.toUtf8(); }

private:
    QString m_text;
};

void tariff(Writer &w, const S &s)
{
    w.header(QStringLiteral("taryfa"), {"klucz", "wartosci"});
    for (const QString &key : ReactiveTariff::keys())
        w.row(QStringLiteral("taryfa"), {key, s.tariff.history(key)});
    w.header(QStringLiteral("czesc"), QStringList{"od", "do", "Regula", "tgFi0", "k", "Crk", "r", "CenaKvarh"} +
                                          EnergyHeader + QStringList{"tgFi", "nadwyzka_kvarh", "oplata_zl"});
    for (const S::Part &p : s.total.parts) {
        const TariffValues &v = p.values;
        w.row(QStringLiteral("czesc"),
              QStringList{day(p.first), day(p.last), v.rule == TariffValues::Rule::Poland ? "PL" : "prog",
                          num(v.tgFi0, 4), num(v.k, 4), num(v.crk, 2), num(v.r, 4), num(v.cenaKvarh, 4)} +
                  energies(p.sums) + QStringList{num(p.charge.tgFi, 4), num(p.charge.excess, 3), num(p.charge.fee, 2)});
    }
}

void lines(Writer &w, const S &s)
{
    w.header(QStringLiteral("regulator"),
             QStringList{"Kod"} + EnergyHeader +
                 QStringList{"tgFi", "nadwyzka_kvarh", "oplata_zl", "pomiary", "oczekiwane", "pokrycie"});
    const auto put = [&](const QString &section, const S::Line &l) {
        w.row(section, QStringList{l.kod} + energies(l.sums) +
                           QStringList{num(l.tgFi, 4), num(l.excess, 3), num(l.fee, 2), QString::number(l.sums.samples),
                                       QString::number(l.sums.expected), num(l.coverage(), 4)});
    };
    for (const S::Line &l : s.controllers)
        put(QStringLiteral("regulator"), l);
    put(QStringLiteral("obiekt"), s.total);
}

void days(Writer &w, const QString &section, const std::vector<S::Day> &list)
{
    w.header(section, QStringList{"Dzien"} + EnergyHeader +
                          QStringList{"tgFi", "nadwyzka_kvarh", "oplata_zl", "pomiary", "oczekiwane"});
    for (const S::Day &d : list)
        w.row(section, QStringList{day(d.day)} + energies(d.sums) +
                           QStringList{num(d.charge.tgFi, 4), num(d.charge.excess, 3), num(d.charge.fee, 2),
                                       QString::number(d.sums.samples), QString::number(d.sums.expected)});
}

void rest(Writer &w, const S &s)
{
    w.header(QStringLiteral("brak"), {"Kod", "Dzien", "pomiary", "oczekiwane", "brak_godzin"});
    for (const S::Gap &g : s.gaps)
        w.row(QStringLiteral("brak"),
              {g.kod, day(g.day), QString::number(g.present), QString::number(g.expected), num(g.missingHours, 2)});
    if (s.pace) {
        w.header(QStringLiteral("tempo"),
                 {"dni_uplynelo", "dni_okresu", "tgFi_dotad", "oplata_dotad_zl", "oplata_w_tempie_zl"});
        w.row(QStringLiteral("tempo"), {num(s.pace->elapsedDays, 3), QString::number(s.pace->periodDays),
                                        num(s.total.tgFi, 4), num(s.total.fee, 2), num(s.pace->feeAtPace, 2)});
    }
    w.header(QStringLiteral("uwaga"), {"tresc"});
    for (const QString &n : s.notes)
        w.row(QStringLiteral("uwaga"), {n});
}

}

QByteArray BillingCsv::text(const S &s)
{
    Writer w;
    w.header(QStringLiteral("okres"), {"zakres", "od", "do", "obliczono"});
    w.row(QStringLiteral("okres"), {s.scope, day(s.first), day(s.last), Csv::moment(s.computedAt)});
    tariff(w, s);
    lines(w, s);
    days(w, QStringLiteral("dzien"), s.days);
    days(w, QStringLiteral("najgorszy"), s.worst ? std::vector<S::Day>{*s.worst} : std::vector<S::Day>{});
    days(w, QStringLiteral("najlepszy"), s.best ? std::vector<S::Day>{*s.best} : std::vector<S::Day>{});
    days(w, QStringLiteral("nadwyzka10"), s.worstByExcess);
    days(w, QStringLiteral("oplata10"), s.worstByFee);
    rest(w, s);
    return w.bytes();
}

void BillingCsv::save(const S &s, const QString &path)
{
    Csv::save(text(s), path);
}
