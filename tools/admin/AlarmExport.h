#pragma once

#include "ExportOptions.h"
#include "db/DatabaseConfig.h"

#include <QTextStream>

class CommandLine;

// The alarms command of zorbel-admin: the alarms of one controller over
// whole days, saved as CSV or as PDF.
class AlarmExport {
public:
    // Takes the saving options as the command needs them: --kod, --from
    // and --to, a file.
    void read(CommandLine &line, const ExportOptions &options);
    // Exit code 0; a failure to read or to write is a RunTimeError.
    int run(const DatabaseConfig &config, QTextStream &out) const;

private:
    ExportOptions::Values m_values;
};
