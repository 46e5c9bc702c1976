#include "link/StationLine.h"

#include "base/RunTimeError.h"
#include "link/PortNames.h"

bool StationLine::open(std::uint8_t number)
{
    if (number == 0)
        throw RunTimeError::invalidPortNumber();
    m_keeper.close();
    m_device = portDevice(m_store, number);
    m_active = isTcpDevice(m_device) ? static_cast<IoDeviceLine *>(&m_tcp) : &m_serial;
    return m_keeper.open(*m_active, m_device);
}

void StationLine::send(const QByteArray &bytes)
{
    m_keeper.keepUp();
    m_active->send(bytes);
}
