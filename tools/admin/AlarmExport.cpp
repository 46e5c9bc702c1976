#include "AlarmExport.h"

#include "base/CommandLine.h"
#include "db/Database.h"
#include "reports/AlarmCsv.h"
#include "reports/AlarmHistory.h"
#include "reports/AlarmPrint.h"

namespace {

// "1 alarm", "2 alarmy", "12 alarmów", "22 alarmy"
QString alarms(std::size_t n)
{
    const std::size_t tens = n % 100, units = n % 10;
    const char *word = n == 1 ? "alarm" : (units >= 2 && units <= 4 && (tens < 12 || tens > 14)) ? "alarmy" : "alarmów";
    return QStringLiteral("%1 %2").arg(n).arg(QString::fromUtf8(word));
}

}

void AlarmExport::read(CommandLine &line, const ExportOptions &options)
{
    m_values = options.read(line, QStringLiteral("alarms"), ExportOptions::Days::Range);
    if (m_values.kod.isEmpty())
        line.refuse(QStringLiteral("polecenie alarms wymaga opcji --kod"));
}

int AlarmExport::run(const DatabaseConfig &config, QTextStream &out) const
{
    Database db(config);
    db.open();
    const AlarmHistory history = AlarmHistory::read(db, m_values.kod, m_values.first, m_values.last);
    if (m_values.pdf)
        AlarmPrint::savePdf(history, m_values.file);
    else
        AlarmCsv::save(history, m_values.file);
    out << "Zapisano " << alarms(history.rows.size()) << " regulatora " << m_values.kod << " do " << m_values.file << Qt::endl;
    return 0;
}
