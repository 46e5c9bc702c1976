#pragma once

#include "db/RollupUpgrade.h"

class Database;

// The version of a station database's schema, kept in a table of its own
// with one row. A database made before versions were kept has no such table
// and counts as version 0. Each step of the upgrade moves a database one
// version forward; those up to version 2 run in one transaction, the step to
// 3 builds the daily roll-ups a month at a time and can be resumed; the step
// to 4 (a measure more in the roll-ups) builds them again the same way.
namespace SchemaVersion {

// The version this program makes and works on.
constexpr int Current = 4;
// The table that holds it.
inline constexpr const char *TableName = "WersjaSchematu";

// The version of the open database: 0 without the table.
int of(Database &db);
// Writes the version table for a database just created at Current.
void stamp(Database &db);
// Moves an older database forward to Current and returns the version it
// had; the version is stamped once every step is complete. A newer database
// is a run-time error, nothing changed. progress follows the roll-ups' build.
int upgrade(Database &db, const RollupUpgrade::Progress &progress = {});
// Refuses (a run-time error that says why) a database of another version
// than this program's: a newer one needs a newer program, an older one the upgrade.
void check(Database &db);

}
