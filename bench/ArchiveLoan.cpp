#include "ArchiveLoan.h"

#include "SimFleet.h"

#include "base/RunTimeError.h"
#include "db/Database.h"

#include <QTextStream>

ArchiveLoan::ArchiveLoan(const DatabaseConfig &config, int controllers) : m_config(config)
{
    try {
        lend(controllers);
    } catch (...) {
        giveBack();
        throw;
    }
}

ArchiveLoan::~ArchiveLoan()
{
    try {
        giveBack();
    } catch (const RunTimeError &e) {
        QTextStream(stderr) << "Nie usunięto dodatków z " << m_config.describe() << ": " << e.message() << Qt::endl;
    }
}

void ArchiveLoan::lend(int controllers)
{
    SimFleet fleet(m_config);
    Database &db = fleet.station.openDatabase();
    m_last = FleetOnArchive::lastSample(db);
    m_lastAlarm = FleetOnArchive::lastKey(db, QStringLiteral("Alarmy"), QStringLiteral("Id_alarmu"));
    m_lastLog = FleetOnArchive::lastKey(db, QStringLiteral("Log"), QStringLiteral("Id_wpisu"));
    m_completed = FleetOnArchive::completeControllers(db);
    m_controllers = FleetOnArchive::addControllers(fleet, db, controllers);
    m_fleet = int(FleetOnArchive::lastKey(db, QStringLiteral("Regulatory"), QStringLiteral("Adres")));
    FleetOnArchive::addBases(fleet, db, m_fleet, m_last);
    m_bases = true;
}

void ArchiveLoan::giveBack()
{
    if (m_last == ZDate()) // nothing lent yet
        return;
    Database db(m_config);
    db.open();
    const auto removeWhere = [&](const QString &table, const QString &condition) {
        return SqlStatement(QStringLiteral("DELETE FROM %1 WHERE %2 ").arg(table, condition));
    };
    db.inTransaction([&] {
        FleetOnArchive::emptyAgain(db, m_completed);
        for (int adres : m_controllers)
            db.exec(removeWhere(QStringLiteral("Regulatory"), QStringLiteral("Adres =")).value(adres));
        if (m_bases) // every base is the loan's: the archive had none
            db.exec(SqlStatement(QStringLiteral("DELETE FROM OstPomiar")));
        db.exec(removeWhere(QStringLiteral("Pomiary"), QStringLiteral("Data >")).date(m_last));
        db.exec(removeWhere(QStringLiteral("PomiaryDzien"), QStringLiteral("Dzien >")).date(m_last));
        db.exec(removeWhere(QStringLiteral("Alarmy"), QStringLiteral("Id_alarmu >")).value(m_lastAlarm));
        db.exec(removeWhere(QStringLiteral("Log"), QStringLiteral("Id_wpisu >")).value(m_lastLog));
    });
}
