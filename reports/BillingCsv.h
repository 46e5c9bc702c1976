#pragma once

#include <QByteArray>
#include <QString>

struct BillingStatement;

// A bill as CSV, as the reports' CSV is written (UTF-8, ';', CRLF, dot
// decimals, ISO dates), with the figures the PDF prints. Each row begins
// with its section's name; the header row of a section begins with '#'
// and the name: okres, taryfa, czesc, regulator, obiekt, dzien, najgorszy,
// najlepszy, nadwyzka10, oplata10, brak, tempo, uwaga. A figure that has no
// value (tg φ without active energy, a fee without a price) is empty.
namespace BillingCsv {

QByteArray text(const BillingStatement &statement);
// The whole file or, on a failure (RunTimeError), nothing left behind.
void save(const BillingStatement &statement, const QString &path);

}
