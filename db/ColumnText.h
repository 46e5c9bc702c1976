#pragma once

#include "db/Schema.h"
#include "db/SqlDialect.h"

#include <QString>
#include <QVariant>

// A column's value as an editor's box shows it, and the text typed into a
// box as the value the column's type holds. The conversion is ours, not the
// engine's: SQLite would keep "abc" in a numeric column, and the station's
// next start would then fail on it.
class ColumnText {
public:
    // The schema's column of that name, compared case-blind (an engine may
    // give the names in its own case); a text column for one it does not know.
    static Schema::Column describe(const QString &table, const QString &column);

    // NULL is an empty text; a number in its shortest form with a point.
    static QString toText(SqlDialect::ColumnType type, const QVariant &value);
    // An empty text is NULL. A number may have a point or a comma; text
    // that is no finite number is the type mismatch, a number beyond the
    // type's range the overflow (a whole-number column rounds half to even).
    static QVariant toValue(SqlDialect::ColumnType type, const QString &text);

private:
    static double number(const QString &text);
};
