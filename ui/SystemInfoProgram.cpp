#include "SystemInfoProgram.h"

#ifdef Q_OS_WIN
#include <QFileInfo>
#include <QSettings>

namespace {

QString machineValue(const QString &key, const QString &name)
{
    return QSettings(QStringLiteral("HKEY_LOCAL_MACHINE\\") + key, QSettings::NativeFormat).value(name).toString();
}

}

QString systemInfoProgram()
{
    const QString path = machineValue(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"), QStringLiteral("PATH"));
    if (!path.isEmpty())
        return path;
    const QString dir = machineValue(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"));
    const QString file = dir + QStringLiteral("\\MSINFO32.EXE");
    return !dir.isEmpty() && QFileInfo::exists(file) ? file : QString();
}

#else

QString systemInfoProgram()
{
    return {}; // no system registry here, and no such program
}

#endif
