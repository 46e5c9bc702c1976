#pragma once

#include "db/DatabaseConfig.h"

#include <QCommandLineOption>
#include <QDate>
#include <QString>
#include <QTextStream>

class CommandLine;

// The alarms command of zorbel-admin: the alarms of one controller over
// whole days, saved as CSV or as PDF.
class AlarmExport {
public:
    AlarmExport();

    void addOptions(CommandLine &line) const;
    // Reads its options after a parse that let the tool run. They belong to
    // the alarms command alone: with another command, any of them is refused.
    void read(CommandLine &line, bool chosen);
    // Exit code 0; a failure to read or to write is a RunTimeError.
    int run(const DatabaseConfig &config, QTextStream &out) const;

private:
    QDate day(CommandLine &line, const QCommandLineOption &option) const;

    QCommandLineOption m_kodOption, m_fromOption, m_toOption, m_csvOption, m_pdfOption;
    QString m_kod;
    QDate m_first, m_last;
    QString m_file;
    bool m_pdf = false;
};
