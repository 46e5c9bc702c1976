#pragma once

#include "base/ZDate.h"
#include "db/SqlDialect.h"

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <vector>

// A query kept as its pieces: text of the query itself, and values that are
// bound as parameters when the statement is prepared. A value can therefore
// never change the shape of the query or bring a second statement in.
class SqlStatement {
public:
    SqlStatement() = default;
    explicit SqlStatement(const QString &text) { *this << text; }

    SqlStatement &operator<<(const QString &text);
    SqlStatement &operator<<(const char *text) { return *this << QString::fromUtf8(text); }
    SqlStatement &value(const QVariant &v);
    SqlStatement &date(ZDate d);
    // A date column as day-first text "dd/mm/yy", in the engine's own words.
    SqlStatement &dayFirstText(const QString &column);
    // The sum of a column, in double precision whatever the column holds.
    SqlStatement &sum(const QString &column);
    // a / b in double precision; NULL where b is 0, as SQLite answers it.
    SqlStatement &ratio(const QString &a, const QString &b);
    // The engine's name of a column type, for a CAST.
    SqlStatement &typeName(SqlDialect::ColumnType type);
    // Midnight at the start of a date column's day, as a date.
    SqlStatement &dayStart(const QString &column);

    // The text for the engine, with '?' in place of each value, and the values in order.
    QString render(const SqlDialect &dialect, QVariantList *binds) const;

private:
    struct Piece {
        enum Kind { Text, Value, Date, DayFirstText, Sum, Ratio, TypeName, DayStart } kind;
        QString text;
        QVariant value;
        ZDate date;
    };
    std::vector<Piece> m_pieces;
};
