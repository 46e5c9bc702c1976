#include "AlarmExport.h"

#include "base/CommandLine.h"
#include "db/Database.h"
#include "reports/AlarmCsv.h"
#include "reports/AlarmHistory.h"
#include "reports/AlarmPrint.h"

namespace {

const QString DayFormat = QStringLiteral("yyyy-MM-dd");

// "1 alarm", "2 alarmy", "12 alarmów", "22 alarmy"
QString alarms(std::size_t n)
{
    const std::size_t tens = n % 100, units = n % 10;
    const char *word = n == 1 ? "alarm" : (units >= 2 && units <= 4 && (tens < 12 || tens > 14)) ? "alarmy" : "alarmów";
    return QStringLiteral("%1 %2").arg(n).arg(QString::fromUtf8(word));
}

}

AlarmExport::AlarmExport()
    : m_kodOption(QStringLiteral("kod"), QStringLiteral("(alarms) kod regulatora"), QStringLiteral("KOD")),
      m_fromOption(QStringLiteral("from"), QStringLiteral("(alarms) pierwszy dzień, rrrr-mm-dd"), QStringLiteral("DZIEŃ")),
      m_toOption(QStringLiteral("to"), QStringLiteral("(alarms) ostatni dzień (włącznie), rrrr-mm-dd"),
                 QStringLiteral("DZIEŃ")),
      m_csvOption(QStringLiteral("csv"), QStringLiteral("(alarms) zapisuje alarmy w pliku CSV"), QStringLiteral("PLIK")),
      m_pdfOption(QStringLiteral("pdf"), QStringLiteral("(alarms) zapisuje alarmy w pliku PDF"), QStringLiteral("PLIK"))
{
}

void AlarmExport::addOptions(CommandLine &line) const
{
    for (const QCommandLineOption &option : {m_kodOption, m_fromOption, m_toOption, m_csvOption, m_pdfOption})
        line.addOption(option);
}

void AlarmExport::read(CommandLine &line, bool chosen)
{
    const std::initializer_list<const QCommandLineOption *> own{&m_kodOption, &m_fromOption, &m_toOption, &m_csvOption,
                                                                &m_pdfOption};
    if (!chosen) {
        for (const QCommandLineOption *o : own)
            if (line.isSet(*o))
                line.refuse(QStringLiteral("opcja --%1 należy tylko do polecenia alarms").arg(o->names().constFirst()));
        return;
    }
    m_kod = line.value(m_kodOption);
    if (m_kod.isEmpty())
        line.refuse(QStringLiteral("polecenie alarms wymaga opcji --kod"));
    m_first = day(line, m_fromOption);
    m_last = day(line, m_toOption);
    if (m_first.isValid() && m_last.isValid() && m_last < m_first)
        line.refuse(QStringLiteral("zakres dat odwrócony: --to przed --from"));
    m_pdf = line.isSet(m_pdfOption);
    if (m_pdf == line.isSet(m_csvOption))
        line.refuse(QStringLiteral("polecenie alarms wymaga jednej z opcji --csv albo --pdf"));
    m_file = line.value(m_pdf ? m_pdfOption : m_csvOption);
}

QDate AlarmExport::day(CommandLine &line, const QCommandLineOption &option) const
{
    if (!line.isSet(option)) {
        line.refuse(QStringLiteral("polecenie alarms wymaga opcji --%1").arg(option.names().constFirst()));
        return {};
    }
    const QDate d = QDate::fromString(line.value(option), DayFormat);
    if (!d.isValid())
        line.refuseValue(option, QStringLiteral("dzień w postaci rrrr-mm-dd"));
    return d;
}

int AlarmExport::run(const DatabaseConfig &config, QTextStream &out) const
{
    Database db(config);
    db.open();
    const AlarmHistory history = AlarmHistory::read(db, m_kod, m_first, m_last);
    if (m_pdf)
        AlarmPrint::savePdf(history, m_file);
    else
        AlarmCsv::save(history, m_file);
    out << "Zapisano " << alarms(history.rows.size()) << " regulatora " << m_kod << " do " << m_file << Qt::endl;
    return 0;
}
