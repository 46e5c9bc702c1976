#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

struct BillingStatement;

// A bill in the words and figures a reader sees (Polish decimal comma, "—"
// for a tg φ without active energy): what the PDF prints, and a window may
// show, section by section.
namespace BillingText {

struct Table {
    QStringList captions;
    std::vector<double> weights; // the columns' shares of the width
    std::vector<QStringList> rows;
};

// A section: its heading, its lines of text, then its table (if any).
struct Section {
    QString heading;
    QStringList lines;
    std::optional<Table> table;
};

QString number(double value, int decimals);
QString tgFi(const std::optional<double> &value);
// "12,34 zł", or "brak ceny".
QString fee(const std::optional<double> &value);

// "Regulator 'A', okres ...": the line under the title.
QString subtitle(const BillingStatement &s);
// The sections of sections(), in their order.
enum Part { Tariff, Energies, WorstByExcess, WorstByFee, Gaps, Notes };
std::vector<Section> sections(const BillingStatement &s);
// Each day of the period, in the columns of the ten-day tables (a window shows it; the PDF does not).
Section dailySeries(const BillingStatement &s);

}
