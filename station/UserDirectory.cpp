#include "station/UserDirectory.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

UserDirectory::UserDirectory(const QString &dataHome) : m_path(QDir(dataHome).filePath(QStringLiteral("Zorbel"))) {}

UserDirectory UserDirectory::standard()
{
    return UserDirectory(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

bool UserDirectory::enter(const DatabaseConfig &config, Dialogs &dialogs, const QString &programDir) const
{
    if (!QDir().mkpath(m_path) || !QDir::setCurrent(m_path))
        throw RunTimeError(RunTimeError::FileAccess,
                           QStringLiteral("Nie można utworzyć katalogu %1").arg(QDir::toNativeSeparators(m_path)));
    if (!lacksDatabase(config))
        return true;
    const QString ask = QStringLiteral("W katalogu %1 nie ma bazy danych %2.\nUtworzyć nową, pustą bazę?")
                            .arg(QDir::toNativeSeparators(m_path), config.file);
    if (dialogs.MsgBox(ask, Dialogs::YesNo | Dialogs::Question, QStringLiteral("Zorbel")) != Dialogs::Yes)
        return false;
    createDatabase(config, programDir);
    return true;
}

bool UserDirectory::lacksDatabase(const DatabaseConfig &config)
{
    return config.engine == SqlDialect::Engine::SQLite && !QFileInfo::exists(config.file);
}

QStringList UserDirectory::initArguments(const DatabaseConfig &config)
{
    return {QStringLiteral("init"), QStringLiteral("--db"),
            QStringLiteral("sqlite:") + QFileInfo(config.file).absoluteFilePath()};
}

QString UserDirectory::adminProgram(const QString &programDir)
{
    const QFileInfo beside(QDir(programDir), QStringLiteral("zorbel-admin"));
    if (beside.isFile() && beside.isExecutable())
        return beside.absoluteFilePath();
    return QStandardPaths::findExecutable(QStringLiteral("zorbel-admin"));
}

void UserDirectory::createDatabase(const DatabaseConfig &config, const QString &programDir)
{
    const auto failed = [&config](const QString &why) {
        return RunTimeError::database(
            QStringLiteral("Nie udało się utworzyć bazy danych %1 (zorbel-admin init): %2").arg(config.file, why));
    };
    const QString admin = adminProgram(programDir);
    if (admin.isEmpty())
        throw failed(QStringLiteral("nie ma programu zorbel-admin"));
    QProcess init;
    init.setProcessChannelMode(QProcess::MergedChannels);
    init.start(admin, initArguments(config));
    if (!init.waitForFinished(-1) || init.exitStatus() != QProcess::NormalExit || init.exitCode() != 0)
        throw failed(init.error() == QProcess::FailedToStart ? init.errorString()
                                                               : QString::fromLocal8Bit(init.readAll()).trimmed());
}
