#pragma once

#include <QDate>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class SettingsStore;

// The values one day's reactive energy is billed by.
struct TariffValues {
    // PL: the fee of the Polish tariff regulation; Threshold: reactive energy
    // above r·A at a price per kvarh.
    enum class Rule { Poland, Threshold };
    Rule rule = Rule::Poland;
    double tgFi0 = 0.4;
    double k = 1;
    std::optional<double> crk;       // zł/MWh
    double r = 0.33;                 // a power factor of 0.95
    std::optional<double> cenaKvarh; // zł/kvarh

    // Whether the rule's price is set: without it only energies and tg φ are shown.
    bool priced() const { return rule == Rule::Poland ? crk.has_value() : cenaKvarh.has_value(); }
    bool operator==(const TariffValues &) const = default;
};

// The tariff of section "Rozliczenie" of the settings store. Each key holds
// a list "VALUE; RRRR-MM-DD VALUE; ...": the bare first value holds from
// always, each dated one from its day on; numbers take a decimal comma or
// dot. Before a key's first dated value, and for a key not set, the default
// holds (for Crk and CenaKvarh: no price). Regula is PL or prog.
class ReactiveTariff {
public:
    static constexpr QLatin1String Section{"Rozliczenie"};
    // The keys, in the order the bill prints them.
    static const QStringList &keys();

    // A value that is not a number (or not a rule, or dates out of order)
    // is a RunTimeError naming the key and its text: no default stands in.
    static ReactiveTariff read(const SettingsStore &store);
    // The same from the texts of the keys; absent ones are not set.
    static ReactiveTariff fromTexts(const QMap<QString, QString> &texts);

    TariffValues on(QDate day) const;
    // The days in (first, last] on which some value starts to hold.
    std::vector<QDate> changes(QDate first, QDate last) const;
    // "320.10 od zawsze; 350.50 od 2026-01-01" as set, or empty for a key not set.
    QString history(const QString &key) const;

private:
    struct Entry {
        QDate from; // invalid: from always
        double value; // the number, or for the rule its Rule
    };
    static std::vector<Entry> parse(const QString &key, const QString &text);

    QMap<QString, std::vector<Entry>> m_entries;
};
