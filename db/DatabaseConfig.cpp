#include "db/DatabaseConfig.h"

#include "base/RunTimeError.h"
#include "base/SettingsStore.h"

#include <QUrl>

namespace {
const QString section = QStringLiteral("baza");

SqlDialect::Engine engineNamed(const QString &name)
{
    const QString n = name.trimmed().toLower();
    if (n == QLatin1String("sqlite"))
        return SqlDialect::Engine::SQLite;
    if (n == QLatin1String("postgresql") || n == QLatin1String("postgres"))
        return SqlDialect::Engine::PostgreSQL;
    throw RunTimeError::database(QStringLiteral("Nieznany silnik bazy danych: \"%1\" (sqlite lub postgresql)").arg(name));
}
}

DatabaseConfig DatabaseConfig::fromSettings(const SettingsStore &store)
{
    DatabaseConfig c;
    c.engine = engineNamed(store.value(section, QStringLiteral("silnik"), QStringLiteral("sqlite")));
    c.file = store.value(section, QStringLiteral("plik"), c.file);
    c.host = store.value(section, QStringLiteral("serwer"), c.host);
    c.port = store.value(section, QStringLiteral("port"), QString::number(c.port)).toInt();
    c.name = store.value(section, QStringLiteral("nazwa"), c.name);
    c.user = store.value(section, QStringLiteral("uzytkownik"), c.user);
    c.password = store.value(section, QStringLiteral("haslo"), c.password);
    return c;
}

void DatabaseConfig::toSettings(SettingsStore &store) const
{
    const bool sqlite = engine == SqlDialect::Engine::SQLite;
    const std::pair<const char *, QString> keys[] = {
        {"silnik", sqlite ? QStringLiteral("sqlite") : QStringLiteral("postgresql")},
        {"plik", file}, {"serwer", host}, {"port", QString::number(port)}, {"nazwa", name},
        {"uzytkownik", user}, {"haslo", password},
    };
    for (const auto &[key, value] : keys)
        store.setValue(section, QString::fromLatin1(key), value);
}

DatabaseConfig DatabaseConfig::fromUrl(const QString &url)
{
    DatabaseConfig c;
    if (url.startsWith(QLatin1String("sqlite:"))) {
        c.file = url.mid(7);
        return c;
    }
    const QUrl u(url);
    if (!u.isValid() || u.host().isEmpty())
        throw RunTimeError::database(QStringLiteral("Niepoprawny adres bazy danych: \"%1\"").arg(url));
    c.engine = engineNamed(u.scheme());
    c.host = u.host();
    c.port = u.port(5432);
    c.name = u.path().mid(1).isEmpty() ? c.name : u.path().mid(1);
    c.user = u.userName();
    c.password = u.password();
    return c;
}

QString DatabaseConfig::describe() const
{
    if (engine == SqlDialect::Engine::SQLite)
        return file;
    return QStringLiteral("%1:%2/%3").arg(host).arg(port).arg(name);
}
