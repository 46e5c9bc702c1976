#include "db/SchemaVersion.h"

#include "base/RunTimeError.h"
#include "db/Database.h"

#include <functional>
#include <vector>

namespace SchemaVersion {

namespace {

const QString Table = QString::fromLatin1(TableName);

void write(Database &db, int version)
{
    db.exec(SqlStatement(QStringLiteral("DELETE FROM WersjaSchematu")));
    SqlStatement s(QStringLiteral("INSERT INTO WersjaSchematu (wersja) VALUES ("));
    s.value(version) << ")";
    db.exec(s);
}

// Versions up to this one are reached in one transaction.
constexpr int Transactional = 2;

// Step n moves a database from version n to n + 1, up to Transactional.
const std::vector<std::function<void(Database &)>> &steps()
{
    static const std::vector<std::function<void(Database &)>> all = {
        // 0 -> 1: the version is kept; the six tables stay as they were
        [](Database &db) {
            db.execText(QStringLiteral("CREATE TABLE WersjaSchematu (wersja ") +
                        db.dialect().columnType(SqlDialect::ColumnType::Int32) + QStringLiteral(")"));
        },
        // 1 -> 2: the index by controller and time also holds the energies
        [](Database &db) {
            db.execText(QStringLiteral("DROP INDEX IF EXISTS ix_Pomiary_Adres_Data"));
            db.execText(QStringLiteral("CREATE INDEX IF NOT EXISTS ix_Pomiary_Adres_Data_En ON Pomiary (Adres, Data, EnCzynna, EnBiernaCalk)"));
        },
    };
    return all;
}

RunTimeError tooNew(int version)
{
    return RunTimeError::database(QStringLiteral("Baza danych ma schemat w wersji %1, nowszej niż ten program "
                                                 "(wersja %2). Proszę uaktualnić program Zorbel.")
                                      .arg(version)
                                      .arg(Current));
}

}

int of(Database &db)
{
    if (!db.tableExists(Table))
        return 0;
    QSqlQuery q = db.exec(SqlStatement(QStringLiteral("SELECT MAX(wersja) FROM WersjaSchematu")));
    return q.next() ? q.value(0).toInt() : 0;
}

void stamp(Database &db)
{
    steps().front()(db);
    write(db, Current);
}

int upgrade(Database &db, const RollupUpgrade::Progress &progress)
{
    const int from = of(db);
    if (from > Current)
        throw tooNew(from);
    if (from < Transactional)
        db.inTransaction([&] {
            for (int v = from; v < Transactional; ++v)
                steps().at(std::size_t(v))(db);
            write(db, Transactional);
        });
    if (from < Current) {
        // 2 -> 3: the daily roll-ups, built from the samples; 3 -> 4: built
        // again, as their table lacks the new measure's columns
        RollupUpgrade::build(db, progress);
        db.inTransaction([&] { write(db, Current); });
    }
    return from;
}

void check(Database &db)
{
    const int version = of(db);
    if (version > Current)
        throw tooNew(version);
    if (version < Current)
        throw RunTimeError::database(QStringLiteral("Baza danych ma schemat w wersji %1, starszej niż ten program "
                                                    "(wersja %2). Proszę ją uaktualnić poleceniem zorbel-admin upgrade.")
                                         .arg(version)
                                         .arg(Current));
}

}
