#pragma once

#include "db/DatabaseConfig.h"
#include "db/SqlDialect.h"
#include "db/SqlStatement.h"

#include <QSqlDatabase>
#include <QHash>
#include <QSqlQuery>
#include <memory>

// One connection to the station's database. Every statement goes through
// exec() as one prepared statement; a failure is a run-time error that says
// what failed and where.
class Database {
public:
    enum class OpenMode { Existing, CreateIfMissing };

    explicit Database(const DatabaseConfig &config);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    // Opens the connection. The station only opens a database that exists;
    // the admin tool may create the file.
    void open(OpenMode mode = OpenMode::Existing);
    void close();
    bool isOpen() const;

    QSqlQuery exec(const SqlStatement &statement);
    // Runs a statement that returns no rows (INSERT, UPDATE, DELETE) and
    // returns the count of rows it touched. Its prepared form is kept for
    // the next statement of the same text: the sample written every few
    // seconds is not parsed and planned anew each time.
    int run(const SqlStatement &statement);
    // Runs an INSERT and returns the key the database assigned to the new row.
    qint64 insert(const SqlStatement &statement, const QString &keyColumn);
    // Statements the station itself writes out whole (schema, pragmas).
    void execText(const QString &sql);
    bool tableExists(const QString &table);
    // The names of a table's columns as the engine keeps them (PostgreSQL
    // folds them to lower case); none for a table not there.
    QStringList columnNames(const QString &table);

    void transaction();
    void commit();
    void rollback();
    // Runs work in a transaction of its own: committed when it returns, rolled back when it throws.
    template <typename Work> void inTransaction(Work work)
    {
        transaction();
        try {
            work();
            commit();
        } catch (...) {
            rollback();
            throw;
        }
    }

    const SqlDialect &dialect() const { return *m_dialect; }
    const DatabaseConfig &config() const { return m_config; }
    QSqlDatabase &connection() { return m_db; }

private:
    [[noreturn]] void fail(const QString &what, const QString &detail) const;
    QSqlQuery &prepared(const QString &sql);
    void execute(QSqlQuery &q, const QString &sql, const QVariantList &binds);

    DatabaseConfig m_config;
    std::unique_ptr<SqlDialect> m_dialect;
    QString m_connectionName;
    QSqlDatabase m_db;
    QHash<QString, QSqlQuery> m_prepared; // by statement text, for run()
};
