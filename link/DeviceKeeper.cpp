#include "link/DeviceKeeper.h"

#include "base/Clock.h"
#include "link/IoDeviceLine.h"

#include <QDebug>

bool DeviceKeeper::open(IoDeviceLine &line, const QString &name)
{
    close();
    if (!line.openDevice(name))
        return false;
    m_line = &line;
    m_name = name;
    m_present = true;
    return true;
}

void DeviceKeeper::close()
{
    if (m_line)
        m_line->close();
    m_line = nullptr;
    m_lastTry.reset();
}

void DeviceKeeper::keepUp()
{
    if (!isKept())
        return;
    if (m_present && m_line->lost())
        noticeLoss();
    if (!m_present && retryDue())
        retry();
}

void DeviceKeeper::noticeLoss()
{
    m_line->close();
    m_present = false;
    // a gateway that merely dropped the connection is back at once
    m_lastTry.reset();
    qWarning("zorbel: port %s lost", qPrintable(m_name));
}

bool DeviceKeeper::retryDue() const
{
    if (!m_lastTry)
        return true;
    const std::int64_t since = m_clock.standardNow().msecs() - m_lastTry->msecs();
    // a wall clock set back must not hold the retries off
    return since >= RetryMs || since < 0;
}

void DeviceKeeper::retry()
{
    m_present = m_line->openDevice(m_name);
    // counted from the end: a slow failing open leaves the station its second
    m_lastTry = m_clock.standardNow();
    if (m_present)
        qInfo("zorbel: port %s back", qPrintable(m_name));
}
