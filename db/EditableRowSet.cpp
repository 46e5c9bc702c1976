#include "db/EditableRowSet.h"

#include "base/RunTimeError.h"
#include "db/ColumnText.h"
#include "db/Database.h"
#include "db/FindCriterion.h"
#include "db/RowInsert.h"

#include <QSqlQuery>
#include <QSqlRecord>

EditableRowSet::EditableRowSet(Database &db, const QString &table, const QString &keyColumn)
    : m_db(db), m_table(table), m_keyColumn(keyColumn)
{
}

void EditableRowSet::open(const SqlStatement &query)
{
    m_query = query;
    Requery();
}

void EditableRowSet::Requery()
{
    QSqlQuery q = m_db.exec(m_query);
    const QSqlRecord layout = q.record();
    m_columns.clear();
    m_types.clear();
    for (int i = 0; i < layout.count(); ++i) {
        const Schema::Column c = ColumnText::describe(m_table, layout.fieldName(i));
        m_columns << c.name; // as the schema spells it, whatever case the engine gives
        m_types.push_back(c.type);
    }
    const int key = columnIndex(m_keyColumn);
    m_rows.clear();
    while (q.next()) {
        Row row{{}, std::vector<std::optional<QString>>(std::size_t(layout.count())), q.value(key), EditNone};
        for (int i = 0; i < layout.count(); ++i)
            row.values << q.value(i);
        m_rows.push_back(std::move(row));
    }
    m_pos = 0;
}

int EditableRowSet::AbsolutePosition() const
{
    if (BOF())
        return PositionBOF;
    return EOF_() ? PositionEOF : m_pos + 1;
}

EditableRowSet::EditMode EditableRowSet::editMode() const
{
    return hasCurrent() ? current().mode : EditNone;
}

void EditableRowSet::MoveNext()
{
    if (EOF_())
        throw RunTimeError::noCurrentRecord();
    ++m_pos;
}

void EditableRowSet::MovePrevious()
{
    if (BOF())
        throw RunTimeError::noCurrentRecord();
    --m_pos;
}

void EditableRowSet::Find(const QString &criterion)
{
    const FindCriterion wanted(criterion);
    const int column = columnIndex(wanted.column());
    for (m_pos = std::max(m_pos, 0); m_pos < rowCount(); ++m_pos) {
        const Row &row = m_rows[std::size_t(m_pos)];
        const std::optional<QString> &typed = row.typed[std::size_t(column)];
        if (wanted.matches(typed ? QVariant(*typed) : row.values[column]))
            return;
    }
}

QString EditableRowSet::text(const QString &column) const
{
    if (!hasCurrent())
        return {};
    const int c = columnIndex(column);
    const std::optional<QString> &typed = current().typed[std::size_t(c)];
    return typed ? *typed : ColumnText::toText(m_types[std::size_t(c)], current().values[c]);
}

void EditableRowSet::setText(const QString &column, const QString &text)
{
    Row &row = current();
    row.typed[std::size_t(columnIndex(column))] = text;
    if (row.mode == EditNone)
        row.mode = EditInProgress;
}

void EditableRowSet::AddNew()
{
    const std::size_t n = std::size_t(m_columns.size());
    Row row{QVariantList(qsizetype(n)), std::vector<std::optional<QString>>(n), QVariant(), EditAdd};
    m_rows.push_back(std::move(row));
    m_pos = rowCount() - 1;
}

void EditableRowSet::UpdateBatch()
{
    // every value is converted before anything is written
    std::vector<Write> writes;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        if (m_rows[i].mode != EditNone)
            writes.push_back(prepareWrite(i));
    if (writes.empty())
        return;
    transact([&] {
        for (const Write &w : writes) {
            const Row &row = m_rows[w.row];
            if (row.mode == EditAdd)
                m_db.exec(w.statement);
            else
                execOnKey(w.statement, row.key);
        }
    });
    const int key = columnIndex(m_keyColumn);
    for (Write &w : writes) {
        Row &row = m_rows[w.row];
        row.key = w.values[key];
        row.values = std::move(w.values);
        row.typed.assign(row.typed.size(), std::nullopt);
        row.mode = EditNone;
    }
}

