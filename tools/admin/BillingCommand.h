#pragma once

#include "ExportOptions.h"
#include "base/ZDate.h"
#include "db/DatabaseConfig.h"

#include <QCommandLineOption>
#include <QString>
#include <QTextStream>

class CommandLine;
class SettingsStore;

// The billing command of zorbel-admin: the bill of reactive energy of a
// controller (--kod) or an object of the structure (--obiekt) for whole
// days (--from, --to) or a month (--month, by default the current one),
// under the tariff of the settings' section "Rozliczenie", saved as CSV or PDF.
class BillingCommand {
public:
    BillingCommand();

    void addOptions(CommandLine &line) const;
    // With another command --month is refused.
    void read(CommandLine &line, const ExportOptions &options, const QCommandLineOption &objectOption, bool chosen);
    // Exit code 0; 2 with a line on `err` for a controller or an element not
    // there, an element that is a controller, or an object without
    // controllers. A tariff value that is not a number, or a failure to read
    // or write, is a RunTimeError. `now` tells the current month and the days to come.
    int run(const DatabaseConfig &config, const SettingsStore &settings, ZDate now, QTextStream &out,
            QTextStream &err) const;

private:
    QCommandLineOption m_monthOption;
    QString m_object;
    QDate m_month; // the first of the month asked for, or invalid
    ExportOptions::Values m_values;
};
