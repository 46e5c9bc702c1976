#pragma once

#include <QCommandLineOption>
#include <QDate>
#include <QString>

class CommandLine;

// The options the saving commands of zorbel-admin (alarms, report, billing) share:
// a controller's code, whole days from --from to --to, and the file, CSV or
// PDF. Each is added to the command line once and read by the command chosen.
class ExportOptions {
public:
    // Which days a command takes: --from and --to; --from with --to or
    // alone (that one day); --from alone; --from and --to, or neither (the
    // days left invalid: the command's default).
    enum class Days { Range, RangeOrDay, Day, RangeOrNone };
    struct Values {
        QString kod; // empty when not given: each command tells whether it needs it
        QDate first, last;
        QString file;
        bool pdf = false;
    };

    ExportOptions();

    void addOptions(CommandLine &line) const;
    // The values for `command` (as named in refusals), after a parse that
    // let the tool run; what the command cannot take is refused.
    Values read(CommandLine &line, const QString &command, Days days) const;
    // With a command that saves nothing, any of them is refused.
    void refuseAll(CommandLine &line) const;

private:
    // The file, CSV or PDF, put into `v`.
    Values file(CommandLine &line, const QString &command, Values v) const;
    QDate day(CommandLine &line, const QCommandLineOption &option, const QString &command) const;

    QCommandLineOption m_kodOption, m_fromOption, m_toOption, m_csvOption, m_pdfOption;
};
