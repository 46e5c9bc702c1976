#pragma once

#include "base/ZDate.h"

#include <QString>
#include <QVariant>
#include <memory>

// Everything that differs between the database engines the station runs on:
// column types, the auto-assigned key, the database's own clock, how a date
// travels as a value, and how statements get their new key back.
class SqlDialect {
public:
    enum class Engine { SQLite, PostgreSQL };
    enum class ColumnType { Text, Int16, Int32, Single, Number, Date, AutoId };

    virtual ~SqlDialect() = default;
    virtual Engine engine() const = 0;
    // Qt SQL driver name.
    virtual QString driver() const = 0;
    virtual QString columnType(ColumnType type) const = 0;
    // Default expression that stamps a row with the local wall-clock time.
    virtual QString localNowDefault() const = 0;
    // What follows an INSERT so that it returns the new auto-assigned key
    // as its one result row (empty when the driver reports it otherwise).
    virtual QString returningClause(const QString &column) const = 0;
    // Statements that must run before the tables are created.
    virtual QStringList schemaPreamble() const = 0;
    // Statements that set a fresh connection up.
    virtual QStringList sessionSetup() const = 0;

    // A date column as day-first text "dd/mm/yy", ordered as that text.
    virtual QString dayFirstText(const QString &column) const = 0;
    // Midnight at the start of a date column's day, as the engine keeps dates.
    virtual QString dayStart(const QString &column) const = 0;
    // SUM of a column in double precision.
    virtual QString doubleSum(const QString &column) const = 0;
    // a / b in double precision, NULL where b is 0.
    virtual QString ratio(const QString &a, const QString &b) const = 0;

    // Dates travel as "yyyy-MM-dd HH:mm:ss" text: both engines compare and
    // format that form correctly, and no time zone can shift it.
    QVariant dateValue(ZDate d) const { return d.toIsoText(); }

    static std::unique_ptr<SqlDialect> create(Engine engine);
};
