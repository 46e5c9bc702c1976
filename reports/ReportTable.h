#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <vector>

class QSqlQuery;

// A report computed before it is drawn: the header texts, the rows of its
// query by field name, and the footer's figures worked out over all rows.
// Screen, print, PDF and CSV render the same table.
class ReportTable {
public:
    enum class Kind { Daily, Period };
    enum class Figure { Sum, Min, Max, Average };

    ReportTable(Kind kind, QString tytul, QString podtytul) : m_kind(kind), m_tytul(std::move(tytul)), m_podtytul(std::move(podtytul)) {}

    // Every row of the executed query, from its first.
    void read(QSqlQuery &rows, const QStringList &fields);
    // Rows given as they are, each holding `fields` in that order, NULL past its end (a table
    // made without a query).
    void setRows(const QStringList &fields, std::vector<std::vector<QVariant>> rows);

    Kind kind() const { return m_kind; }
    const QString &tytul() const { return m_tytul; }
    const QString &podtytul() const { return m_podtytul; }
    int rowCount() const { return int(m_rows.size()); }
    // A field of a row (from 0); invalid when NULL or not read.
    QVariant value(int row, const QString &field) const;
    // A field as the layout prints it in its picture; empty when NULL.
    QString text(int row, const QString &field, const QString &picture) const;

    // A figure of a field over all rows whose value is not NULL; none when
    // there is no such row. The average is of the rows' values, unweighted.
    std::optional<double> figure(Figure figure, const QString &field) const;
    QString figureText(Figure figure, const QString &field, const QString &picture) const;

private:
    static std::vector<int> columnsOf(const QSqlQuery &rows, const QStringList &fields);
    Kind m_kind;
    QString m_tytul, m_podtytul;
    QStringList m_fields;
    std::vector<std::vector<QVariant>> m_rows;
};
