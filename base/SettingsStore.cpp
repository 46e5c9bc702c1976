#include "base/SettingsStore.h"

#include <QSettings>

namespace {
QString path(const QString &section, const QString &key) { return section + QLatin1Char('/') + key; }
}

QString QtSettingsStore::value(const QString &section, const QString &key, const QString &defaultValue) const
{
    QSettings s(QStringLiteral("Zorbel"), QStringLiteral("Zorbel"));
    return s.value(path(section, key), defaultValue).toString();
}

void QtSettingsStore::setValue(const QString &section, const QString &key, const QString &value)
{
    QSettings s(QStringLiteral("Zorbel"), QStringLiteral("Zorbel"));
    s.setValue(path(section, key), value);
}

QString MemorySettingsStore::value(const QString &section, const QString &key, const QString &defaultValue) const
{
    return m_values.value(path(section, key), defaultValue);
}

void MemorySettingsStore::setValue(const QString &section, const QString &key, const QString &value)
{
    m_values.insert(path(section, key), value);
}
