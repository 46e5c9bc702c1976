#pragma once

#include "db/SqlDialect.h"

#include <QString>
#include <QStringList>
#include <vector>

class Database;

// The six tables of the station's database, with the indexes that the
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
};

const std::vector<Table> &tables();
QStringList createStatements(const SqlDialect &dialect);
// Creates every table and index, at the schema's current version, in one transaction.
void create(Database &db);
// Drops every table of the station's that exists, the version table too.
void dropAll(Database &db);
// Names of the tables that are missing.
QStringList missingTables(Database &db);

}
