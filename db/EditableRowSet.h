#pragma once

#include "db/SqlDialect.h"
#include "db/SqlStatement.h"

#include <QStringList>
#include <QVariant>
#include <functional>
#include <optional>
#include <vector>

class Database;

// The rows of one query on one table, read when opened and then held,
// which an editor walks, changes and adds to. Changes stay with the rows
// until UpdateBatch writes every changed and added row in one transaction.
//
// A row is told for UPDATE and DELETE by the value its key column had when
// it was read (Adres for the controllers: the query has no other key). A
// statement that would touch no row (deleted or readdressed meanwhile) or
// more than one (two rows with one address) is refused and nothing is
// written: such rows cannot be changed here until the table is put right.
class EditableRowSet {
public:
    enum EditMode { EditNone = 0, EditInProgress = 1, EditAdd = 2 };
    enum Position { PositionBOF = -2, PositionEOF = -3 };

    EditableRowSet(Database &db, const QString &table, const QString &keyColumn);

    void open(const SqlStatement &query);
    // Reads the rows again; changes not written are dropped.
    void Requery();

    int rowCount() const { return int(m_rows.size()); }
    bool BOF() const { return m_rows.empty() || m_pos < 0; }
    bool EOF_() const { return m_rows.empty() || m_pos >= rowCount(); }
    bool hasCurrent() const { return !BOF() && !EOF_(); }
    // From 1, or PositionBOF / PositionEOF.
    int AbsolutePosition() const;
    // Of the current row; EditNone without one.
    EditMode editMode() const;

    void MoveFirst() { m_pos = 0; }
    void MoveLast() { m_pos = rowCount() - 1; }
    // Past the last row is the end; past the first the start.
    void MoveNext();
    void MovePrevious();
    // Searches forward from the current row, that row included. Without a
    // match the set is left at its end.
    void Find(const QString &criterion);

    // A column of the current row as the editor shows it: what was typed,
    // else the stored value as text. Empty without a current row.
    QString text(const QString &column) const;
    // Changes a column of the current row; a run-time error without one.
    void setText(const QString &column, const QString &text);

    // A new empty row at the end, made current.
    void AddNew();
    // Writes every changed and added row. A refused value or statement
    // writes nothing and leaves every row as it was.
    void UpdateBatch();
    // Drops the changes of the current row, if any; an added row goes away
    // and the set stands at its end.
    void CancelUpdate();
    // Deletes the current row from the table (an added row only from the
    // set); the set then stands on the row after it.
    void Delete();

private:
    struct Row {
        QVariantList values; // as read, or as written by UpdateBatch
        std::vector<std::optional<QString>> typed; // the text given for a column, if changed
        QVariant key;        // the key column as read; null for an added row
        EditMode mode = EditNone;
    };
    struct Write {
        std::size_t row;
        SqlStatement statement;
        QVariantList values;
    };

    Row &current();
    const Row &current() const;
    int columnIndex(const QString &column) const;
    Write prepareWrite(std::size_t row) const;
    QVariant typedValue(const Row &row, int column) const;
    SqlStatement insertOf(const QVariantList &values) const;
    SqlStatement updateOf(const Row &row, const QVariantList &values) const;
    SqlStatement whereKey(SqlStatement statement, const QVariant &key) const;
    // Runs a statement that must touch exactly the one row of its key.
    void execOnKey(const SqlStatement &statement, const QVariant &key);
    // All or nothing: a failure rolls back and goes up to the caller.
    void transact(const std::function<void()> &work);

    Database &m_db;
    QString m_table;
    QString m_keyColumn;
    SqlStatement m_query;
    QStringList m_columns;
    std::vector<SqlDialect::ColumnType> m_types;
    std::vector<Row> m_rows;
    int m_pos = 0; // -1 before the first row; rowCount() at the end
};
