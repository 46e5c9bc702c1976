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
    // A device that is gone (an adapter pulled, a pty hung up) reports its
    // error again at every pass of the event loop until it is closed. The
    // close waits for the next pass, out of the port's own call.
    QObject::connect(&m_port, &QSerialPort::errorOccurred, &m_port, [this] { closeIfGone(); },
                     Qt::QueuedConnection);
}

void SerialLine::closeIfGone()
{
    // the port's error now, not the one signalled: the port may have been
    // opened again meanwhile
    const QSerialPort::SerialPortError e = m_port.error();
    const bool ioError = e == QSerialPort::ResourceError || e == QSerialPort::ReadError || e == QSerialPort::WriteError;
    if (!ioError || !m_port.isOpen())
        return;
    m_port.close();
    m_lost = true;
}

bool SerialLine::openDevice(const QString &name)
{
    close();
    m_port.setPortName(name);
    return m_port.open(QIODevice::ReadWrite) || fail();
}

void SerialLine::close()
{
    m_lost = false;
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
