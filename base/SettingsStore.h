#pragma once

#include <QMap>
#include <QString>

// The per-user settings store, addressed by application, section and key;
// values are text. Absent keys give the caller's default and write nothing.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual QString value(const QString &section, const QString &key, const QString &defaultValue) const = 0;
    virtual void setValue(const QString &section, const QString &key, const QString &value) = 0;
};

// The store of the desktop: QSettings under organization and application
// "Zorbel" in its native format ($XDG_CONFIG_HOME/Zorbel/Zorbel.conf on
// Linux, where a section is an INI group; the registry on Windows).
class QtSettingsStore final : public SettingsStore {
public:
    QString value(const QString &section, const QString &key, const QString &defaultValue) const override;
    void setValue(const QString &section, const QString &key, const QString &value) override;
};

// A store in memory, for tests and tools.
class MemorySettingsStore final : public SettingsStore {
public:
    QString value(const QString &section, const QString &key, const QString &defaultValue) const override;
    void setValue(const QString &section, const QString &key, const QString &value) override;
    int size() const { return int(m_values.size()); }

private:
    QMap<QString, QString> m_values;
};
