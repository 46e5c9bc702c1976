#include "TestEnv.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

TestEnv::TestEnv()
    : m_oldCwd(QDir::currentPath()), m_oldXdg(qgetenv("XDG_CONFIG_HOME"))
{
    QDir().mkpath(m_dir.filePath(QStringLiteral("config")));
    const QString config = m_dir.filePath(QStringLiteral("config"));
    qputenv("XDG_CONFIG_HOME", config.toLocal8Bit());
    // QSettings keeps the user path it found first: point it here too.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, config);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, config);
    QDir::setCurrent(m_dir.path());
}

TestEnv::~TestEnv()
{
    QDir::setCurrent(m_oldCwd);
    if (m_oldXdg.isEmpty())
        qunsetenv("XDG_CONFIG_HOME");
    else
        qputenv("XDG_CONFIG_HOME", m_oldXdg);
}

QString TestEnv::program(const QString &name)
{
    QString dir = qEnvironmentVariable("ZORBEL_BIN_DIR");
    if (dir.isEmpty())
        dir = QCoreApplication::applicationDirPath();
    return QDir(dir).filePath(name);
}
