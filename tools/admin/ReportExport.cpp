#include "ReportExport.h"

#include "ObjectLookup.h"
#include "base/CommandLine.h"
#include "db/ControllerStore.h"
#include "db/Database.h"
#include "db/SchemaVersion.h"
#include "reports/ReportBuild.h"
#include "reports/ReportCsv.h"
#include "reports/ReportPrint.h"

namespace {

std::function<Database &()> on(Database &db)
{
    return [&db]() -> Database & { return db; };
}

}

ReportExport::ReportExport()
    : m_objectOption(QStringLiteral("obiekt"),
                     QStringLiteral("(report, billing) element struktury: raport albo rozliczenie jego regulatorów"),
                     QStringLiteral("NAZWA"))
{
}

void ReportExport::addOptions(CommandLine &line) const
{
    line.addOption(m_objectOption);
}

void ReportExport::read(CommandLine &line, const ExportOptions &options, bool chosen, bool objectTaken)
{
    if (!chosen) {
        if (line.isSet(m_objectOption) && !objectTaken)
            line.refuse(QStringLiteral("opcja --obiekt należy tylko do poleceń report i billing"));
        return;
    }
    m_kind = line.positionalArguments().value(1);
    if (m_kind != QLatin1String("daily") && m_kind != QLatin1String("period"))
        line.refuse(QStringLiteral("polecenie report wymaga rodzaju raportu: daily albo period"));
    m_values = options.read(line, QStringLiteral("report ") + m_kind,
                            daily() ? ExportOptions::Days::Day : ExportOptions::Days::RangeOrDay);
    m_object = line.value(m_objectOption);
    if (m_values.kod.isEmpty() == m_object.isEmpty())
        line.refuse(QStringLiteral("polecenie report wymaga jednej z opcji --kod albo --obiekt"));
}

int ReportExport::run(const DatabaseConfig &config, QTextStream &out, QTextStream &err) const
{
    Database db(config);
    db.open();
    SchemaVersion::check(db); // an older archive has no day roll-ups: it names the upgrade
    const Made made = m_object.isEmpty() ? ofController(db) : ofObject(db);
    if (!made.table) {
        err << "zorbel-admin: " << made.refusal << Qt::endl;
        return CommandLine::RefusedExitCode;
    }
    if (m_values.pdf)
        ReportPrint::savePdf(*made.table, QDate::currentDate(), m_values.file);
    else
        ReportCsv::save(*made.table, m_values.file);
    out << "Zapisano raport " << (daily() ? "dobowy" : "okresowy") << made.table->tytul() << made.table->podtytul()
        << " do " << m_values.file << Qt::endl;
    return 0;
}

ReportExport::Made ReportExport::ofController(Database &db) const
{
    const std::optional<ControllerStore::Identity> c = ControllerStore(on(db)).find(m_values.kod);
    if (!c)
        return {std::nullopt, QStringLiteral("brak regulatora o kodzie %1 w tabeli Regulatory").arg(m_values.kod)};
    if (daily())
        return {ReportBuild::dailyOfController(db, m_values.first, c->adres, c->kod), {}};
    return {ReportBuild::periodOfController(db, m_values.first, m_values.last, c->adres, c->kod), {}};
}

ReportExport::Made ReportExport::ofObject(Database &db) const
{
    const ObjectLookup::Found found = ObjectLookup::find(db, m_object);
    if (!found.refusal.isEmpty())
        return {std::nullopt, found.refusal};
    const QString &list = found.controllerList;
    std::optional<ReportTable> table =
        daily() ? ReportBuild::dailyOfObject(db, m_values.first, m_object, list)
                : ReportBuild::periodOfObject(db, m_values.first, m_values.last, m_object, list);
    if (!table)
        return {std::nullopt, QStringLiteral("obiekt %1: brak regulatorów, raportu nie ma").arg(m_object)};
    return {std::move(table), {}};
}
