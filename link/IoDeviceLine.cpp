#include "link/IoDeviceLine.h"

#include <QIODevice>

bool IoDeviceLine::isOpen() const
{
    return m_device.isOpen();
}

int IoDeviceLine::bytesWaiting() const
{
    return m_device.isOpen() ? int(m_device.bytesAvailable()) : 0;
}

int IoDeviceLine::readByte()
{
    char c = 0;
    if (!m_device.isOpen() || !m_device.getChar(&c))
        return -1;
    return int(static_cast<unsigned char>(c));
}

void IoDeviceLine::send(const QByteArray &bytes)
{
    if (m_device.isOpen())
        m_device.write(bytes);
}

bool IoDeviceLine::fail()
{
    m_error = m_device.errorString();
    return false;
}

void IoDeviceLine::dropBuffered()
{
    if (m_device.isOpen())
        m_device.readAll();
}
