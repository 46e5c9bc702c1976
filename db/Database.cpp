#include "db/Database.h"

#include "base/RunTimeError.h"
#include "db/StatementObserver.h"

#include <QAtomicInt>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlRecord>

namespace {
QAtomicInt connectionCounter;

QString sqliteUri(const QString &file, Database::OpenMode mode)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    const QString openMode = mode == Database::OpenMode::Existing ? QStringLiteral("rw") : QStringLiteral("rwc");
    return QStringLiteral("file:%1?mode=%2").arg(QString::fromLatin1(QUrl::toPercentEncoding(path, "/")), openMode);
}
}

Database::Database(const DatabaseConfig &config)
    : m_config(config), m_dialect(SqlDialect::create(config.engine)),
      m_connectionName(QStringLiteral("zorbel-%1").arg(connectionCounter.fetchAndAddRelaxed(1)))
{
}

Database::~Database()
{
    close();
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

void Database::open(OpenMode mode)
{
    if (!QSqlDatabase::isDriverAvailable(m_dialect->driver()))
        fail(QStringLiteral("Brak sterownika bazy danych %1").arg(m_dialect->driver()), QString());
    m_db = QSqlDatabase::addDatabase(m_dialect->driver(), m_connectionName);
    if (m_config.engine == SqlDialect::Engine::SQLite) {
        if (mode == OpenMode::Existing && !QFileInfo::exists(m_config.file))
            fail(QStringLiteral("Nie można otworzyć bazy danych %1").arg(m_config.file),
                 QStringLiteral("plik nie istnieje"));
        m_db.setDatabaseName(sqliteUri(m_config.file, mode));
        // A locked file is waited for a while before the statement fails.
        m_db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=5000"));
    } else {
        m_db.setHostName(m_config.host);
        m_db.setPort(m_config.port);
        m_db.setDatabaseName(m_config.name);
        m_db.setUserName(m_config.user);
        m_db.setPassword(m_config.password);
    }
    if (!m_db.open())
        fail(QStringLiteral("Nie można otworzyć bazy danych %1").arg(m_config.describe()), m_db.lastError().text());
    for (const QString &sql : m_dialect->sessionSetup())
        execText(sql);
}

void Database::close()
{
    m_prepared.clear();
    if (m_db.isOpen())
        m_db.close();
}

bool Database::isOpen() const
{
    return m_db.isOpen();
}

QSqlQuery Database::exec(const SqlStatement &statement)
{
    QVariantList binds;
    const QString sql = statement.render(*m_dialect, &binds);
    StatementObserver::notify(sql);
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    if (!q.prepare(sql))
        fail(QStringLiteral("Błąd zapytania \"%1\"").arg(sql), q.lastError().text());
    execute(q, sql, binds);
    return q;
}

int Database::run(const SqlStatement &statement)
{
    QVariantList binds;
    const QString sql = statement.render(*m_dialect, &binds);
    StatementObserver::notify(sql);
    QSqlQuery &q = prepared(sql);
    execute(q, sql, binds);
    const int touched = q.numRowsAffected();
    q.finish();
    return touched;
}

QSqlQuery &Database::prepared(const QString &sql)
{
    auto it = m_prepared.find(sql);
    if (it != m_prepared.end())
        return *it;
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    if (!q.prepare(sql))
        fail(QStringLiteral("Błąd zapytania \"%1\"").arg(sql), q.lastError().text());
    return *m_prepared.insert(sql, q);
}

void Database::execute(QSqlQuery &q, const QString &sql, const QVariantList &binds)
{
    for (int i = 0; i < binds.size(); ++i)
        q.bindValue(i, binds[i]);
    if (!q.exec())
        fail(QStringLiteral("Błąd zapytania \"%1\"").arg(sql), q.lastError().text());
}

qint64 Database::insert(const SqlStatement &statement, const QString &keyColumn)
{
    SqlStatement withKey = statement;
    withKey << m_dialect->returningClause(keyColumn);
    QSqlQuery q = exec(withKey);
    const QVariant key = q.next() ? q.value(0) : q.lastInsertId();
    bool ok = false;
    const qint64 id = key.toLongLong(&ok);
    if (!ok)
        fail(QStringLiteral("Brak klucza %1 nowego wiersza").arg(keyColumn), QString());
    return id;
}

void Database::execText(const QString &sql)
{
    StatementObserver::notify(sql);
    QSqlQuery q(m_db);
    if (!q.exec(sql))
        fail(QStringLiteral("Błąd zapytania \"%1\"").arg(sql), q.lastError().text());
}

bool Database::tableExists(const QString &table)
{
    const QStringList tables = m_db.tables(QSql::Tables);
    for (const QString &t : tables)
        if (t.compare(table, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

QStringList Database::columnNames(const QString &table)
{
    QStringList out;
    for (const QString &t : m_db.tables(QSql::Tables))
        if (t.compare(table, Qt::CaseInsensitive) == 0) {
            const QSqlRecord record = m_db.record(t); // by its stored name: PostgreSQL's is lower case
            for (int i = 0; i < record.count(); ++i)
                out << record.fieldName(i);
        }
    return out;
}

void Database::transaction()
{
    if (!m_db.transaction())
        fail(QStringLiteral("Nie można rozpocząć transakcji"), m_db.lastError().text());
}

void Database::commit()
{
    if (!m_db.commit())
        fail(QStringLiteral("Nie można zatwierdzić transakcji"), m_db.lastError().text());
}

void Database::rollback()
{
    m_db.rollback();
}

void Database::fail(const QString &what, const QString &detail) const
{
    const QString d = detail.trimmed();
    throw RunTimeError::database(d.isEmpty() ? what : what + QStringLiteral(": ") + d);
}
