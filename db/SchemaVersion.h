#pragma once

class Database;

// The version of a station database's schema, kept in a table of its own
// with one row. A database made before versions were kept has no such table
// and counts as version 0. Each step of the upgrade moves a database one
// version forward; all of them run in one transaction.
namespace SchemaVersion {

// The version this program makes and works on.
constexpr int Current = 2;
// The table that holds it.
inline constexpr const char *TableName = "WersjaSchematu";

// The version of the open database: 0 without the table.
int of(Database &db);
// Writes the version table for a database just created at Current.
void stamp(Database &db);
// Moves an older database forward to Current in one transaction and returns
// the version it had. A newer database is a run-time error, nothing changed.
int upgrade(Database &db);
// Refuses (a run-time error that says why) a database newer than this program.
void check(Database &db);

}
