#pragma once

#include "ExportOptions.h"
#include "db/DatabaseConfig.h"
#include "reports/ReportTable.h"

#include <QCommandLineOption>
#include <QString>
#include <QTextStream>
#include <optional>

class CommandLine;
class Database;

// The report command of zorbel-admin: the daily or the period report of a
// controller (--kod) or of an object of the structure (--obiekt), computed
// as the station computes it and saved as CSV or as PDF. An object's
// controllers come from the structure tree built as the station builds it.
class ReportExport {
public:
    ReportExport();

    void addOptions(CommandLine &line) const;
    // Reads the kind (daily, period) and the options it takes; with another
    // command --obiekt is refused unless that command takes it too.
    void read(CommandLine &line, const ExportOptions &options, bool chosen, bool objectTaken);
    const QCommandLineOption &objectOption() const { return m_objectOption; }
    // Exit code 0; 2 with a line on `err` for a controller or an element not
    // there, an element that is a controller, or an object without
    // controllers (no report). A failure to read or to write is a RunTimeError.
    int run(const DatabaseConfig &config, QTextStream &out, QTextStream &err) const;

private:
    // The table, or why there is none.
    struct Made {
        std::optional<ReportTable> table;
        QString refusal;
    };
    Made ofController(Database &db) const;
    Made ofObject(Database &db) const;
    bool daily() const { return m_kind == QLatin1String("daily"); }

    QCommandLineOption m_objectOption;
    QString m_kind, m_object;
    ExportOptions::Values m_values;
};
