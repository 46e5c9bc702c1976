#include "base/ReactiveTariff.h"

#include "base/RunTimeError.h"
#include "base/SettingsStore.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace {

// a literal: a tariff may be read while other files' statics are made
constexpr QLatin1String RuleKey("Regula");

RunTimeError malformed(const QString &key, const QString &text, const QString &why)
{
    return RunTimeError(
        RunTimeError::TypeMismatch,
        QStringLiteral("Ustawienie %1/%2 = „%3”: %4").arg(QString(ReactiveTariff::Section), key, text, why));
}

// A number with a decimal comma or dot, not negative.
std::optional<double> number(const QString &text)
{
    bool ok = false;
    const double v = QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    return ok && std::isfinite(v) && v >= 0 ? std::optional<double>(v) : std::nullopt;
}

std::optional<TariffValues::Rule> rule(const QString &text)
{
    if (text.compare(QLatin1String("PL"), Qt::CaseInsensitive) == 0)
        return TariffValues::Rule::Poland;
    if (text.compare(QLatin1String("prog"), Qt::CaseInsensitive) == 0)
        return TariffValues::Rule::Threshold;
    return std::nullopt;
}

// The value of one item of the key's list, read once.
double valueOf(const QString &key, const QString &whole, const QString &text)
{
    if (key == RuleKey) {
        if (const std::optional<TariffValues::Rule> r = rule(text))
            return double(*r);
        throw malformed(key, whole, QStringLiteral("reguła to PL albo prog"));
    }
    if (const std::optional<double> x = number(text))
        return *x;
    throw malformed(key, whole, QStringLiteral("wartość „%1” nie jest liczbą nieujemną").arg(text));
}

}

const QStringList &ReactiveTariff::keys()
{
    static const QStringList all{QString(RuleKey),      QStringLiteral("tgFi0"), QStringLiteral("k"),
                                 QStringLiteral("Crk"), QStringLiteral("r"),     QStringLiteral("CenaKvarh")};
    return all;
}

ReactiveTariff ReactiveTariff::read(const SettingsStore &store)
{
    QMap<QString, QString> texts;
    for (const QString &key : keys()) {
        const QString text = store.value(Section, key, QString());
        if (!text.trimmed().isEmpty())
            texts.insert(key, text);
    }
    return fromTexts(texts);
}

ReactiveTariff ReactiveTariff::fromTexts(const QMap<QString, QString> &texts)
{
    ReactiveTariff t;
    for (auto it = texts.begin(); it != texts.end(); ++it)
        if (keys().contains(it.key()))
            t.m_entries.insert(it.key(), parse(it.key(), it.value()));
    return t;
}

std::vector<ReactiveTariff::Entry> ReactiveTariff::parse(const QString &key, const QString &text)
{
    static const QRegularExpression dated(QStringLiteral("^(\\d{4}-\\d{2}-\\d{2})\\s+(\\S+)$"));
    std::vector<Entry> out;
    for (const QString &part : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString item = part.trimmed();
        const QRegularExpressionMatch m = dated.match(item);
        const QDate from = m.hasMatch() ? QDate::fromString(m.captured(1), Qt::ISODate) : QDate();
        if (m.hasMatch() && !from.isValid())
            throw malformed(key, text, QStringLiteral("„%1” nie jest datą").arg(m.captured(1)));
        if (!out.empty() && (!from.isValid() || from <= out.back().from))
            throw malformed(key, text, QStringLiteral("po pierwszej wartości każda następna ma datę późniejszą"));
        out.push_back({from, valueOf(key, text, m.hasMatch() ? m.captured(2) : item)});
    }
    if (out.empty())
        throw malformed(key, text, QStringLiteral("brak wartości"));
    return out;
}

TariffValues ReactiveTariff::on(QDate day) const
{
    TariffValues v;
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        const Entry *holding = nullptr;
        for (const Entry &e : it.value())
            if (!e.from.isValid() || e.from <= day)
                holding = &e;
        if (!holding)
            continue; // before its first date the default holds
        const QString &key = it.key();
        const double x = holding->value;
        if (key == RuleKey)
            v.rule = TariffValues::Rule(int(x));
        else {
            if (key == QLatin1String("tgFi0"))
                v.tgFi0 = x;
            else if (key == QLatin1String("k"))
                v.k = x;
            else if (key == QLatin1String("Crk"))
                v.crk = x;
            else if (key == QLatin1String("r"))
                v.r = x;
            else
                v.cenaKvarh = x;
        }
    }
    return v;
}

std::vector<QDate> ReactiveTariff::changes(QDate first, QDate last) const
{
    std::vector<QDate> out;
    for (const std::vector<Entry> &entries : m_entries)
        for (const Entry &e : entries)
            if (e.from.isValid() && e.from > first && e.from <= last)
                out.push_back(e.from);
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
    return out;
}

QString ReactiveTariff::history(const QString &key) const
{
    QStringList parts;
    for (const Entry &e : m_entries.value(key)) {
        const bool poland = TariffValues::Rule(int(e.value)) == TariffValues::Rule::Poland;
        const QString value = key != RuleKey ? QString::number(e.value, 'g', 10)
                                             : (poland ? QStringLiteral("PL") : QStringLiteral("prog"));
        parts << value + (e.from.isValid() ? QStringLiteral(" od ") + e.from.toString(Qt::ISODate)
                                           : QStringLiteral(" od zawsze"));
    }
    return parts.join(QStringLiteral("; "));
}
