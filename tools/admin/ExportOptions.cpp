#include "ExportOptions.h"

#include "base/CommandLine.h"

ExportOptions::ExportOptions()
    : m_kodOption(QStringLiteral("kod"), QStringLiteral("(alarms, report, billing) kod regulatora"),
                  QStringLiteral("KOD")),
      m_fromOption(QStringLiteral("from"), QStringLiteral("(alarms, report, billing) pierwszy dzień, rrrr-mm-dd"),
                   QStringLiteral("DZIEŃ")),
      m_toOption(QStringLiteral("to"),
                 QStringLiteral("(alarms, report period, billing) ostatni dzień (włącznie), rrrr-mm-dd"),
                 QStringLiteral("DZIEŃ")),
      m_csvOption(QStringLiteral("csv"), QStringLiteral("(alarms, report, billing) zapisuje w pliku CSV"),
                  QStringLiteral("PLIK")),
      m_pdfOption(QStringLiteral("pdf"), QStringLiteral("(alarms, report, billing) zapisuje w pliku PDF"),
                  QStringLiteral("PLIK"))
{
}

void ExportOptions::addOptions(CommandLine &line) const
{
    for (const QCommandLineOption &option : {m_kodOption, m_fromOption, m_toOption, m_csvOption, m_pdfOption})
        line.addOption(option);
}

void ExportOptions::refuseAll(CommandLine &line) const
{
    for (const QCommandLineOption *o : {&m_kodOption, &m_fromOption, &m_toOption, &m_csvOption, &m_pdfOption})
        if (line.isSet(*o))
            line.refuse(QStringLiteral("opcja --%1 należy tylko do poleceń alarms, report i billing")
                            .arg(o->names().constFirst()));
}

ExportOptions::Values ExportOptions::read(CommandLine &line, const QString &command, Days days) const
{
    Values v;
    v.kod = line.value(m_kodOption);
    if (days == Days::RangeOrNone && !line.isSet(m_fromOption) && !line.isSet(m_toOption))
        return file(line, command, v);
    v.first = day(line, m_fromOption, command);
    if (days == Days::Day && line.isSet(m_toOption))
        line.refuse(QStringLiteral("polecenie %1 bierze jeden dzień (--from), bez opcji --to").arg(command));
    const bool lastGiven =
        days == Days::Range || days == Days::RangeOrNone || (days == Days::RangeOrDay && line.isSet(m_toOption));
    v.last = lastGiven ? day(line, m_toOption, command) : v.first;
    if (v.first.isValid() && v.last.isValid() && v.last < v.first)
        line.refuse(QStringLiteral("zakres dat odwrócony: --to przed --from"));
    return file(line, command, v);
}

ExportOptions::Values ExportOptions::file(CommandLine &line, const QString &command, Values v) const
{
    v.pdf = line.isSet(m_pdfOption);
    if (v.pdf == line.isSet(m_csvOption))
        line.refuse(QStringLiteral("polecenie %1 wymaga jednej z opcji --csv albo --pdf").arg(command));
    v.file = line.value(v.pdf ? m_pdfOption : m_csvOption);
    return v;
}

QDate ExportOptions::day(CommandLine &line, const QCommandLineOption &option, const QString &command) const
{
    if (!line.isSet(option)) {
        line.refuse(QStringLiteral("polecenie %1 wymaga opcji --%2").arg(command, option.names().constFirst()));
        return {};
    }
    const QDate d = QDate::fromString(line.value(option), QStringLiteral("yyyy-MM-dd"));
    if (!d.isValid())
        line.refuseValue(option, QStringLiteral("dzień w postaci rrrr-mm-dd"));
    return d;
}
