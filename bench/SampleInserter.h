#pragma once

#include "SyntheticSamples.h"

#include <QSqlQuery>
#include <QString>

class Database;

// Appends samples to Pomiary through one prepared INSERT of many rows,
// reused with bound values: the per-statement cost of the driver, paid once
// for RowsPerStatement rows, is what bounds a bulk fill.
class SampleInserter {
public:
    static constexpr int RowsPerStatement = 100; // 900 parameters, well under SQLite's 32766

    explicit SampleInserter(Database &db);
    void add(int adres, const QString &dateText, const SyntheticSamples::Row &values);
    // Writes the rows still held (with a statement of their own count).
    void flush();

private:
    static constexpr int Columns = 2 + SyntheticSamples::Values;

    QSqlQuery prepared(int rows);
    void run(QSqlQuery &query);

    Database &m_db;
    QSqlQuery m_full;
    int m_held = 0;
};
