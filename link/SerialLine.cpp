#include "link/SerialLine.h"

SerialLine::SerialLine() : IoDeviceLine(m_port)
{
    // applied by open; QSerialPort keeps them for every later open
    m_port.setBaudRate(4800);
    m_port.setParity(QSerialPort::EvenParity);
    m_port.setDataBits(QSerialPort::Data8);
    m_port.setStopBits(QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
    // the output side needs no bound: a frame is five bytes at most
    m_port.setReadBufferSize(InBufferSize);
}

bool SerialLine::openDevice(const QString &name)
{
    close();
    m_port.setPortName(name);
    return m_port.open(QIODevice::ReadWrite) || fail();
}

void SerialLine::close()
{
    if (m_port.isOpen())
        m_port.close();
}

void SerialLine::send(const QByteArray &bytes)
{
    IoDeviceLine::send(bytes);
    // hand the frame to the driver now, not at the next event
    if (m_port.isOpen())
        m_port.flush();
}

void SerialLine::discardInput()
{
    if (!m_port.isOpen())
        return;
    dropBuffered();
    m_port.clear(QSerialPort::Input);
}
