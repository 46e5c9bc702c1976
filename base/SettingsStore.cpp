#include "base/SettingsStore.h"

#include <QSettings>

namespace {
QString path(const QString &section, const QString &key) { return section + QLatin1Char('/') + key; }
}

QString QtSettingsStore::value(const QString &section, const QString &key, const QString &defaultValue) const
{
    QSettings s(QStringLiteral("Zorbel"), QStringLiteral("Zorbel"));
    const QVariant v = s.value(path(section, key), defaultValue);
    // an INI value with a bare comma ("320,10") comes back split into a list
    return v.typeId() == QMetaType::QStringList ? v.toStringList().join(QLatin1Char(',')) : v.toString();
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
