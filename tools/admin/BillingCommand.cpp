#include "BillingCommand.h"

#include "ObjectLookup.h"
#include "base/CommandLine.h"
#include "base/ReactiveTariff.h"
#include "db/ControllerStore.h"
#include "db/Database.h"
#include "db/SchemaVersion.h"
#include "reports/BillingCsv.h"
#include "reports/BillingPrint.h"
#include "reports/BillingStatement.h"
#include "reports/ReportQueries.h"

namespace {

struct Target {
    BillingQuery::Scope scope;
    QString title;
    QString refusal;
};

Target controller(Database &db, const QString &kod)
{
    const std::optional<ControllerStore::Identity> c = ControllerStore([&db]() -> Database & { return db; }).find(kod);
    if (!c)
        return {{}, {}, QStringLiteral("brak regulatora o kodzie %1 w tabeli Regulatory").arg(kod)};
    return {{c->adres, {}}, QStringLiteral("Regulator '%1'").arg(c->kod), {}};
}

Target object(Database &db, const QString &name)
{
    const ObjectLookup::Found found = ObjectLookup::find(db, name);
    if (!found.refusal.isEmpty())
        return {{}, {}, found.refusal};
    const QString condition = ReportQueries::condition(found.controllerList);
    if (condition.isEmpty())
        return {{}, {}, QStringLiteral("obiekt %1: brak regulatorów, rozliczenia nie ma").arg(name)};
    return {{std::nullopt, condition}, QStringLiteral("Obiekt '%1'").arg(name), {}};
}

}

BillingCommand::BillingCommand()
    : m_monthOption(QStringLiteral("month"),
                    QStringLiteral("(billing) miesiąc rozliczenia, rrrr-mm (domyślnie bieżący)"),
                    QStringLiteral("MIESIĄC"))
{
}

void BillingCommand::addOptions(CommandLine &line) const
{
    line.addOption(m_monthOption);
}

void BillingCommand::read(CommandLine &line, const ExportOptions &options, const QCommandLineOption &objectOption,
                          bool chosen)
{
    if (!chosen) {
        if (line.isSet(m_monthOption))
            line.refuse(QStringLiteral("opcja --month należy tylko do polecenia billing"));
        return;
    }
    m_values = options.read(line, QStringLiteral("billing"), ExportOptions::Days::RangeOrNone);
    m_object = line.value(objectOption);
    if (m_values.kod.isEmpty() == m_object.isEmpty())
        line.refuse(QStringLiteral("polecenie billing wymaga jednej z opcji --kod albo --obiekt"));
    if (!line.isSet(m_monthOption))
        return;
    if (m_values.first.isValid())
        line.refuse(QStringLiteral("polecenie billing bierze --month albo --from z --to, nie oba"));
    m_month = QDate::fromString(line.value(m_monthOption) + QStringLiteral("-01"), QStringLiteral("yyyy-MM-dd"));
    if (!m_month.isValid())
        line.refuseValue(m_monthOption, QStringLiteral("miesiąc w postaci rrrr-mm"));
}

int BillingCommand::run(const DatabaseConfig &config, const SettingsStore &settings, ZDate now, QTextStream &out,
                        QTextStream &err) const
{
    const ReactiveTariff tariff = ReactiveTariff::read(settings); // a bad value stops before any file
    const QDate month = m_month.isValid() ? m_month : QDate(now.date().year(), now.date().month(), 1);
    const QDate first = m_values.first.isValid() ? m_values.first : month;
    const QDate last = m_values.first.isValid() ? m_values.last : month.addMonths(1).addDays(-1);
    Database db(config);
    db.open();
    SchemaVersion::check(db); // an older archive lacks the roll-ups' measures: it names the upgrade
    const Target target = m_object.isEmpty() ? controller(db, m_values.kod) : object(db, m_object);
    if (!target.refusal.isEmpty()) {
        err << "zorbel-admin: " << target.refusal << Qt::endl;
        return CommandLine::RefusedExitCode;
    }
    const BillingStatement s = BillingStatement::compute(db, target.scope, target.title, first, last, now, tariff);
    if (m_values.pdf)
        BillingPrint::savePdf(s, m_values.file);
    else
        BillingCsv::save(s, m_values.file);
    out << "Zapisano rozliczenie energii biernej: " << target.title << ", " << first.toString(Qt::ISODate) << " - "
        << last.toString(Qt::ISODate) << ", do " << m_values.file << Qt::endl;
    return 0;
}
