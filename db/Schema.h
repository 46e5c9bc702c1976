#pragma once

#include "db/SqlDialect.h"

#include <QString>
#include <QStringList>
#include <vector>

class Database;

// The tables of the station's database, with the indexes that the
// archive queries need. Column names are used case-blind by both engines.
namespace Schema {

struct Column {
    QString name;
    SqlDialect::ColumnType type;
    QString defaultExpression; // "now" for the database's own clock
};

struct Index {
    QString name;
    QString columns;
    bool unique = false;
};

struct Table {
    QString name;
    std::vector<Column> columns;
    std::vector<Index> indexes;
    int since = 0; // the schema version that brought it; its upgrade step makes it
};

const std::vector<Table> &tables();
QStringList createStatements(const SqlDialect &dialect);
// CREATE TABLE and its indexes for one table.
QStringList createStatements(const Table &table, const SqlDialect &dialect);
const Table &table(const QString &name);
// Creates every table and index, at the schema's current version, in one transaction.
void create(Database &db);
// Drops every table of the station's that exists, the version table too.
void dropAll(Database &db);
// Whether any of the station's tables exists.
bool hasAnyTable(Database &db);
// Names of the tables that every version has and that are missing.
QStringList missingTables(Database &db);

}
