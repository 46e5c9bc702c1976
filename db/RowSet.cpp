#include "db/RowSet.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/FindCriterion.h"

#include <QSqlQuery>

void RowSet::open(const SqlStatement &query, const QString &table, const QStringList &keyColumns)
{
    QVariantList binds;
    m_query = query;
    m_table = table;
    m_keyColumns = keyColumns;
    m_source = query.render(m_db.dialect(), &binds);
    m_open = true;
    m_loaded = false;
    ensureLoaded();
}

void RowSet::openTable(const QString &table)
{
    if (!m_db.tableExists(table))
        throw RunTimeError::database(QStringLiteral("Brak tabeli %1 w bazie danych %2").arg(table, m_db.config().describe()));
    m_query = SqlStatement(QStringLiteral("SELECT * FROM ") + table);
    m_source = table;
    m_table = table;
    m_keyColumns.clear();
    m_open = true;
    m_loaded = false;
    m_rows.clear();
    m_pos = -1;
}

void RowSet::close()
{
    m_open = false;
    m_loaded = false;
    m_rows.clear();
    m_pos = -1;
}

void RowSet::ensureLoaded()
{
    if (m_loaded)
        return;
    if (!m_open)
        throw RunTimeError::database(QStringLiteral("Zbiór wierszy %1 jest zamknięty").arg(m_source));
    QSqlQuery q = m_db.exec(m_query);
    m_layout = q.record();
    const int columns = m_layout.count();
    m_rows.clear();
    while (q.next()) {
        std::vector<QVariant> row;
        row.reserve(std::size_t(columns));
        for (int i = 0; i < columns; ++i)
            row.push_back(q.value(i));
        m_rows.push_back(std::move(row));
    }
    m_loaded = true;
    m_pos = 0; // at the first row; an empty set is at its end and its start at once
}

void RowSet::requery()
{
    m_loaded = false;
    ensureLoaded();
}

bool RowSet::EOF_() const
{
    return !m_loaded ? false : m_pos >= int(m_rows.size());
}

bool RowSet::BOF() const
{
    return !m_loaded ? false : (m_rows.empty() || m_pos < 0);
}

bool RowSet::isEmpty()
{
    ensureLoaded();
    return m_rows.empty();
}

void RowSet::MoveFirst()
{
    ensureLoaded();
    m_pos = 0;
}

void RowSet::MoveNext()
{
    ensureLoaded();
    if (m_pos >= int(m_rows.size()))
        throw RunTimeError::database(QStringLiteral("Zbiór wierszy %1 jest już na końcu").arg(m_source));
    ++m_pos;
}

void RowSet::Find(const QString &criterion)
{
    ensureLoaded();
    const FindCriterion wanted(criterion);
    if (m_rows.empty()) {
        m_pos = 0;
        return;
    }
    const std::size_t i = std::size_t(column(wanted.column()));
    if (m_pos < 0)
        m_pos = 0;
    for (; m_pos < int(m_rows.size()); ++m_pos)
        if (wanted.matches(m_rows[std::size_t(m_pos)][i]))
            return;
}

QVariant RowSet::field(const QString &column) const
{
    return field(this->column(column));
}

int RowSet::column(const QString &name) const
{
    const int i = m_layout.indexOf(name);
    if (i < 0)
        throw RunTimeError::database(QStringLiteral("Brak kolumny %1 w %2").arg(name, m_source));
    return i;
}

QVariant RowSet::field(int column) const
{
    return current()[std::size_t(column)];
}

const std::vector<QVariant> &RowSet::current() const
{
    if (!m_loaded || m_pos < 0 || m_pos >= int(m_rows.size()))
        throw RunTimeError::database(QStringLiteral("Brak bieżącego wiersza w %1").arg(m_source));
    return m_rows[std::size_t(m_pos)];
}

int RowSet::rowCount()
{
    ensureLoaded();
    return int(m_rows.size());
}

void RowSet::Delete()
{
    if (!m_loaded || m_pos < 0 || m_pos >= int(m_rows.size()))
        throw RunTimeError::noCurrentRecord();
    if (m_table.isEmpty() || m_keyColumns.isEmpty())
        throw RunTimeError::database(QStringLiteral("Zbiór wierszy %1 nie pozwala usuwać").arg(m_source));
    const std::vector<QVariant> &row = m_rows[std::size_t(m_pos)];
    SqlStatement del(QStringLiteral("DELETE FROM ") + m_table + QStringLiteral(" WHERE "));
    for (qsizetype i = 0; i < m_keyColumns.size(); ++i) {
        del << (i ? QStringLiteral(" AND ") : QString()) << m_keyColumns[i] << QStringLiteral(" = ");
        del.value(row[std::size_t(column(m_keyColumns[i]))]);
    }
    m_db.exec(del);
    m_rows.erase(m_rows.begin() + m_pos);
}
