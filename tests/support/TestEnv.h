#pragma once

#include <QString>
#include <QTemporaryDir>

// A private temporary directory for one test, made the current directory,
// with the per-user settings store (XDG_CONFIG_HOME) pointed inside it, so
// that no test sees another's files or the user's own settings.
class TestEnv {
public:
    TestEnv();
    ~TestEnv();
    TestEnv(const TestEnv &) = delete;
    TestEnv &operator=(const TestEnv &) = delete;

    QString path() const { return m_dir.path(); }
    QString file(const QString &name) const { return m_dir.filePath(name); }
    // Path of a built program (zorbel, zorbel-sim, zorbel-admin).
    static QString program(const QString &name);

private:
    QTemporaryDir m_dir;
    QString m_oldCwd;
    QByteArray m_oldXdg;
};
