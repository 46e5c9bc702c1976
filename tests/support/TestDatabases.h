#pragma once

#include "db/DatabaseConfig.h"

#include <QString>

class Database;

// The engines a database test runs on: SQLite always, in the test's own
// directory; PostgreSQL when ZORBEL_TEST_PG_URL names a server for tests.
namespace TestDatabases {

// Adds a data row per engine to a data-driven test: "sqlite", "postgresql".
void addEngineRows();
// The configuration of the current row's engine, or QSKIP when the
// server is not available. The database starts without station tables.
DatabaseConfig fetchEmpty(const QString &sqliteFile = QStringLiteral("zorbel.db"));
// The daily roll-ups made again from every sample: for archives filled straight into Pomiary.
void rollUpAgain(Database &db);

}

#define ZORBEL_FETCH_EMPTY_DATABASE(config)                                                                 \
    const QString engineName_ = QString::fromLatin1(QTest::currentDataTag());                              \
    if (engineName_ == QLatin1String("postgresql") && qEnvironmentVariableIsEmpty("ZORBEL_TEST_PG_URL"))   \
        QSKIP("ZORBEL_TEST_PG_URL is not set: no PostgreSQL server for tests");                           \
    const DatabaseConfig config = TestDatabases::fetchEmpty()