void EditableRowSet::CancelUpdate()
{
    if (!hasCurrent())
        return; // nothing to cancel
    Row &row = current();
    if (row.mode == EditAdd) {
        m_rows.erase(m_rows.begin() + m_pos);
        m_pos = rowCount();
        return;
    }
    row.typed.assign(row.typed.size(), std::nullopt);
    row.mode = EditNone;
}

void EditableRowSet::Delete()
{
    const Row &row = current();
    if (row.mode != EditAdd)
        transact([&] { execOnKey(whereKey(SqlStatement(QStringLiteral("DELETE FROM ") + m_table), row.key), row.key); });
    m_rows.erase(m_rows.begin() + m_pos);
}

EditableRowSet::Row &EditableRowSet::current()
{
    return const_cast<Row &>(std::as_const(*this).current());
}

const EditableRowSet::Row &EditableRowSet::current() const
{
    if (!hasCurrent())
        throw RunTimeError::noCurrentRecord();
    return m_rows[std::size_t(m_pos)];
}

int EditableRowSet::columnIndex(const QString &column) const
{
    for (int i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].compare(column, Qt::CaseInsensitive) == 0)
            return i;
    throw RunTimeError::database(QStringLiteral("Brak kolumny %1 w tabeli %2").arg(column, m_table));
}

EditableRowSet::Write EditableRowSet::prepareWrite(std::size_t index) const
{
    const Row &row = m_rows[index];
    QVariantList values = row.values;
    for (int c = 0; c < m_columns.size(); ++c)
        if (row.typed[std::size_t(c)])
            values[c] = typedValue(row, c);
    SqlStatement statement = row.mode == EditAdd ? insertOf(values) : updateOf(row, values);
    return {index, std::move(statement), std::move(values)};
}

QVariant EditableRowSet::typedValue(const Row &row, int column) const
{
    const QString &text = *row.typed[std::size_t(column)];
    try {
        return ColumnText::toValue(m_types[std::size_t(column)], text);
    } catch (const RunTimeError &e) {
        throw e.within(QStringLiteral("tabela %1, kolumna %2, wartość \"%3\"").arg(m_table, m_columns[column], text));
    }
}

SqlStatement EditableRowSet::insertOf(const QVariantList &values) const
{
    QVariantMap columns;
    for (int c = 0; c < m_columns.size(); ++c)
        columns.insert(m_columns[c], values[c]);
    return rowInsert(m_table, columns);
}

SqlStatement EditableRowSet::updateOf(const Row &row, const QVariantList &values) const
{
    SqlStatement s(QStringLiteral("UPDATE ") + m_table + QStringLiteral(" SET "));
    const char *separator = "";
    for (int c = 0; c < m_columns.size(); ++c)
        if (row.typed[std::size_t(c)]) {
            s << separator << m_columns[c] << " = ";
            s.value(values[c]);
            separator = ", ";
        }
    return whereKey(s, row.key);
}

SqlStatement EditableRowSet::whereKey(SqlStatement statement, const QVariant &key) const
{
    statement << " WHERE " << m_keyColumn << " = ";
    statement.value(key);
    return statement;
}

void EditableRowSet::execOnKey(const SqlStatement &statement, const QVariant &key)
{
    const int touched = m_db.exec(statement).numRowsAffected();
    if (touched == 1)
        return;
    const QString where = QStringLiteral("%1 = %2").arg(m_keyColumn, key.isNull() ? QStringLiteral("NULL") : key.toString());
    throw RunTimeError::database(
        touched == 0 ? QStringLiteral("Brak w tabeli %1 wiersza, w którym %2 (usunięty lub zmieniony w innym oknie); "
                                      "nic nie zapisano").arg(m_table, where)
                     : QStringLiteral("Wierszy tabeli %1, w których %2: %3, a zmienić można tylko jeden; "
                                      "nic nie zapisano").arg(m_table, where).arg(touched));
}

void EditableRowSet::transact(const std::function<void()> &work)
{
    m_db.transaction();
    try {
        work();
        m_db.commit();
    } catch (...) {
        m_db.rollback();
        throw;
    }
}
