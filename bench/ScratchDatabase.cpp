#include "ScratchDatabase.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/Schema.h"

#include <QFile>
#include <QTextStream>

ScratchDatabase::ScratchDatabase(const DatabaseConfig &config) : m_config(config)
{
    if (onFile() && QFile::exists(config.file))
        throw RunTimeError::database(config.file + QStringLiteral(" już istnieje: podaj nowy plik"));
    try {
        create();
    } catch (...) {
        if (onFile()) // a server's tables are not ours until created
            remove();
        throw;
    }
}

ScratchDatabase::~ScratchDatabase()
{
    try {
        remove();
    } catch (const RunTimeError &e) {
        QTextStream(stderr) << "Nie usunięto tabel z " << m_config.describe() << ": " << e.message() << Qt::endl;
    }
}

void ScratchDatabase::create()
{
    Database db(m_config);
    db.open(Database::OpenMode::CreateIfMissing);
    if (!onFile() && Schema::hasAnyTable(db))
        throw RunTimeError::database(m_config.describe() + QStringLiteral(" ma już tabele stacji: podaj pustą bazę"));
    Schema::create(db);
}

void ScratchDatabase::remove()
{
    if (onFile()) {
        for (const char *suffix : {"", "-wal", "-shm"})
            QFile::remove(m_config.file + QLatin1String(suffix));
        return;
    }
    Database db(m_config);
    db.open();
    Schema::dropAll(db);
}
