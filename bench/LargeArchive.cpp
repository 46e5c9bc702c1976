#include "LargeArchive.h"

#include "SampleInserter.h"
#include "SyntheticSamples.h"

#include "base/RunTimeError.h"
#include "base/ZDate.h"
#include "db/Database.h"
#include "db/RollupUpgrade.h"
#include "db/Schema.h"
#include "db/SchemaVersion.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <optional>

namespace {

constexpr std::uint32_t Seed = 20150101;
constexpr int QuartersPerDay = 96;
constexpr qint64 RowsPerTransaction = 2'000'000;
const QString MarkTable = QStringLiteral("ArchiwumTestowe");

const Schema::Table &pomiary()
{
    for (const Schema::Table &t : Schema::tables())
        if (t.name == QLatin1String("Pomiary"))
            return t;
    throw RunTimeError::database(QStringLiteral("Brak tabeli Pomiary w schemacie"));
}

bool onServer(Database &db)
{
    return db.dialect().engine() == SqlDialect::Engine::PostgreSQL;
}

// Nothing to keep if the process dies: the file (or the server's tables) is
// then thrown away.
void fastWrites(Database &db)
{
    if (onServer(db)) {
        db.execText(QStringLiteral("SET synchronous_commit = off"));
        return;
    }
    for (const char *sql : {"PRAGMA journal_mode=OFF", "PRAGMA synchronous=OFF", "PRAGMA cache_size=-524288",
                            "PRAGMA temp_store=FILE", "PRAGMA threads=2"})
        db.execText(QString::fromLatin1(sql));
}

void stationWrites(Database &db)
{
    for (const QString &sql : db.dialect().sessionSetup())
        db.execText(sql);
}

void setIndexes(Database &db, bool present)
{
    for (const Schema::Index &i : pomiary().indexes)
        db.execText(present ? QStringLiteral("CREATE %1INDEX %2 ON Pomiary (%3)")
                                  .arg(i.unique ? QStringLiteral("UNIQUE ") : QString(), i.name, i.columns)
                            : QStringLiteral("DROP INDEX ") + i.name);
}

void addControllers(Database &db, int count)
{
    for (int adres = 1; adres <= count; ++adres) {
        SqlStatement q(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ, aktywny, CzestOdczytu) VALUES ("));
        q.value(LargeArchive::kodOf(adres)) << ", ";
        q.value(adres) << ", 'regulator', 'Tak', 15)";
        db.exec(q);
    }
}

// One day of every controller, quarter by quarter (00:00 to 23:45), controllers in turn.
void addDay(SampleInserter &out, SyntheticSamples &samples, QDate day, int controllers)
{
    const ZDate midnight = ZDate::fromParts(day.year(), day.month(), day.day());
    for (int quarter = 0; quarter < QuartersPerDay; ++quarter) {
        const QString when = midnight.addMinutes(15 * quarter).toIsoText();
        for (int adres = 1; adres <= controllers; ++adres)
            out.add(adres, when, samples.next(adres, quarter, day.dayOfWeek()));
    }
}

qint64 addSamples(Database &db, const LargeArchive::Size &size)
{
    SampleInserter out(db);
    SyntheticSamples samples(Seed);
    qint64 rows = 0, sinceCommit = 0;
    db.transaction();
    for (QDate day = LargeArchive::firstDay(); day < LargeArchive::endDay(size); day = day.addDays(1)) {
        addDay(out, samples, day, size.controllers);
        rows += qint64(QuartersPerDay) * size.controllers;
        sinceCommit += qint64(QuartersPerDay) * size.controllers;
        if (sinceCommit >= RowsPerTransaction) {
            out.flush();
            db.commit();
            db.transaction();
            sinceCommit = 0;
        }
    }
    out.flush();
    db.commit();
    return rows;
}

// An empty mark tells an archive being filled: a server's tables, unlike a
// file, cannot be filled aside and moved in place.
void markFilling(Database &db)
{
    db.execText(
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (Regulatory INTEGER, Lata INTEGER, Wiersze INTEGER)").arg(MarkTable));
}

void mark(Database &db, const LargeArchive::Size &size, qint64 rows)
{
    markFilling(db);
    SqlStatement q(QStringLiteral("INSERT INTO ") + MarkTable + QStringLiteral(" VALUES ("));
    q.value(size.controllers) << ", ";
    q.value(size.years) << ", ";
    q.value(rows) << ")";
    db.exec(q);
}

struct Mark {
    LargeArchive::Size size;
    qint64 rows = 0;
};

// The mark of a complete archive, none in any other station database.
std::optional<Mark> markOf(Database &db)
{
    if (!db.tableExists(MarkTable))
        return std::nullopt;
    QSqlQuery q = db.exec(SqlStatement(QStringLiteral("SELECT Regulatory, Lata, Wiersze FROM ") + MarkTable));
    if (!q.next())
        return std::nullopt;
    return Mark{{q.value(0).toInt(), q.value(1).toInt()}, q.value(2).toLongLong()};
}

// A complete archive, brought to the current schema as its user would: by the upgrade.
LargeArchive::Outcome reused(Database &db, qint64 rows)
{
    LargeArchive::Outcome out{true, rows, 0, 0};
    if (SchemaVersion::of(db) == SchemaVersion::Current)
        return out;
    QElapsedTimer t;
    t.start();
    SchemaVersion::upgrade(db);
    out.upgradeSeconds = double(t.nsecsElapsed()) / 1e9;
    return out;
}

void removeDatabaseFile(const QString &file)
{
    for (const QString &suffix : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
        QFile::remove(file + suffix);
}

}

QString LargeArchive::kodOf(int adres)
{
    return QStringLiteral("R%1").arg(adres, 3, 10, QLatin1Char('0'));
}

QDate LargeArchive::firstDay()
{
    return {2015, 1, 1};
}

QDate LargeArchive::endDay(const Size &size)
{
    return firstDay().addYears(size.years);
}

qint64 LargeArchive::expectedRows(const Size &size)
{
    return firstDay().daysTo(endDay(size)) * QuartersPerDay * size.controllers;
}

LargeArchive::Outcome LargeArchive::fill(Database &db, const Size &size, Indexes indexes)
{
    fastWrites(db);
    Schema::create(db);
    if (indexes == Indexes::AfterFill)
        setIndexes(db, false);
    addControllers(db, size.controllers);
    Outcome out;
    QElapsedTimer t;
    t.start();
    out.rows = addSamples(db, size);
    out.insertSeconds = double(t.nsecsElapsed()) / 1e9;
    if (indexes == Indexes::AfterFill) {
        t.restart();
        setIndexes(db, true);
        out.indexSeconds = double(t.nsecsElapsed()) / 1e9;
    }
    t.restart();
    RollupUpgrade::build(db, {});
    out.rollupSeconds = double(t.nsecsElapsed()) / 1e9;
    if (onServer(db)) // the planner's statistics now, not when autovacuum comes round
        db.execText(QStringLiteral("ANALYZE Pomiary, PomiaryDzien, Regulatory"));
    mark(db, size, out.rows);
    stationWrites(db);
    return out;
}

LargeArchive::Outcome LargeArchive::ensure(const QString &file, const Size &size, Indexes indexes)
{
    if (QFile::exists(file)) {
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + file));
        db.open();
        const std::optional<Mark> found = markOf(db);
        if (!found)
            throw RunTimeError::database(file + QStringLiteral(" nie jest archiwum testowym: podaj inny plik"));
        if (found->size == size)
            return reused(db, found->rows);
    }
    const QString filling = file + QStringLiteral(".filling");
    removeDatabaseFile(filling); // a torn fill of an earlier run
    Outcome out;
    {
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + filling));
        db.open(Database::OpenMode::CreateIfMissing);
        out = fill(db, size, indexes);
    }
    removeDatabaseFile(file);
    if (!QFile::rename(filling, file))
        throw RunTimeError::database(QStringLiteral("Nie można przenieść %1 na %2").arg(filling, file));
    return out;
}

LargeArchive::Outcome LargeArchive::ensure(Database &server, const Size &size, Indexes indexes)
{
    const std::optional<Mark> found = markOf(server);
    if (found && found->size == size)
        return reused(server, found->rows);
    const bool archive = server.tableExists(MarkTable); // complete, of another size, or torn
    if (!archive && Schema::hasAnyTable(server))
        throw RunTimeError::database(server.config().describe() + QStringLiteral(" nie jest archiwum testowym: podaj inną bazę"));
    if (archive)
        server.execText(QStringLiteral("DROP TABLE ") + MarkTable);
    Schema::dropAll(server);
    markFilling(server);
    return fill(server, size, indexes);
}
