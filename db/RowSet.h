#pragma once

#include "db/SqlStatement.h"

#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

class Database;

// A set of rows held open on the connection, walked with a cursor: at its
// first row or at its end, moved forward, searched forward with a criterion
// of the form "Column=value". A set opened on a whole table reads its rows
// only when it is first walked, so a large archive opened for appends costs
// nothing.
class RowSet {
public:
    explicit RowSet(Database &db) : m_db(db) {}

    // The rows of a query. Rows can be deleted through the set when it
    // names the table they come from and the columns that tell a row.
    void open(const SqlStatement &query, const QString &table = {}, const QStringList &keyColumns = {});
    // A whole table by name; a missing table is a run-time error here.
    void openTable(const QString &table);
    void close();
    bool isOpen() const { return m_open; }

    bool EOF_() const;
    bool BOF() const;
    bool isEmpty();
    void MoveFirst();
    void MoveNext();
    // Searches forward from the current row, that row included. Without a
    // match the set is left at its end.
    void Find(const QString &criterion);

    // Deletes the current row from its table; the set then stands on the
    // row after it. Without a current row, a run-time error.
    void Delete();

    // A column of the current row, its name compared case-blind.
    QVariant field(const QString &column) const;
    // The same by the column's place, for a caller that reads many rows:
    // column() is a run-time error for a name the set has not.
    int column(const QString &name) const;
    QVariant field(int column) const;
    int rowCount();
    const QString &source() const { return m_source; }

    // Reads the rows again (after a write through another statement).
    void requery();

private:
    void ensureLoaded();
    const std::vector<QVariant> &current() const;

    Database &m_db;
    SqlStatement m_query;
    QString m_source;
    QString m_table;
    QStringList m_keyColumns;
    QSqlRecord m_layout;
    std::vector<std::vector<QVariant>> m_rows; // values only: the names are in m_layout once
    bool m_open = false;
    bool m_loaded = false;
    int m_pos = -1; // -1 before the first row (BOF); size() at the end (EOF)
};
