#include "link/PortNames.h"

#include "base/SettingsStore.h"

namespace {
QString systemPortName(std::uint8_t number)
{
#ifdef Q_OS_WIN
    return QStringLiteral("COM%1").arg(number);
#else
    return QStringLiteral("/dev/ttyS%1").arg(int(number) - 1);
#endif
}
}

QString portDevice(const SettingsStore &store, std::uint8_t number)
{
    return store.value(QStringLiteral("porty"), QString::number(number), systemPortName(number));
}

bool isTcpDevice(const QString &device)
{
    return device.startsWith(QLatin1String("tcp://"), Qt::CaseInsensitive);
}
