#include "TestDatabases.h"

#include "db/DailyRollup.h"
#include "db/Database.h"
#include "db/Schema.h"

#include <QFile>
#include <QTest>

namespace TestDatabases {

void addEngineRows()
{
    QTest::addColumn<int>("engine");
    QTest::newRow("sqlite") << 0;
    QTest::newRow("postgresql") << 1;
}

void rollUpAgain(Database &db)
{
    db.execText(QStringLiteral("DELETE FROM PomiaryDzien"));
    db.exec(DailyRollup::rollUp(ZDate(), ZDate::fromParts(9999, 1, 1)));
}

DatabaseConfig fetchEmpty(const QString &sqliteFile)
{
    if (QString::fromLatin1(QTest::currentDataTag()) == QLatin1String("postgresql")) {
        const DatabaseConfig c = DatabaseConfig::fromUrl(qEnvironmentVariable("ZORBEL_TEST_PG_URL"));
        Database db(c);
        db.open();
        Schema::dropAll(db);
        return c;
    }
    QFile::remove(sqliteFile);
    return DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + sqliteFile);
}

}
